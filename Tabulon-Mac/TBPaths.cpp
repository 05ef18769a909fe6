#include "TBPaths.h"

#include "bundle/Bundle.h"
#include "environment/TKFolders.h"
#include "runtime/TBFLog.h"

#include <filesystem>
#include <system_error>

namespace {

constexpr const char* teamKey = "TBTeamIdentifier";
constexpr const char* folderName = "quicklook-data";

} // namespace

// The team would name a folder that applications of one maker share; where the platform has no such folders,
// each application has its own, and a host that names no team, or has no information at all, has the same
// one.
std::optional<std::string> TBPaths::quicklookDataFolderForBundle(const platform::Bundle& bundle) {
    if (bundle.infoDictionary().isNull()) {
        TBFErrorLog("%s", "Info dictionary doesn't exist");
    } else if (!bundle.infoText(teamKey)) {
        TBFErrorLog("Expected value for key '%s' in Info.plist not found", teamKey);
    }
    const auto base = TKApplicationSupportDirectory();
    if (!base) {
        TBFErrorLog("%s", "Unable to determine base directory for quicklook data");
        return std::nullopt;
    }
    const std::filesystem::path folder = std::filesystem::path(*base) / folderName;
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (error) TBFErrorLog("Error creating directory '%s': %s", folder.c_str(), error.message().c_str());
    return folder.string();
}
