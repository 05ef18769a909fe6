#include "output/Output.h"

#include "CommandFailure.h"
#include "QuickLookGeneratorPlugin.h"
#include "bundle/Bundle.h"
#include "files/AtomicFile.h"
#include "files/OutputPath.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>
#include <variant>
#include <vector>

namespace {

namespace fs = std::filesystem;

int writeSpecialFile(const std::string& path, std::string_view bytes) {
    const int descriptor = open(path.c_str(), O_WRONLY | O_CLOEXEC);
    if (descriptor < 0) return errno;
    const int error = platform::writeToDescriptor(descriptor, bytes);
    close(descriptor);
    return error;
}

// What a command reads and where it writes. No output is one that goes nowhere but to standard output.
struct FilesOfCommand {
    std::vector<std::string> inputs;
    std::optional<std::string> output;
};

template <typename Command>
FilesOfCommand filesOf(const Command& command) {
    FilesOfCommand files;
    if constexpr (requires { command.file; }) files.inputs.push_back(command.file);
    if constexpr (requires { command.source; }) files.inputs.push_back(command.source);
    if constexpr (requires { command.colors; })
        if (command.colors) files.inputs.push_back(*command.colors);
    if constexpr (requires { command.output; }) files.output = command.output;
    if constexpr (requires { command.destination; })
        if (command.destination != "-") files.output = command.destination;
    return files;
}

std::optional<struct stat> statusOfInput(const std::string& file) {
    struct stat status = {};
    const int result = file == "-" ? fstat(STDIN_FILENO, &status) : stat(file.c_str(), &status);
    return result == 0 ? std::optional(status) : std::nullopt;
}

// Only of what has content that could be lost.
std::optional<struct stat> statusOfOutput(const std::optional<std::string>& path) {
    struct stat status = {};
    const platform::OutputPath place = path ? platform::outputPathOf(*path) : platform::OutputPath{};
    const int descriptor = path ? place.descriptor.value_or(-1) : STDOUT_FILENO;
    const int result = descriptor >= 0 ? fstat(descriptor, &status) : stat(place.file.c_str(), &status);
    return result == 0 && S_ISREG(status.st_mode) ? std::optional(status) : std::nullopt;
}

bool isSameFile(const std::optional<struct stat>& a, const struct stat& b) {
    return a && a->st_dev == b.st_dev && a->st_ino == b.st_ino;
}

void refuseIfWithin(const std::string& folder, const struct stat& output) {
    std::error_code error;
    for (fs::recursive_directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
        if (!isSameFile(statusOfInput(entry->path().string()), output)) continue;
        throw CommandFailure{ExitCodeUsage, {}, entry->path().string() + " is read, and can't be written to"};
    }
}

} // namespace

void writeOutput(const std::optional<std::string>& path, std::string_view bytes) {
    const auto descriptor =
        path ? platform::outputPathOf(*path).descriptor : std::optional<int>(STDOUT_FILENO);
    const int error = descriptor             ? platform::writeToDescriptor(*descriptor, bytes)
                      : isSpecialFile(*path) ? writeSpecialFile(*path, bytes)
                                             : platform::writeFileAtomically(*path, bytes);
    if (error == 0 || (error == EPIPE && descriptor == STDOUT_FILENO)) return;
    throw CommandFailure{ExitCodeFailed, path.value_or("standard output"),
                         std::string("can't be written: ") + std::strerror(error)};
}

void refuseInputAsOutput(const Arguments& arguments) {
    const FilesOfCommand files =
        std::visit([](const auto& each) { return filesOf(each); }, arguments.command);
    const std::optional<struct stat> output = statusOfOutput(files.output);
    if (!output) return;
    for (const std::string& input : files.inputs) {
        if (isSameFile(statusOfInput(input), *output))
            throw CommandFailure{ExitCodeUsage, {}, input + " can't be input and output at once"};
    }
    if (!files.output) return; // what else is read is no place that anybody sends standard output to
    if (const auto bundle = platform::Bundle::bundleWithIdentifier(kPlugInBundleIdentifier))
        refuseIfWithin(bundle->path(), *output);
    if (arguments.host.dataFolder) refuseIfWithin(*arguments.host.dataFolder, *output);
}

bool isSpecialFile(const std::string& path) {
    const platform::OutputPath place = platform::outputPathOf(path);
    if (place.descriptor) return true;
    std::error_code ignored;
    const auto status = fs::status(place.file, ignored);
    return fs::exists(status) && fs::is_other(status);
}
