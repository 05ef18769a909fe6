#include "output/OutputKind.h"

#include "CommandFailure.h"
#include "document/FileContents.h"
#include "files/OutputPath.h"
#include "input/InputFile.h"
#include "input/UTF8Validation.h"
#include "xml/XMLBounds.h"

#include <cctype>
#include <fcntl.h>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

namespace {

// As much of a file as tells its kind.
constexpr std::size_t lookedAt = 65536;

// The start of a file; empty for what isn't one, or can't be read and so not be told.
std::string startOfFile(const std::string& path) {
    std::string bytes;
    const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (file < 0) return bytes;
    struct stat status = {};
    if (fstat(file, &status) == 0 && S_ISREG(status.st_mode)) {
        bytes.resize(lookedAt);
        const ssize_t count = read(file, bytes.data(), bytes.size());
        bytes.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
    }
    close(file);
    return bytes;
}

// Passes over the declaration, comments and the document type. Empty if there is no element.
std::string_view nameOfRootElement(std::string_view xml) {
    for (std::size_t at = xml.find('<'); at != std::string_view::npos; at = xml.find('<', at + 1)) {
        const std::string_view rest = xml.substr(at + 1);
        if (rest.starts_with("!--")) {
            at = xml.find("-->", at);
            if (at == std::string_view::npos) break;
        }
        if (rest.starts_with('!') || rest.starts_with('?')) continue;
        std::size_t length = 0;
        while (length < rest.size() && rest[length] != '>' && rest[length] != '/' &&
               !std::isspace(static_cast<unsigned char>(rest[length])))
            ++length;
        return rest.substr(0, length);
    }
    return {};
}

bool isDocument(std::string_view bytes) {
    return looksLikeDocument(bytes) && nameOfRootElement(bytes) == TBF::FileContents::rootName;
}

// Neither bytes nor markup. A character may be cut in two where the look ends.
bool isPlainText(std::string_view bytes) {
    constexpr std::size_t longestCharacter = 4;
    const std::size_t invalid = firstInvalidUTF8(bytes);
    const bool isCutOff = bytes.size() == lookedAt && invalid + longestCharacter > bytes.size();
    if ((invalid < bytes.size() && !isCutOff) || bytes.find('\0') != std::string_view::npos) return false;
    const std::string_view text = platform::withoutByteOrderMark(bytes);
    const std::size_t start = text.find_first_not_of(" \t\r\n");
    return start == std::string_view::npos || text[start] != '<';
}

} // namespace

void refuseOtherKind(const std::string& path, OutputKind written) {
    if (path == "-" || platform::outputPathOf(path).descriptor) return;
    const std::string bytes = startOfFile(path);
    if (bytes.empty()) return;
    const bool isOfKind = written == OutputKind::document ? isDocument(bytes) : isPlainText(bytes);
    if (isOfKind) return;
    throw CommandFailure{
        ExitCodeFailed, path,
        std::string(written == OutputKind::document ? "is no document" : "is no plain text") +
            ", and would be lost: --force writes over it"};
}
