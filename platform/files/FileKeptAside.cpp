#include "files/FileKeptAside.h"

#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <unistd.h>

namespace platform {

namespace {

namespace fs = std::filesystem;

// A folder with so many damaged files in it needs its owner, not one more of them.
constexpr int mostNames = 100;

// 0 or an errno; EEXIST if another file has this name. A writer that was stopped may have given it already.
int giveName(const std::string& name, const std::string& path) {
    if (linkat(AT_FDCWD, path.c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW) == 0) return 0;
    const int error = errno;
    std::error_code failure;
    if (error == EEXIST) return fs::equivalent(path, name, failure) ? 0 : EEXIST;
    // Not every file system has second names, nor do they reach from one to another.
    if (fs::copy_file(path, name, failure)) return 0;
    return failure == std::errc::file_exists ? EEXIST : error;
}

} // namespace

FileKeptAside::FileKeptAside(const std::string& path, std::string_view suffix) {
    int error = EEXIST;
    for (int number = 1; error == EEXIST && number <= mostNames; ++number) {
        std::string name = path + std::string(suffix);
        if (number > 1) name += '-' + std::to_string(number);
        error = giveName(name, path);
        if (error == 0) path_ = std::move(name);
    }
}

FileKeptAside::~FileKeptAside() {
    if (isKept() && !stays_) unlink(path_.c_str());
}

} // namespace platform
