#pragma once

// Where programs keep what belongs to their user. Asked of the environment's variables each time.

#include <optional>
#include <string>

namespace platform {

// The user's folder for the data of applications: $XDG_DATA_HOME, or .local/share in the home. None for a
// user without a home. It need not exist.
std::optional<std::string> applicationSupportFolder();

// The folder for files that nobody needs for long.
std::string temporaryFolder();

} // namespace platform
