#include "input/LineInput.h"

#include "CommandFailure.h"
#include "QuickLookGeneratorPlugin.h"
#include "bootstrap.h"
#include "bundle/Bundle.h"
#include "input/InputFile.h"
#include "lines/TCFile.h"
#include "lines/TCLine.h"
#include "lines/TCLineCollection.h"
#include "runtime/Unicode.h"

#include <cerrno>
#include <cstring>
#include <string_view>
#include <sys/mman.h>
#include <unistd.h>

namespace {

// Bytes under a path of this process alone, for what is read by path. Files and pipes are thereby read once.
class MemoryFile {
public:
    explicit MemoryFile(std::string_view bytes)
        : descriptor(memfd_create("tabulon", MFD_CLOEXEC)) {
        while (descriptor >= 0 && !bytes.empty()) {
            const ssize_t count = write(descriptor, bytes.data(), bytes.size());
            if (count < 0 && errno == EINTR) continue;
            if (count < 0) throw CommandFailure{ExitCodeFailed, {}, std::strerror(errno)};
            bytes.remove_prefix(static_cast<std::size_t>(count));
        }
        if (descriptor < 0) throw CommandFailure{ExitCodeFailed, {}, std::strerror(errno)};
    }
    ~MemoryFile() { close(descriptor); }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    std::string path() const { return "/proc/self/fd/" + std::to_string(descriptor); }

private:
    int descriptor;
};

// The first line of `text`, which is taken off it together with its end.
std::string_view takeLine(std::string_view& text) {
    const std::size_t end = text.find('\n');
    std::string_view line = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    if (line.ends_with('\r')) line.remove_suffix(1);
    return line;
}

// One batch, so that the lines are evaluated once, in the order of what they use.
std::shared_ptr<TCLineCollection> linesOfText(std::string_view text, const ReadingOptions& options) {
    auto collection = std::make_shared<TCLineCollection>();
    if (options.trigonometryMode) collection->setTrigonometryMode(*options.trigonometryMode);
    if (options.locale) {
        collection->setLocaleWithDecimalPoint(options.locale->decimalPoint,
                                              options.locale->thousandsSeparator);
    }
    collection->beginBatchUpdate();
    while (!text.empty())
        collection->addLine(TCLine::lineWithExpressionString(TBF::utf16(takeLine(text))));
    collection->endBatchUpdate();
    return collection;
}

std::shared_ptr<TCLineCollection> linesOfDocument(const std::string& file, const MemoryFile& contents,
                                                  const ReadingOptions& options) {
    const std::string path = contents.path();
    TCFile document(path);
    auto collection = document.lineCollection();
    if (!collection) {
        throw CommandFailure{ExitCodeFailed, displayNameOf(file),
                             reasonWithoutFile(document.failureSentence(), path)};
    }
    collection->beginBatchUpdate(); // evaluates once for both
    if (options.trigonometryMode) collection->setTrigonometryMode(*options.trigonometryMode);
    if (options.locale) {
        collection->convertToLocaleWithDecimalPoint(options.locale->decimalPoint,
                                                    options.locale->thousandsSeparator);
    }
    collection->endBatchUpdate();
    return collection;
}

} // namespace

LineInput readLines(const std::string& file, const ReadingOptions& options) {
    std::string bytes = readInputFile(file);
    if (!looksLikeDocument(bytes)) {
        const std::string_view text = validatedText(file, bytes);
        bootstrap(platform::Bundle::bundleWithIdentifier(kPlugInBundleIdentifier).get());
        return {linesOfText(text, options), false};
    }
    const MemoryFile contents(bytes);
    bytes = {};
    bootstrap(platform::Bundle::bundleWithIdentifier(kPlugInBundleIdentifier).get());
    return {linesOfDocument(file, contents, options), true};
}

std::string reasonForUnreadableDocument(const std::string& path) {
    TCFile file(path);
    if (file.lineCollection()) return "changed while it was read";
    return reasonWithoutFile(file.failureSentence(), path);
}

std::string reasonWithoutFile(const std::string& sentence, const std::string& path) {
    std::string_view reason = sentence;
    const std::string subject = "'" + path + "' ";
    if (reason.starts_with(subject)) reason.remove_prefix(subject.size());
    if (reason.ends_with('.')) reason.remove_suffix(1);
    return std::string(reason.empty() ? "can't be read" : reason);
}
