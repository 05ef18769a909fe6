#pragma once

// Why a command could not do its work. Thrown inside the command alone, from wherever the trouble shows, and
// told by `main` as one line.

#include <cstdint>
#include <string>

enum ExitCode : int32_t {
    ExitCodeDone = 0,
    ExitCodeFailed = 1, // an input could not be read, or an output not be written
    ExitCodeUsage = 2,
};

struct CommandFailure {
    ExitCode exitCode = ExitCodeFailed;
    std::string file; // as the user named it; empty if the trouble is with no file
    std::string why;
};
