#include "commands/Commands.h"

#include "Arguments.h"
#include "CommandFailure.h"
#include "input/LineInput.h"
#include "lines/TCFile.h"
#include "lines/TCLine.h"
#include "lines/TCLineCollection.h"
#include "output/AnswerText.h"
#include "output/Output.h"

#include <algorithm>

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

void writeDocument(std::shared_ptr<TCLineCollection> collection, const std::string& path) {
    if (path == "-") {
        throw CommandFailure{ExitCodeUsage, {}, "a document goes to a file, not to standard output"};
    }
    if (isSpecialFile(path)) throw CommandFailure{ExitCodeFailed, path, "is not a file that can be replaced"};
    TCFile file(std::move(collection));
    if (!file.writeToPath(path)) {
        throw CommandFailure{ExitCodeFailed, path, reasonWithoutFile(file.failureSentence(), path)};
    }
}

} // namespace

void runConvert(const ConvertArguments& arguments) {
    refuseSameFile(arguments.source, arguments.destination);
    const LineInput input = readLines(arguments.source, arguments.reading);
    if (!input.isDocument) return writeDocument(input.collection, arguments.destination);
    const bool toStandardOutput = arguments.destination == "-";
    writeOutput(toStandardOutput ? std::nullopt : std::optional(arguments.destination),
                textOf(*input.collection));
}
