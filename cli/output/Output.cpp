#include "output/Output.h"

#include "CommandFailure.h"
#include "files/AtomicFile.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <unistd.h>

namespace {

// 0, or the errno of what failed.
int writeAll(int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count = write(descriptor, bytes.data(), bytes.size());
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return errno;
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return 0;
}

int writeSpecialFile(const std::string& path, std::string_view bytes) {
    const int descriptor = open(path.c_str(), O_WRONLY | O_CLOEXEC);
    if (descriptor < 0) return errno;
    const int error = writeAll(descriptor, bytes);
    close(descriptor);
    return error;
}

} // namespace

void writeOutput(const std::optional<std::string>& path, std::string_view bytes) {
    const int error = !path                  ? writeAll(STDOUT_FILENO, bytes)
                      : isSpecialFile(*path) ? writeSpecialFile(*path, bytes)
                                             : platform::writeFileAtomically(*path, bytes);
    if (error == 0 || (error == EPIPE && !path)) return;
    throw CommandFailure{ExitCodeFailed, path.value_or("standard output"),
                         std::string("can't be written: ") + std::strerror(error)};
}

void refuseSameFile(const std::string& input, const std::string& output) {
    std::error_code error;
    const bool isSame = std::filesystem::equivalent(input, output, error);
    if (isSame && !error && !isSpecialFile(output))
        throw CommandFailure{ExitCodeUsage, {}, input + " can't be input and output at once"};
}

bool isSpecialFile(const std::string& path) {
    std::error_code ignored;
    const auto status = std::filesystem::status(path, ignored);
    return std::filesystem::exists(status) && std::filesystem::is_other(status);
}
