#include "export/TKLineCollectionExporter.h"

#include "date/DateText.h"
#include "export/TKAnswerHTML.h"
#include "export/TKHTMLText.h"
#include "export/TKInlinedStyle.h"
#include "expressions/TCExpressionToken.h"
#include "expressions/TCParsedExpression.h"
#include "lines/TCLine.h"
#include "lines/TCLineCollection.h"
#include "lines/TCLineCollectionStatistics.h"
#include "lines/TCLineReferenceIndex.h"
#include "results/TCResult.h"
#include "results/TCResultFormattingOptionsContextualizer.h"
#include "runtime/Unicode.h"

#include <algorithm>

namespace {

constexpr std::string_view productAddress = "https://tabulon.example/";

// What stands where there is nothing to show.
constexpr const char* blank = "&nbsp;";

constexpr uint32_t statisticDecimalPlaces = 4;

struct ClassName {
    int32_t kind;
    const char16_t* name;
};

// By core token type; a type without a row has the empty class.
constexpr ClassName tokenClasses[] = {
    {1, u"number"},   {2, u"operator"}, {4, u"word"},     {5, u"unit"},
    {6, u"function"}, {7, u"variable"}, {11, u"bracket"},
};

// Line references, by reference type.
constexpr ClassName referenceClasses[] = {
    {1, u"rel_line_ref"},       {2, u"abs_line_ref"},  {4, u"word_line_ref"},
    {8, u"fixed_rel_line_ref"}, {16, u"rel_line_ref"},
};

// Comments, by core token subtype.
constexpr ClassName commentClasses[] = {
    {3, u"rightwards_title"},  {4, u"leftwards_title"},    {5, u"inline_comment"},
    {6, u"leftwards_comment"}, {7, u"rightwards_comment"},
};

constexpr int32_t whitespaceType = 3;
constexpr int32_t lineReferenceType = 10;
constexpr int32_t commentType = 12;

template <std::size_t count>
std::u16string classIn(const ClassName (&table)[count], int32_t kind) {
    const auto* const row = std::find_if(std::begin(table), std::end(table),
                                         [&](const ClassName& each) { return each.kind == kind; });
    return row == std::end(table) ? u"" : row->name;
}

std::u16string classOf(const TCExpressionToken& token) {
    const auto type = static_cast<int32_t>(token.type());
    if (type == lineReferenceType)
        return classIn(referenceClasses, static_cast<int32_t>(token.lineReferenceType()));
    if (type == commentType) return classIn(commentClasses, static_cast<int32_t>(token.subType()));
    return classIn(tokenClasses, type);
}

std::u16string spanOf(const TCExpressionToken& token, std::u16string_view text) {
    return u"<span class=\"" + classOf(token) + u"\">" + TKHTMLEscaped(text) + u"</span>";
}

std::u16string_view alignment(int32_t textAlignment) {
    if (textAlignment == 2) return u"center";
    return textAlignment == 1 ? u"right" : u"left";
}

bool showsLineNumbers(const TKLineCollectionExporterHTMLStyle* style) {
    return style && style->showsLineNumbers();
}

// An answer of digits alone is cut; one with markup is short.
std::u16string cutAnswer(std::u16string html, std::size_t limit) {
    if (html.size() <= limit || html.find_first_of(u"<&") < html.size()) return html;
    return html.substr(0, limit) + u'\u2026';
}

std::string utf8(std::u16string_view text) {
    return TBF::utf8(text);
}

} // namespace

TKLineCollectionExporter::TKLineCollectionExporter(std::shared_ptr<TCLineCollection> lineCollection)
    : collection(std::move(lineCollection))
    , formatter(std::make_unique<TKLineCollectionSyntaxFormatter>(collection))
    , dateText(platform::currentDateText) {
    formatter->setDelegate(this);
    formatter->setUseHighLevelLocations(false);
}

TKLineCollectionExporter::~TKLineCollectionExporter() = default;

std::u16string TKLineCollectionExporter::documentStatisticTitle() const {
    return TCStatisticTitle(statistic);
}

std::string TKLineCollectionExporter::cssString() const {
    const std::lock_guard lock(cssMutex);
    return css ? *css : defaultStyle.cssString();
}

void TKLineCollectionExporter::setHTMLCSS(std::optional<std::string> newCSS) {
    const std::lock_guard lock(cssMutex);
    css = std::move(newCSS);
}

std::optional<std::string> TKLineCollectionExporter::HTMLSource() {
    return HTMLSourceWithCSS(cssString());
}

std::optional<std::string>
TKLineCollectionExporter::HTMLSourceWithCSS(const std::optional<std::string>& styleSheet) {
    return mutableHTMLSourceWithCSS(styleSheet, nullptr);
}

std::optional<std::string> TKLineCollectionExporter::HTMLSourceWithStyle(const Style& style) {
    return mutableHTMLSourceWithCSS(
        style.cssString() + (style.enableAdaptiveRules() ? style.adaptiveCSSString() : ""), &style);
}

