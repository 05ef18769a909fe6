#include "editing/TKLineCollectionSyntaxFormatter.h"

#include "expressions/TCExpressionToken.h"
#include "expressions/TCParsedExpression.h"
#include "lines/TCLine.h"
#include "lines/TCLineCollection.h"

#include <cstdio>
#include <string>

namespace {

TBFRange moved(TBFRange range, int64_t by) {
    range.location = static_cast<int32_t>(range.location + by);
    return range;
}

TBFRange grown(TBFRange range, int64_t by) {
    range.length = static_cast<int32_t>(range.length + by);
    return range;
}

std::string text(TBFRange range) {
    return "{" + std::to_string(range.location) + ", " + std::to_string(range.length) + "}";
}

} // namespace

struct TKLineCollectionSyntaxFormatter::Walk {
    const TKFormattableText& source;
    TKFormattableText& destination;
    const std::any& contextInfo;
    int64_t sourceDelta = 0;
    int64_t destinationDelta = 0;

    // Runs an edit and counts by how much it lengthened the text.
    template <typename Edit>
    void perform(Edit edit) {
        const auto lengthBefore = static_cast<int64_t>(destination.length());
        edit();
        const int64_t growth = static_cast<int64_t>(destination.length()) - lengthBefore;
        destinationDelta += growth;
        if (&source == &destination) sourceDelta += growth;
    }
};

TKLineCollectionSyntaxFormatter::TKLineCollectionSyntaxFormatter(std::shared_ptr<TCLineCollection> lines)
    : collection(std::move(lines)) {}

void TKLineCollectionSyntaxFormatter::formatLinesAtIndexes(const TCLineIndexSet& indexes,
                                                           const TKFormattableText& fromSourceString,
                                                           TKFormattableText& intoDestinationString,
                                                           const std::any& contextInfo) {
    if (!observer) {
        std::fputs("Error: syntax formatter requires a delegate to proceed\n", stderr);
        return;
    }
    Walk walk{fromSourceString, intoDestinationString, contextInfo};
    intoDestinationString.beginEditing();
    for (const std::size_t index : indexes) {
        if (!collection || !collection->hasLineAtIndex(index)) {
            std::fprintf(stderr,
                         "Warning! Text view being asked to reformat line %zu which is beyond the count\n",
                         index);
            break;
        }
        formatLine(*collection->lineAtIndex(index), walk);
    }
    intoDestinationString.endEditing();
}

void TKLineCollectionSyntaxFormatter::formatLine(TCLine& line, Walk& walk) {
    const TBFRange range = observer->rangeOfLineAtIndex(line.index(), walk.contextInfo);
    const TBFRange sourceRange = moved(range, walk.sourceDelta);
    const TBFRange destinationRange = moved(range, walk.destinationDelta);
    walk.perform([&] {
        observer->preFormatLine(line, sourceRange, walk.source, walk.destination, destinationRange,
                                walk.contextInfo);
    });
    formatTokens(line, range, walk);

    if (walk.destinationDelta + range.length == 0) return;
    const TBFRange sourceLine = grown(range, walk.sourceDelta);
    const TBFRange destinationLine = grown(range, walk.destinationDelta);
    walk.perform([&] {
        observer->postFormatLine(line, sourceLine, walk.source, walk.destination, destinationLine,
                                 walk.contextInfo);
    });
    walk.destination.fixAttributesInRange(destinationLine);
}

void TKLineCollectionSyntaxFormatter::formatTokens(TCLine& line, TBFRange lineRange, Walk& walk) {
    const std::shared_ptr<TCParsedExpression> parsed = line.parsedExpression();
    if (!parsed) return;
    for (const auto& token : parsed->tokens()) {
        const auto own = highLevel ? token->highLevelRange() : token->range();
        const TBFRange range = {static_cast<int32_t>(own.location + lineRange.location),
                                static_cast<int32_t>(own.length)};
        if (range.end() > lineRange.end()) {
            std::fprintf(
                stderr,
                "Warning! Critical error with formatLines: the expression parser is giving us a token "
                "range (%s) that goes beyond the range of the line (%s). This probably indicates a "
                "line reference has detokenized into its functional form.\n",
                text(range).c_str(), text(lineRange).c_str());
            continue;
        }
        const TBFRange sourceRange = moved(range, walk.sourceDelta);
        const TBFRange destinationRange = moved(range, walk.destinationDelta);
        walk.perform([&] {
            observer->formatToken(*token, sourceRange, walk.source, line.index(), walk.destination,
                                  destinationRange, walk.contextInfo);
        });
    }
}
