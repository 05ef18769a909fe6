#include "files/TemporaryFile.h"

#include "files/AtomicFile.h"
#include "files/OutputPath.h"

#include <atomic>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace platform {

namespace {

// So many writers at a time have names of this kind in one folder, and so many are looked at by each.
constexpr int countOfNames = 16;
constexpr int maxNameAttempts = 100;

std::string nameInFolder(const std::string& folder, int number) {
    return folder + "/.tabulon-new-" + std::to_string(number);
}

bool isAt(const std::string& path, int descriptor) {
    struct stat opened = {};
    struct stat there = {};
    return fstat(descriptor, &opened) == 0 && lstat(path.c_str(), &there) == 0 &&
           opened.st_dev == there.st_dev && opened.st_ino == there.st_ino;
}

// Removes the file at `path` if no living writer holds it. Whoever has the lock of a file is the only one to
// move or remove it, so what stands at the path can't change between the look and the removal.
void removeLeftOver(const std::string& path) {
    const int file = open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (file < 0) return;
    struct stat status = {};
    if (fstat(file, &status) == 0 && S_ISREG(status.st_mode) && flock(file, LOCK_EX | LOCK_NB) == 0 &&
        isAt(path, file)) {
        unlink(path.c_str());
    }
    close(file);
}

} // namespace

TemporaryFile::TemporaryFile(const std::string& target, const struct stat* old)
    : target_(target) {
    if (!create(folderOf(target), old != nullptr) || (old && !takeOver(*old))) error_ = errno;
}

TemporaryFile::~TemporaryFile() {
    if (descriptor_ < 0) return;
    // The lock goes with the descriptor, and so last.
    if (!path_.empty() && isStillAtPath()) unlink(path_.c_str());
    close(descriptor_);
}

bool TemporaryFile::create(const std::string& folder, bool isPrivate) {
    for (int number = 0; number < countOfNames; ++number)
        removeLeftOver(nameInFolder(folder, number));
    for (int number = 0; number < countOfNames; ++number) {
        if (createAt(nameInFolder(folder, number), isPrivate)) return true;
        if (errno != EEXIST) return false;
    }
    static std::atomic<uint32_t> counter{0};
    for (int attempt = 0; attempt < maxNameAttempts; ++attempt) {
        const std::string own = std::to_string(getpid()) + '-' + std::to_string(counter++);
        if (createAt(folder + "/.tabulon-new-" + own, isPrivate)) return true;
        if (errno != EEXIST) return false;
    }
    return false;
}

// False with errno EEXIST if the name is another writer's, or became one's.
bool TemporaryFile::createAt(const std::string& path, bool isPrivate) {
    const mode_t permissions = isPrivate ? 0600 : 0666;
    descriptor_ = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, permissions);
    if (descriptor_ < 0) return false;
    path_ = path;
    // A file system without locks has no left-overs removed, and needs none.
    const bool isTaken = flock(descriptor_, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
    // Before the lock another writer may have taken the file for a left-over.
    if (!isTaken && isStillAtPath()) return true;
    close(descriptor_);
    descriptor_ = -1;
    errno = EEXIST;
    return false;
}

// Nobody who couldn't read the old file can read the new one, not even while it is written.
bool TemporaryFile::takeOver(const struct stat& old) {
    struct stat own = {};
    if (fstat(descriptor_, &own) != 0) return false;
    mode_t permissions = old.st_mode & 07777;
    const bool isOwned = (own.st_uid == old.st_uid && own.st_gid == old.st_gid) ||
                         fchown(descriptor_, old.st_uid, old.st_gid) == 0;
    // Who may not give files away keeps what can be kept: the group, or at least nothing for another one.
    if (!isOwned && own.st_gid != old.st_gid && fchown(descriptor_, own.st_uid, old.st_gid) != 0)
        permissions &= ~static_cast<mode_t>(S_ISUID | S_ISGID | S_IRWXG) | ((permissions & S_IRWXO) << 3);
    return fchmod(descriptor_, permissions) == 0;
}

bool TemporaryFile::isStillAtPath() const {
    return isAt(path_, descriptor_);
}

int TemporaryFile::append(std::string_view bytes) {
    return writeToDescriptor(descriptor_, bytes);
}

int TemporaryFile::flush() {
    return fsync(descriptor_) == 0 ? 0 : errno;
}

int TemporaryFile::replaceTarget() {
    if (!isStillAtPath()) return EBUSY;
    if (std::rename(path_.c_str(), target_.c_str()) != 0) return errno;
    path_.clear();
    return 0;
}

} // namespace platform
