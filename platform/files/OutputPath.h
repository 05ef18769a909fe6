#pragma once

// Where a path that is to be written to leads: through symbolic links to a file, which need not exist yet, or
// to an open descriptor of this process. Any thread.

#include <optional>
#include <string>

namespace platform {

struct OutputPath {
    int error = 0;                 // an errno (ELOOP for links in a circle); nothing else then counts
    std::optional<int> descriptor; // for /dev/stdout, /dev/fd/5 and the like
    std::string file;              // or else no link itself, and the place to write to
};

OutputPath outputPathOf(const std::string& path);

// The folder in which the file of this path stands.
std::string folderOf(const std::string& path);

} // namespace platform
