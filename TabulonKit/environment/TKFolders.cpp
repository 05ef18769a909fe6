#include "environment/TKFolders.h"

#include "bundle/Bundle.h"
#include "files/Folders.h"
#include "runtime/TBFLog.h"

#include <filesystem>
#include <string_view>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

constexpr const char* folderName = "Tabulon";

// Anybody may put things among the temporary files, for others to read as their own.
bool isPrivate(const fs::path& folder) {
    struct stat status = {};
    return lstat(folder.c_str(), &status) == 0 && S_ISDIR(status.st_mode) && status.st_uid == geteuid() &&
           (status.st_mode & (S_IWGRP | S_IWOTH)) == 0;
}

void makeFolder(const fs::path& folder) {
    std::error_code error;
    if (fs::is_directory(folder, error)) {
        if (access(folder.c_str(), W_OK) != 0)
            TBFErrorLog("Unable to write to application support directory at %s : %s", folder.c_str(), "");
        return;
    }
    if (fs::is_symlink(fs::symlink_status(folder, error))) fs::remove(folder, error);
    fs::create_directories(folder, error);
    if (error)
        TBFErrorLog("Error creating application support directory at %s : %s", folder.c_str(),
                    error.message().c_str());
}

struct InfoKey {
    std::string_view key;
    std::string_view bundleKey;
};

constexpr InfoKey infoKeys[] = {
    {"CreatorVersion", "CFBundleShortVersionString"},
    {"CreatorID", "CFBundleIdentifier"},
    {"CreatorBuild", "CFBundleVersion"},
};

} // namespace

std::optional<std::string> TKApplicationSupportDirectory() {
    if (const auto base = platform::applicationSupportFolder()) {
        const fs::path folder = fs::path(*base) / folderName;
        makeFolder(folder);
        return folder.string();
    }
    const fs::path folder = fs::path(platform::temporaryFolder()) / folderName;
    if (mkdir(folder.c_str(), 0700) != 0 && !isPrivate(folder)) {
        TBFErrorLog("Unable to write to application support directory at %s : %s", folder.c_str(), "");
        return std::nullopt;
    }
    return folder.string();
}

platform::PropertyList TKApplicationInfoDictionary(const platform::Bundle& bundle) {
    platform::PropertyList::Dictionary info;
    for (const InfoKey& row : infoKeys)
        if (auto text = bundle.infoText(row.bundleKey)) info.set(row.key, *text);
    return info;
}
