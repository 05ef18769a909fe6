#include "commands/Commands.h"

#include "Arguments.h"
#include "CommandFailure.h"
#include "document/FileWriter.h"
#include "files/OutputPath.h"
#include "input/InputFile.h"
#include "input/LineInput.h"
#include "lines/TCFile.h"
#include "lines/TCLine.h"
#include "lines/TCLineCollection.h"
#include "output/AnswerText.h"
#include "output/Output.h"
#include "output/OutputKind.h"

#include <algorithm>
#include <cstdio>

namespace {

// The texts of the lines. A line break inside of one becomes a space, so that lines stay lines.
std::string textOf(const TCLineCollection& collection) {
    std::string text;
    for (const auto& line : collection) {
        std::string expression = expressionTextOf(*line);
        std::replace_if(
            expression.begin(), expression.end(), [](char c) { return c == '\n' || c == '\r'; }, ' ');
        text += expression + '\n';
    }
    return text;
}

// Characters that no document can hold become spaces, so that words on both sides of one stay apart. Gives
// how many there were.
std::size_t replaceControls(const TCLineCollection& collection) {
    std::size_t total = 0;
    for (const auto& line : collection) {
        std::u16string text = line->expressionString().value_or(u"");
        const auto isControl = [](char16_t c) { return !TBF::FileWriter::canHold(c); };
        const auto count = std::count_if(text.begin(), text.end(), isControl);
        if (count == 0) continue;
        std::replace_if(text.begin(), text.end(), isControl, u' ');
        line->setExpressionString(std::move(text));
        total += static_cast<std::size_t>(count);
    }
    return total;
}

void reportReplaced(const std::string& file, std::size_t count) {
    if (count == 0) return;
    const char* const what = count == 1 ? "control character is" : "control characters are";
    std::fprintf(stderr, "tabulon: %s: %zu %s written as %s\n", displayNameOf(file).c_str(), count, what,
                 count == 1 ? "a space" : "spaces");
}

void writeDocument(std::shared_ptr<TCLineCollection> collection, const std::string& path) {
    if (path == "-") {
        throw CommandFailure{ExitCodeUsage, {}, "a document goes to a file, not to standard output"};
    }
    const bool isDescriptor = platform::outputPathOf(path).descriptor.has_value();
    if (!isDescriptor && isSpecialFile(path))
        throw CommandFailure{ExitCodeFailed, path, "is not a file that can be replaced"};
    TCFile file(std::move(collection));
    if (!file.writeToPath(path)) {
        throw CommandFailure{ExitCodeFailed, path, reasonWithoutFile(file.failureSentence(), path)};
    }
}

} // namespace

void runConvert(const ConvertArguments& arguments) {
    const std::string& destination = arguments.destination;
    const LineInput input = readLines(arguments.source, arguments.reading);
    if (!arguments.isForced) {
        refuseOtherKind(destination, input.isDocument ? OutputKind::text : OutputKind::document);
    }
    if (input.isDocument) {
        writeOutput(destination == "-" ? std::nullopt : std::optional(destination),
                    textOf(*input.collection));
        return;
    }
    input.collection->beginBatchUpdate();
    const std::size_t replaced = replaceControls(*input.collection);
    input.collection->endBatchUpdate();
    writeDocument(input.collection, destination);
    reportReplaced(arguments.source, replaced);
}
