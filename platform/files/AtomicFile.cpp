#include "files/AtomicFile.h"

#include <atomic>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {

namespace {

constexpr int maxNameAttempts = 100;

struct FreeDeleter {
    void operator()(char* memory) const { std::free(memory); }
};

// The file behind a symbolic link, or the path itself.
std::string resolved(const std::string& path) {
    const std::unique_ptr<char, FreeDeleter> real(realpath(path.c_str(), nullptr));
    return real ? std::string(real.get()) : path;
}

std::string folderOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    if (slash == std::string::npos) return ".";
    return slash == 0 ? "/" : path.substr(0, slash);
}

// Creates a file that nobody else has, with the permissions of an ordinary new file. Fills in its path;
// -1 and errno on failure.
int createBeside(const std::string& target, std::string& temporaryPath) {
    static std::atomic<uint32_t> counter{0};
    for (int attempt = 0; attempt < maxNameAttempts; ++attempt) {
        temporaryPath =
            folderOf(target) + "/.tabulon-" + std::to_string(getpid()) + '-' + std::to_string(counter++);
        const int file = open(temporaryPath.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (file >= 0 || errno != EEXIST) return file;
    }
    return -1;
}

bool writeAll(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count = write(file, bytes.data(), bytes.size());
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

// So that the new name survives a stop of the machine. Not every file system can do it.
void flushFolder(const std::string& path) {
    const int folder = open(folderOf(path).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder < 0) return;
    fsync(folder);
    close(folder);
}

} // namespace

int writeFileAtomically(const std::string& path, std::string_view bytes) {
    const std::string target = resolved(path);
    struct stat old = {};
    const bool replaces = stat(target.c_str(), &old) == 0;
    if (replaces && S_ISDIR(old.st_mode)) return EISDIR;
    // A device or a pipe is nothing that a file may take the place of.
    if (replaces && !S_ISREG(old.st_mode)) return EINVAL;
    // An old file that may not be written to is not to be replaced behind its owner's back.
    if (replaces && access(target.c_str(), W_OK) != 0) return errno;

    std::string temporaryPath;
    const int file = createBeside(target, temporaryPath);
    if (file < 0) return errno;
    const bool written =
        writeAll(file, bytes) && (!replaces || fchmod(file, old.st_mode & 07777) == 0) && fsync(file) == 0;
    int error = written ? 0 : errno;
    if (close(file) != 0 && error == 0) error = errno;
    if (error == 0 && std::rename(temporaryPath.c_str(), target.c_str()) != 0) error = errno;
    if (error != 0) {
        unlink(temporaryPath.c_str());
        return error;
    }
    flushFolder(target);
    return 0;
}

} // namespace platform
