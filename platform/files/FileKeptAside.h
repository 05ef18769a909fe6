#pragma once

// A second name for a file that is about to be replaced, so that what it holds isn't lost. The file itself
// stays at its path all the time. Used by whoever saves over a file that it can't make use of; one thread.

#include <string>
#include <string_view>

namespace platform {

class FileKeptAside {
public:
    // Under the path with the suffix, or with a number after it where another file has that name. Nothing is
    // overwritten.
    FileKeptAside(const std::string& path, std::string_view suffix);

    // Takes the second name away again, unless it is to stay.
    ~FileKeptAside();
    FileKeptAside(const FileKeptAside&) = delete;
    FileKeptAside& operator=(const FileKeptAside&) = delete;

    bool isKept() const noexcept { return !path_.empty(); }
    const std::string& path() const noexcept { return path_; } // empty if it couldn't be kept
    void stay() noexcept { stays_ = true; }

private:
    std::string path_;
    bool stays_ = false;
};

} // namespace platform
