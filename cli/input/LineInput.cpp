#include "input/LineInput.h"

#include "CommandFailure.h"
#include "PlugInHost.h"
#include "input/InputFile.h"
#include "lines/TCFile.h"
#include "lines/TCLine.h"
#include "lines/TCLineCollection.h"
#include "runtime/Unicode.h"

#include <string_view>
#include <utility>

namespace {

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

std::shared_ptr<TCLineCollection> linesOfDocument(const std::string& file, std::string bytes,
                                                  const ReadingOptions& options) {
    TCFile document;
    if (!document.readFromBytes(std::move(bytes), file)) {
        throw CommandFailure{ExitCodeFailed, displayNameOf(file),
                             reasonWithoutFile(document.failureSentence(), file)};
    }
    auto collection = document.lineCollection();
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
        startEngine();
        return {linesOfText(text, options), false};
    }
    startEngine();
    return {linesOfDocument(file, std::move(bytes), options), true};
}

std::shared_ptr<TCLineCollection> readLine(const std::string& text, const ReadingOptions& options) {
    const std::string_view line = validatedText("the line", text);
    startEngine();
    return linesOfText(line, options);
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
