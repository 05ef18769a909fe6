#include "files/Folders.h"

#include <cstdlib>

namespace platform {

namespace {

// Relative paths are to be passed over.
std::optional<std::string> folderInVariable(const char* name) {
    const char* const value = std::getenv(name);
    if (!value || *value != '/') return std::nullopt;
    return value;
}

} // namespace

std::optional<std::string> applicationSupportFolder() {
    if (auto folder = folderInVariable("XDG_DATA_HOME")) return folder;
    const auto home = folderInVariable("HOME");
    return home ? std::optional(*home + "/.local/share") : std::nullopt;
}

std::string temporaryFolder() {
    return folderInVariable("TMPDIR").value_or("/tmp");
}

} // namespace platform