std::optional<std::string> TKLineCollectionExporter::HTMLSourceWithInlinedStyle(const Style& style) {
    const std::optional<std::string> page = mutableHTMLSourceWithCSS(std::nullopt, &style);
    if (!page) return std::nullopt;
    return TKPageWithInlinedStyle(*page, style);
}

std::optional<std::string>
TKLineCollectionExporter::mutableHTMLSourceWithCSS(const std::optional<std::string>& styleSheet,
                                                   const Style* style) {
    if (!collection) return std::nullopt;
    std::string page = "<!DOCTYPE html PUBLIC \"-//W3C//DTD HTML 4.01 Transitional//EN\" "
                       "\"http://www.w3.org/TR/html4/loose.dtd\">\n\n"
                       "<html lang=\"en\">\n"
                       "\t<meta http-equiv=\"Content-Type\" content=\"text/html; charset=utf-8\">\n"
                       "\t<meta name=\"generator\" content=\"Tabulon " +
                       std::string(productAddress) + "\">\n";
    if (styleSheet) page += "<style type=\"text/css\" media=\"all\">\n" + *styleSheet + "\n</style>\n";
    page += "</head>\n<body>\n";
    page += bodyHTMLWithStyle(style);
    page += "</body>\n</html>\n";
    return page;
}

std::string TKLineCollectionExporter::bodyHTMLWithStyle(const Style* style) {
    if (!collection) return {};
    std::string body = "<div class=\"content\">\n<div class=\"table_container\">\n"
                       "<table class=\"document_table\">\n"
                       "<tr class=\"top_padding\"><td style=\"padding: 0px\"></td></tr>\n";
    body += headingRow(style);
    std::size_t countOfRows = 0;
    for (const std::shared_ptr<TCLine>& line : *collection) {
        if (isSkipped(*line)) continue;
        if (++countOfRows > countOfLinesLimit) break;
        body += lineRow(*line, style);
    }

    // Takes up what height is left, so that the table fills its view.
    body += "<tr class=\"line expander\">";
    if (showsLineNumbers(style)) body += "<td class=\"line_number\"></td>";
    body += "<td class=\"expression expander_row\"></td><td class=\"answer\"></td></tr>\n";

    if (!style || style->showsDocumentStatistic()) body += statisticRow(style);
    body += "<tr class=\"bottom_padding\"><td style=\"padding: 0px\"></td></tr>\n</table>\n</div>\n</div>\n";
    return body;
}

std::string TKLineCollectionExporter::headingRow(const Style* style) const {
    if (style && !style->showsDocumentDate() && !style->showsDocumentTitle()) return {};
    std::string row = "<tr class=\"heading\"><td class=\"heading\" colspan=\"";
    row += showsLineNumbers(style) ? "3" : "2";
    row += "\">";
    if (style && style->showsDocumentTitle())
        row += "<div class=\"document_title\">" + (title ? utf8(TKHTMLEscaped(*title)) : blank) + "</div>";
    if (style && style->showsDocumentDate())
        row += "<div class=\"document_date\">" + utf8(TKHTMLEscaped(dateText())) + "</div>";
    return row + "</td></tr>\n";
}

bool TKLineCollectionExporter::isSkipped(TCLine& line) const {
    if (skipsEmptyLines && line.expressionString().value_or(u"").empty()) return true;
    return skipsLinesWithoutAnswer && line.formattedResult().value_or(u"").empty();
}

std::string TKLineCollectionExporter::lineRow(TCLine& line, const Style* style) {
    const std::shared_ptr<TCResult> result = line.result();
    std::string row = line.index() == 0 ? "<tr class=\"line top\">" : "<tr class=\"line\">";
    if (showsLineNumbers(style))
        row += "<td class=\"line_number\">" + std::to_string(line.index() + 1) + "</td>";
    row += "<td class=\"expression\"><pre>" + expressionHTML(line) + "</pre></td><td class=\"answer\">";
    row += result ? utf8(cutAnswer(TKAnswerHTML(*result, line.formattingOptions()), lineLengthLimit)) : blank;
    return row + "</td></tr>\n";
}

std::string TKLineCollectionExporter::statisticRow(const Style* style) {
    const std::shared_ptr<TCResult> result = TCLineCollectionStatistics(collection).getStatistic(statistic);
    TCResultFormattingOptions options = TCResultFormattingOptions::formattingOptionsWithDisplayFormat(
        TCDisplayFormatNormal,
        {collection->decimalPlaceCharacter(), collection->thousandsSeparatorCharacter()});
    options.setDecimalPlaces(statisticDecimalPlaces);
    options = TCResultFormattingOptionsContextualizer().contextualizedOptions(options, result.get());
    options.acquireLocaleValuesFromFormattingOptions(localeOptions.get());

    const std::u16string statisticTitle = documentStatisticTitle();
    std::string row = "<tr class=\"statistic\"><td class=\"statistic_title\" colspan=\"";
    row += showsLineNumbers(style) ? "2" : "1";
    row += "\">" + (statisticTitle.empty() ? blank : utf8(TKHTMLEscaped(statisticTitle)));
    row += ":</td><td class=\"statistic\">";
    row += result ? utf8(TKAnswerHTML(*result, options)) : blank;
    return row + "</td></tr>\n";
}

