#pragma once

// Work for which nobody vouches, in a process of its own: whatever libraries do there when memory is short,
// the command itself goes on and tells the user. Main thread, while there is no other.

#include <cstddef>
#include <functional>
#include <string>

// What the process may take: 15 seconds of its own time, 30 seconds in all, and 512 MiB of memory and as much
// again as the file has. Bounds that somebody else has set are never raised.
struct OwnProcessBounds {
    std::size_t fileSize = 0;
};

// What the work returns. A CommandFailure that it throws comes out here; if the process ends otherwise, the
// CommandFailure names `file` and says so. What was written to standard error is written by this process,
// unless the work came to a bad end: then a single line tells of it.
std::string resultOfOwnProcess(const std::function<std::string()>& work, const std::string& file,
                               OwnProcessBounds bounds);
