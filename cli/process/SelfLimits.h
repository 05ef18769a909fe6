#pragma once

// Bounds that a process sets itself, for work on a file that nobody vouches for and that nobody watches. Main
// thread; one at a time.

#include <cstddef>
#include <string>

class SelfLimits {
public:
    // From now on the process has 15 seconds of its own time, 30 seconds in all, and 512 MiB of memory and
    // the file's size. When it runs out of time it prints the line "tabulon: <file>: <why>" and ends
    // with exit code 1; out of memory, allocations fail.
    SelfLimits(const std::string& file, std::size_t fileSize);

    // Takes the bounds of time back; that of memory stays.
    ~SelfLimits();
    SelfLimits(const SelfLimits&) = delete;
    SelfLimits& operator=(const SelfLimits&) = delete;
};
