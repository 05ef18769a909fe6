#pragma once

// Turns a line collection into a page: a two-column table of each line's text, with every token in a span
// of its kind, beside its answer. Made for one request, used on the document's thread, and may evaluate
// lines. Only `setHTMLCSS` may be called from another thread.

#include "editing/TKLineCollectionSyntaxFormatter.h"
#include "export/TKLineCollectionExporterHTMLStyle.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

class TCExpressionToken;
class TCLineCollection;
class TCResult;
class TCResultFormattingOptions;

class TKLineCollectionExporter final : private TKLineCollectionSyntaxFormatterDelegate {
public:
    using Style = TKLineCollectionExporterHTMLStyle;

    // The date and time of the heading, as text.
    using DateText = std::function<std::u16string()>;

    explicit TKLineCollectionExporter(std::shared_ptr<TCLineCollection> lineCollection = nullptr);
    ~TKLineCollectionExporter() override;

    // Which lines show.
    bool skipEmptyLines() const { return skipsEmptyLines; }
    void setSkipEmptyLines(bool skip) { skipsEmptyLines = skip; }
    bool skipLinesWithoutAnswer() const { return skipsLinesWithoutAnswer; }
    void setSkipLinesWithoutAnswer(bool skip) { skipsLinesWithoutAnswer = skip; }

    // For a page of which no more than its beginning shows: how many lines it has, and at how many UTF-16
    // units the text and the answer of a line are cut off. Without bounds at first.
    void setCountOfLinesLimit(std::size_t count) { countOfLinesLimit = count; }
    void setLineLengthLimit(std::size_t length) { lineLengthLimit = length; }

    // Whether a line reference shows its target's answer instead of its own text.
    bool resolveLineReferences() const { return resolvesLineReferences; }
    void setResolveLineReferences(bool resolve) { resolvesLineReferences = resolve; }

    const std::optional<std::u16string>& documentTitle() const { return title; }
    void setDocumentTitle(std::optional<std::u16string> newTitle) { title = std::move(newTitle); }

    // The statistic of the footer: 1 total, 2 average, 3 variance, 4 standard deviation.
    int32_t documentStatistic() const { return statistic; }
    void setDocumentStatistic(int32_t type) { statistic = type; }
    std::u16string documentStatisticTitle() const;

    // If set, the statistic takes its locale characters from them.
    const std::shared_ptr<TCResultFormattingOptions>& localeFormattingOptions() const {
        return localeOptions;
    }
    void setLocaleFormattingOptions(std::shared_ptr<TCResultFormattingOptions> options) {
        localeOptions = std::move(options);
    }

    void setDateText(DateText source) { dateText = std::move(source); }

    // The style sheet of `HTMLSource`: what was set, or that of the default style.
    std::string cssString() const;
    void setHTMLCSS(std::optional<std::string> css);

    // The page as UTF-8; none without a line collection. Without a style object all parts that a style
    // can hide are hidden, but the heading and the statistic have rows.
    std::optional<std::string> HTMLSource();
    std::optional<std::string> HTMLSourceWithCSS(const std::optional<std::string>& css);
    std::optional<std::string> HTMLSourceWithStyle(const TKLineCollectionExporterHTMLStyle& style);

    // The page without a style sheet, its declarations in the tags.
    std::optional<std::string> HTMLSourceWithInlinedStyle(const TKLineCollectionExporterHTMLStyle& style);

    // What these are made of: a page with the style sheet and the look of the style, either of which may be
    // left out, and the inside of its body, which is empty without a line collection. Others may add to the
    // texts.
    std::optional<std::string> mutableHTMLSourceWithCSS(const std::optional<std::string>& css,
                                                        const Style* style);
    std::string bodyHTMLWithStyle(const Style* style);

private:
    std::string headingRow(const Style* style) const;
    std::string lineRow(TCLine& line, const Style* style);
    std::string statisticRow(const Style* style);
    std::string expressionHTML(TCLine& line);
    bool isSkipped(TCLine& line) const;

    // The delegate of the syntax formatter.
    TBFRange rangeOfLineAtIndex(std::size_t index, const std::any& contextInfo) override;
    void preFormatLine(TCLine& line, TBFRange havingRange, const TKFormattableText& inSourceString,
                       TKFormattableText& intoDestinationString, TBFRange withRange,
                       const std::any& contextInfo) override;
    void formatToken(const TCExpressionToken& token, TBFRange havingRange,
                     const TKFormattableText& fromSourceString, std::size_t onLine,
                     TKFormattableText& intoDestinationString, TBFRange withRange,
                     const std::any& contextInfo) override;
    void postFormatLine(TCLine& line, TBFRange havingRange, const TKFormattableText& inSourceString,
                        TKFormattableText& intoDestinationString, TBFRange withRange,
                        const std::any& contextInfo) override;
    std::u16string answerOfReference(const TCExpressionToken& token, std::size_t onLine) const;
    void cutToken(const TCExpressionToken& token, int32_t length, TKFormattableText& destination,
                  TBFRange range);
    int32_t escapeUpTo(int32_t location, TKFormattableText& destination);

    std::shared_ptr<TCLineCollection> collection;
    std::unique_ptr<TKLineCollectionSyntaxFormatter> formatter;
    bool skipsEmptyLines = false;
    bool skipsLinesWithoutAnswer = false;
    bool resolvesLineReferences = true;
    std::optional<std::u16string> title;
    int32_t statistic = 1;
    std::shared_ptr<TCResultFormattingOptions> localeOptions;
    DateText dateText;
    Style defaultStyle;
    mutable std::mutex cssMutex; // guards `css`
    std::optional<std::string> css;
    std::size_t countOfLinesLimit = SIZE_MAX;
    std::size_t lineLengthLimit = SIZE_MAX;
    std::optional<int32_t> cutStart; // in the destination: where the line is cut off
    int32_t rawTextStart = 0;        // in the destination: what lies in front of it is markup already
};
