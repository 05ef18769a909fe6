#pragma once

// A new file that is to take the place of another. It stands in the same folder under one of a few names, and
// is locked as long as its writer lives: one without a lock was left by a writer that was killed, and goes
// when the next one comes to this folder. Used by AtomicFile alone; each object by one thread, any number of
// them side by side.

#include <string>
#include <string_view>
#include <sys/stat.h>

namespace platform {

class TemporaryFile {
public:
    // For the file at `target`, whose permissions and owner it has before anything is in it; `old` is null if
    // there is none yet. `error` is then 0, or the errno of what failed.
    TemporaryFile(const std::string& target, const struct stat* old);

    // Removes what didn't become the target.
    ~TemporaryFile();
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    int error() const noexcept { return error_; }

    // 0 or an errno. After the second one all is on the disk; after the third it stands at the target.
    int append(std::string_view bytes);
    int flush();
    int replaceTarget();

private:
    bool create(const std::string& folder, bool isPrivate);
    bool createAt(const std::string& path, bool isPrivate);
    bool takeOver(const struct stat& old);
    bool isStillAtPath() const;

    std::string target_;
    std::string path_;
    int descriptor_ = -1;
    int error_ = 0;
};

} // namespace platform