std::string TKLineCollectionExporter::expressionHTML(TCLine& line) {
    const std::shared_ptr<TCParsedExpression> parsed = line.parsedExpression();
    const bool keepsTokens = !parsed || parsed->hasTokens();
    const TKFormattableText source(line.expressionString().value_or(u""));
    TKFormattableText destination(line.expressionString().value_or(u""));
    formatter->formatLinesAtIndexes({line.index()}, source, destination, std::string_view("HTML"));

    // Tokens that were made for this row alone would otherwise stay until the whole page stands.
    if (!keepsTokens) parsed->dropTokens();
    return utf8(destination.string());
}

// The formatter is given one line at a time, so the line is the whole text.
TBFRange TKLineCollectionExporter::rangeOfLineAtIndex(std::size_t index, const std::any&) {
    const std::u16string text = collection->lineAtIndex(index)->expressionString().value_or(u"");
    return {0, static_cast<int32_t>(text.size())};
}

void TKLineCollectionExporter::preFormatLine(TCLine& line, TBFRange, const TKFormattableText&,
                                             TKFormattableText& intoDestinationString, TBFRange withRange,
                                             const std::any&) {
    std::u16string tag = u"<div style=\"text-align: ";
    tag += alignment(line.expressionFormattingOptions().textAlignment());
    tag += u";\">";
    intoDestinationString.insert(static_cast<std::size_t>(withRange.location), tag);
    rawTextStart = withRange.location + static_cast<int32_t>(tag.size());
    cutStart.reset();
}

void TKLineCollectionExporter::formatToken(const TCExpressionToken& token, TBFRange havingRange,
                                           const TKFormattableText&, std::size_t onLine,
                                           TKFormattableText& intoDestinationString, TBFRange withRange,
                                           const std::any&) {
    if (cutStart) return;
    if (static_cast<std::size_t>(havingRange.end()) > lineLengthLimit) {
        const auto length = static_cast<int32_t>(lineLengthLimit) - havingRange.location;
        return cutToken(token, length, intoDestinationString, withRange);
    }
    if (static_cast<int32_t>(token.type()) == whitespaceType) return;
    withRange.location += escapeUpTo(withRange.location, intoDestinationString);
    const bool showsAnswer =
        resolvesLineReferences && static_cast<int32_t>(token.type()) == lineReferenceType;
    const std::u16string span = spanOf(token, showsAnswer ? answerOfReference(token, onLine)
                                                          : intoDestinationString.substring(withRange));
    intoDestinationString.replace(withRange, span);
    rawTextStart = withRange.location + static_cast<int32_t>(span.size());
}

// The first of the token, as far as the line goes. What follows it is taken off when the line is complete.
void TKLineCollectionExporter::cutToken(const TCExpressionToken& token, int32_t length,
                                        TKFormattableText& destination, TBFRange range) {
    range.location += escapeUpTo(range.location, destination);
    const std::u16string span = spanOf(token, destination.substring({range.location, std::max(length, 0)}));
    destination.replace(range, span);
    rawTextStart = range.location + static_cast<int32_t>(span.size());
    cutStart = rawTextStart;
}

// The answer of the line that the reference points to, or the reference in words where that has none.
std::u16string TKLineCollectionExporter::answerOfReference(const TCExpressionToken& token,
                                                           std::size_t onLine) const {
    const TCLineReferenceType type = token.lineReferenceType();
    const int64_t number = token.lineReferenceNumber();
    const int64_t target = TCLineReferenceIndex(type, number, static_cast<int64_t>(onLine));
    std::u16string answer;
    if (type != TCLineReferenceTypeNull && collection->lineIndexIsValid(target))
        answer = collection->lineAtIndex(static_cast<std::size_t>(target))->formattedResult().value_or(u"");
    return answer.empty() ? TCLineReferenceWords(type, number, static_cast<int64_t>(onLine)) : answer;
}

void TKLineCollectionExporter::postFormatLine(TCLine&, TBFRange, const TKFormattableText&,
                                              TKFormattableText& intoDestinationString, TBFRange withRange,
                                              const std::any&) {
    if (cutStart) {
        intoDestinationString.replace(TBFRange::between(*cutStart, withRange.end()), u"\u2026</div>");
        return;
    }
    const int32_t growth = escapeUpTo(withRange.end(), intoDestinationString);
    intoDestinationString.insert(static_cast<std::size_t>(withRange.end() + growth), u"</div>");
}

// Escapes the text between the last markup and `location`, which no token has covered, and gives by how
// much that moved what follows.
int32_t TKLineCollectionExporter::escapeUpTo(int32_t location, TKFormattableText& destination) {
    const TBFRange gap = TBFRange::between(rawTextStart, location);
    if (gap.isEmpty()) return 0;
    const std::u16string escaped = TKHTMLEscaped(destination.substring(gap));
    destination.replace(gap, escaped);
    return static_cast<int32_t>(escaped.size()) - gap.length;
}
