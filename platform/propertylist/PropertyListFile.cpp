#include "files/AtomicFile.h"
#include "propertylist/PropertyListForms.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {

namespace {

void report(std::string* error, const std::string& path, std::string_view reason) {
    if (error) *error = path + ": " + std::string(reason) + '.';
}

// All bytes of a regular file; none and a reason if it can't be read or is too large.
std::optional<std::string> bytesOfFile(const std::string& path, std::string& reason) {
    const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (file < 0) {
        reason = std::strerror(errno);
        return std::nullopt;
    }
    struct stat info = {};
    std::string bytes;
    if (fstat(file, &info) != 0) {
        reason = std::strerror(errno);
    } else if (!S_ISREG(info.st_mode)) {
        reason = "not a file";
    } else if (static_cast<std::size_t>(info.st_size) > PropertyList::maximalFileSize) {
        reason = "too large";
    } else {
        bytes.resize(static_cast<std::size_t>(info.st_size));
        std::size_t filled = 0;
        while (filled < bytes.size()) {
            const ssize_t count = ::read(file, bytes.data() + filled, bytes.size() - filled);
            if (count < 0 && errno == EINTR) continue;
            if (count < 0) reason = std::strerror(errno);
            if (count <= 0) break;
            filled += static_cast<std::size_t>(count);
        }
        bytes.resize(filled);
    }
    close(file);
    return reason.empty() ? std::optional(std::move(bytes)) : std::nullopt;
}

std::optional<PropertyList> listIn(std::string_view bytes, std::string& reason) {
    if (bytes.size() > PropertyList::maximalFileSize) {
        reason = "too large";
        return std::nullopt;
    }
    if (bytes.starts_with(binaryPropertyListMagic)) return readBinaryPropertyList(bytes, reason);
    return readXMLPropertyList(bytes, reason);
}

} // namespace

std::optional<PropertyList> PropertyList::parse(std::string_view bytes, std::string* error) {
    std::string reason;
    auto list = listIn(bytes, reason);
    if (!list && error) *error = reason;
    return list;
}

std::optional<PropertyList> PropertyList::read(const std::string& path, std::string* error, bool* isDamaged) {
    std::string reason;
    const auto bytes = bytesOfFile(path, reason);
    auto list = bytes ? listIn(*bytes, reason) : std::nullopt;
    if (isDamaged) *isDamaged = bytes && !list;
    if (!list) report(error, path, reason);
    return list;
}

std::optional<std::string> PropertyList::text(std::string* error) const {
    std::string reason;
    auto bytes = writeXMLPropertyList(*this, reason);
    if (!bytes && error) *error = reason;
    return bytes;
}

bool PropertyList::write(const std::string& path, std::string* error) const {
    std::string reason;
    const auto bytes = text(&reason);
    if (bytes) {
        const int problem = writeFileAtomically(path, *bytes);
        if (problem == 0) return true;
        reason = std::strerror(problem);
    }
    report(error, path, reason);
    return false;
}

} // namespace platform
