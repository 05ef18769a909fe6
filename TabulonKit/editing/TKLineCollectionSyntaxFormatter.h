#pragma once

// Walks lines of a collection token by token and hands each token, with its place in a text, to a delegate
// that decorates that text. The formatter keeps count of how far the delegate's edits have moved what lies
// behind them; it knows nothing of colours or markup. Used on the document's thread, and may parse lines.

#include "export/TKFormattableText.h"
#include "lines/TCLineIndexSet.h"
#include "runtime/TBFTypes.h"

#include <any>
#include <cstddef>
#include <memory>

class TCExpressionToken;
class TCLine;
class TCLineCollection;

// Ranges count UTF-16 code units. Source and destination may be one and the same text. An edit at or
// behind the range given keeps every later range true.
class TKLineCollectionSyntaxFormatterDelegate {
public:
    virtual ~TKLineCollectionSyntaxFormatterDelegate() = default;

    // The line's range in the text as it stood before any edit.
    virtual TBFRange rangeOfLineAtIndex(std::size_t index, const std::any& contextInfo) = 0;

    // Once a line, ahead of its tokens.
    virtual void preFormatLine(TCLine& line, TBFRange havingRange, const TKFormattableText& inSourceString,
                               TKFormattableText& intoDestinationString, TBFRange withRange,
                               const std::any& contextInfo) = 0;

    // Once a token that lies inside of its line.
    virtual void formatToken(const TCExpressionToken& token, TBFRange havingRange,
                             const TKFormattableText& fromSourceString, std::size_t onLine,
                             TKFormattableText& intoDestinationString, TBFRange withRange,
                             const std::any& contextInfo) = 0;

    // Once a line, behind its tokens, unless there is no text by then.
    virtual void postFormatLine(TCLine& line, TBFRange havingRange, const TKFormattableText& inSourceString,
                                TKFormattableText& intoDestinationString, TBFRange withRange,
                                const std::any& contextInfo) = 0;
};

class TKLineCollectionSyntaxFormatter {
public:
    TKLineCollectionSyntaxFormatter() = default;
    explicit TKLineCollectionSyntaxFormatter(std::shared_ptr<TCLineCollection> collection);

    const std::shared_ptr<TCLineCollection>& lineCollection() const { return collection; }

    // Not owned; has to outlive the walk.
    TKLineCollectionSyntaxFormatterDelegate* delegate() const { return observer; }
    void setDelegate(TKLineCollectionSyntaxFormatterDelegate* delegate) { observer = delegate; }

    // Whether tokens stand where a text view shows them, or where they stand in the typed text.
    bool useHighLevelLocations() const { return highLevel; }
    void setUseHighLevelLocations(bool use) { highLevel = use; }

    // Walks the lines in ascending order; an index beyond the last line ends the walk. Without a delegate
    // nothing happens but a message in the log.
    void formatLinesAtIndexes(const TCLineIndexSet& indexes, const TKFormattableText& fromSourceString,
                              TKFormattableText& intoDestinationString, const std::any& contextInfo);

private:
    struct Walk; // what one call works on, and how far its edits have moved the text

    void formatLine(TCLine& line, Walk& walk);
    void formatTokens(TCLine& line, TBFRange lineRange, Walk& walk);

    std::shared_ptr<TCLineCollection> collection;
    TKLineCollectionSyntaxFormatterDelegate* observer = nullptr;
    bool highLevel = true;
};
