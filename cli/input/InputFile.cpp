#include "input/InputFile.h"

#include "CommandFailure.h"
#include "document/FileReader.h"
#include "input/UTF8Validation.h"
#include "lines/TCLineCollection.h"
#include "xml/XMLBounds.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <unistd.h>
#include <utility>

namespace {

constexpr std::string_view documentStart = "<?xml";

// Each line of a text takes many times its length once it is analysed.
constexpr std::size_t maxTextSize = std::size_t{64} << 20;
constexpr std::size_t maxLines = TCLineCollection::mostLines;
constexpr std::size_t maxFilledLines =
    400'000; // about a kilobyte each, where an empty one takes next to nothing

class OpenFile {
public:
    explicit OpenFile(const std::string& file)
        : descriptor(file == "-" ? STDIN_FILENO : open(file.c_str(), O_RDONLY | O_CLOEXEC)) {}
    ~OpenFile() {
        if (descriptor > STDERR_FILENO) close(descriptor);
    }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    const int descriptor;
};

[[noreturn]] void fail(const std::string& file, const std::string& why) {
    throw CommandFailure{ExitCodeFailed, displayNameOf(file), why};
}

[[noreturn]] void failForErrno(const std::string& file, const char* action) {
    if (errno == ENOENT) fail(file, "doesn't exist");
    if (errno == EISDIR) fail(file, "is a folder");
    fail(file, std::string("can't be ") + action + ": " + std::strerror(errno));
}

// The lines that aren't empty.
std::size_t countOfFilledLines(std::string_view text) {
    std::size_t count = 0;
    char before = '\n';
    for (const char byte : text)
        count += std::exchange(before, byte) == '\n' && byte != '\n' && byte != '\r';
    return count;
}

// Told before any line is made.
void checkCountOfLines(const std::string& file, std::string_view text) {
    const auto ends = static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
    const std::size_t count = ends + (text.empty() || text.back() == '\n' ? 0 : 1);
    if (count > maxLines)
        fail(file, "is too large: a text has at most " + std::to_string(maxLines) + " lines");
    if (count > maxFilledLines && countOfFilledLines(text) > maxFilledLines)
        fail(file, "is too large: a text has at most " + std::to_string(maxFilledLines) +
                       " lines that aren't empty");
}

std::string inLine(std::string_view bytes, std::size_t offset) {
    const auto end = bytes.begin() + static_cast<std::ptrdiff_t>(offset);
    return " (line " + std::to_string(1 + std::count(bytes.begin(), end, '\n')) + ")";
}

} // namespace

std::string displayNameOf(const std::string& file) {
    return file == "-" ? "standard input" : file;
}

std::string readInputFile(const std::string& file) {
    const OpenFile opened(file);
    if (opened.descriptor < 0) failForErrno(file, "opened");
    std::string bytes;
    char buffer[65536];
    while (true) {
        const ssize_t count = read(opened.descriptor, buffer, sizeof buffer);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) failForErrno(file, "read");
        if (count == 0) return bytes;
        bytes.append(buffer, static_cast<std::size_t>(count));
        if (bytes.size() > TBF::FileReader::maxFileSize) fail(file, "is too large for a document");
        if (bytes.size() > maxTextSize && !looksLikeDocument(bytes)) {
            fail(file, "is too large: a text has at most " + std::to_string(maxTextSize >> 20) + " MiB");
        }
    }
}

bool looksLikeDocument(std::string_view bytes) {
    return platform::withoutByteOrderMark(bytes).starts_with(documentStart);
}

bool isDocumentFile(const std::string& file) {
    std::error_code ignored;
    if (file == "-" || !std::filesystem::is_regular_file(file, ignored)) return false;
    const OpenFile opened(file);
    char start[16] = {};
    const ssize_t count = read(opened.descriptor, start, sizeof start);
    return count > 0 && looksLikeDocument({start, static_cast<std::size_t>(count)});
}

std::string_view validatedText(const std::string& file, std::string_view bytes) {
    const std::string_view text = platform::withoutByteOrderMark(bytes);
    checkCountOfLines(file, text);
    const std::size_t invalid = firstInvalidUTF8(text);
    if (invalid < text.size()) fail(file, "is not valid UTF-8" + inLine(text, invalid));
    const std::size_t nul = text.find('\0');
    if (nul != std::string_view::npos) fail(file, "is not text: it has a NUL character" + inLine(text, nul));
    return text;
}
