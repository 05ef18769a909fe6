#include "files/AtomicFile.h"

#include "files/OutputPath.h"
#include "files/TemporaryFile.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {

namespace {

// So that the new name survives a stop of the machine. Not every file system can do it.
void flushFolder(const std::string& path) {
    const int folder = open(folderOf(path).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder < 0) return;
    fsync(folder);
    close(folder);
}

// 0 if something at the path may be replaced.
int reasonToKeep(const std::string& path, const struct stat& old) {
    if (S_ISDIR(old.st_mode)) return EISDIR;
    // A device or a pipe is nothing that a file may take the place of.
    if (!S_ISREG(old.st_mode)) return EINVAL;
    // An old file that may not be written to is not to be replaced behind its owner's back.
    return access(path.c_str(), W_OK) == 0 ? 0 : errno;
}

} // namespace

int writeFileAtomically(const std::string& path, std::string_view bytes) {
    const OutputPath output = outputPathOf(path);
    if (output.error != 0) return output.error;
    if (output.descriptor) return writeToDescriptor(*output.descriptor, bytes);
    const std::string& target = output.file;
    struct stat old = {};
    const bool replaces = lstat(target.c_str(), &old) == 0;
    if (!replaces && errno != ENOENT) return errno;
    int error = replaces ? reasonToKeep(target, old) : 0;
    if (error != 0) return error;

    TemporaryFile file(target, replaces ? &old : nullptr);
    error = file.error();
    if (error == 0) error = file.append(bytes);
    if (error == 0) error = file.flush();
    if (error == 0) error = file.replaceTarget();
    if (error == 0) flushFolder(target);
    return error;
}

int writeToDescriptor(int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count = write(descriptor, bytes.data(), bytes.size());
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) return count < 0 ? errno : ENOSPC;
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return 0;
}

} // namespace platform
