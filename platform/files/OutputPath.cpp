#include "files/OutputPath.h"

#include <cerrno>
#include <charconv>
#include <climits>
#include <cstdlib>
#include <memory>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {

namespace {

constexpr int maxLinks = 40; // as many as the system follows

struct DescriptorRow {
    std::string_view path;
    int descriptor;
};

constexpr DescriptorRow standardStreams[] = {
    {"/dev/stdin", STDIN_FILENO},
    {"/dev/stdout", STDOUT_FILENO},
    {"/dev/stderr", STDERR_FILENO},
};

// Known by their names where no file system of processes is mounted.
constexpr std::string_view descriptorFolders[] = {"/dev/fd", "/proc/self/fd", "/proc/thread-self/fd"};

struct FreeDeleter {
    void operator()(char* memory) const { std::free(memory); }
};

// None if the folder isn't there.
std::string canonical(const std::string& folder) {
    const std::unique_ptr<char, FreeDeleter> real(realpath(folder.c_str(), nullptr));
    return real ? std::string(real.get()) : std::string();
}

bool holdsDescriptors(const std::string& folder) {
    for (const std::string_view known : descriptorFolders)
        if (folder == known) return true;
    const std::string real = canonical(folder);
    const std::string process = "/proc/" + std::to_string(getpid());
    if (real == process + "/fd") return true;
    return real.starts_with(process + "/task/") && real.ends_with("/fd");
}

std::optional<int> descriptorNamedBy(const std::string& path) {
    for (const DescriptorRow& row : standardStreams)
        if (path == row.path) return row.descriptor;
    const std::string_view name = std::string_view(path).substr(path.rfind('/') + 1);
    int number = 0;
    const auto parsed = std::from_chars(name.data(), name.data() + name.size(), number);
    const bool isNumber =
        !name.empty() && parsed.ec == std::errc() && parsed.ptr == name.data() + name.size();
    if (!isNumber || number < 0 || !holdsDescriptors(folderOf(path))) return std::nullopt;
    return number;
}

// What a symbolic link holds; none, and errno, for anything else.
std::optional<std::string> linkAt(const std::string& path) {
    char target[PATH_MAX];
    const ssize_t length = readlink(path.c_str(), target, sizeof target);
    if (length < 0) return std::nullopt;
    return std::string(target, static_cast<std::size_t>(length));
}

} // namespace

std::string folderOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    if (slash == std::string::npos) return ".";
    return slash == 0 ? "/" : path.substr(0, slash);
}

OutputPath outputPathOf(const std::string& path) {
    OutputPath result;
    result.file = path;
    for (int links = 0; links <= maxLinks; ++links) {
        result.descriptor = descriptorNamedBy(result.file);
        if (result.descriptor) return result;
        const std::optional<std::string> target = linkAt(result.file);
        if (!target) {
            // No link, or nothing there yet, is where the way ends.
            if (errno != EINVAL && errno != ENOENT) result.error = errno;
            return result;
        }
        result.file = target->starts_with('/') ? *target : folderOf(result.file) + '/' + *target;
    }
    result.error = ELOOP;
    return result;
}

} // namespace platform
