#include "export/TKLineCollectionExporter.h"

#include "TestEnvironment.h"
#include "lines/TCLine.h"
#include "lines/TCLineCollection.h"
#include "results/TCResultFormattingOptions.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using Style = TKLineCollectionExporterHTMLStyle;

std::shared_ptr<TCLineCollection> document(const std::vector<std::u16string>& texts) {
    TestEnvironment::set();
    auto lines = std::make_shared<TCLineCollection>();
    lines->beginBatchUpdate();
    for (const std::u16string& text : texts)
        lines->addLine(TCLine::lineWithExpressionString(text));
    lines->endBatchUpdate();
    return lines;
}

// The part of the page that stands between the two texts.
std::string between(const std::string& page, const std::string& start, const std::string& end) {
    const std::size_t from = page.find(start);
    if (from == std::string::npos) return "(no " + start + ")";
    const std::size_t to = page.find(end, from + start.size());
    return page.substr(from + start.size(), to - from - start.size());
}

std::string firstRow(const std::vector<std::u16string>& texts) {
    const std::string page = *TKLineCollectionExporter(document(texts)).HTMLSourceWithStyle(Style());
    return between(page, "<tr class=\"line top\">", "</tr>");
}

TEST(Exporter, ARowHoldsNumberTextAndAnswer) {
    const struct {
        std::u16string text;
        const char* expression; // inside of the pre element
        const char* answer;
    } rows[] = {
        {u"5 + 3",
         "<span class=\"number\">5</span> <span class=\"operator\">+</span> <span class=\"number\">3</span>",
         "8"},
        {u"", "", ""},
        {u"Rent: 900", "<span class=\"leftwards_title\">Rent:</span> <span class=\"number\">900</span>",
         "900"},
        {u"(2)  // a < b",
         "<span class=\"bracket\">(</span><span class=\"number\">2</span><span class=\"bracket\">)</span>  "
         "<span class=\"rightwards_comment\">// a &lt; b</span>",
         "2"},
        {u"10/0",
         "<span class=\"number\">10</span><span class=\"operator\">/</span><span class=\"number\">0</span>",
         "Error: Divide by Zero"},
        {u"= <b>", "= &lt;b&gt;", ""},
        {u"100000 * 100000",
         "<span class=\"number\">100000</span> <span class=\"operator\">*</span> <span "
         "class=\"number\">100000</span>",
         "1×10<span class=\"sci_notation_exponent\">10</span>"},
    };
    for (const auto& row : rows) {
        const std::string html = firstRow({row.text});
        EXPECT_EQ(between(html, "<td class=\"line_number\">", "</td>"), "1");
        EXPECT_EQ(between(html, "<pre>", "</pre>"),
                  std::string("<div style=\"text-align: left;\">") + row.expression + "</div>");
        EXPECT_EQ(between(html, "<td class=\"answer\">", "</td>"), row.answer) << row.expression;
    }
}

TEST(Exporter, ThePageHasItsPartsByStyle) {
    const auto lines = document({u"1", u"", u"2"});
    TKLineCollectionExporter exporter(lines);
    exporter.setDateText([] { return std::u16string(u"1 May 2026 at 10:00"); });
    exporter.setDocumentTitle(u"A & B");

    const std::string plain = *exporter.HTMLSource();
    EXPECT_NE(plain.find("<tr class=\"heading\"><td class=\"heading\" colspan=\"2\"></td></tr>"),
              std::string::npos);
    EXPECT_NE(
        plain.find("<td class=\"statistic_title\" colspan=\"1\">Total:</td><td class=\"statistic\">3</td>"),
        std::string::npos);
    EXPECT_EQ(plain.find("class=\"line_number\""), std::string::npos);

    Style style;
    style.setShowsDocumentStatistic(false);
    const std::string preview = *exporter.HTMLSourceWithStyle(style);
    EXPECT_EQ(preview.find("<tr class=\"heading\""), std::string::npos);
    EXPECT_EQ(preview.find("<tr class=\"statistic\""), std::string::npos);
    EXPECT_NE(preview.find("<tr class=\"line expander\"><td class=\"line_number\"></td>"), std::string::npos);

    style.setShowsDocumentTitle(true);
    style.setShowsDocumentDate(true);
    EXPECT_EQ(between(*exporter.HTMLSourceWithStyle(style), "<td class=\"heading\" colspan=\"3\">", "</td>"),
              "<div class=\"document_title\">A &amp; B</div><div class=\"document_date\">1 May 2026 at "
              "10:00</div>");

    EXPECT_EQ(TKLineCollectionExporter().HTMLSource(), std::nullopt);
}

TEST(Exporter, SkippedLinesKeepTheirNumbers) {
    TKLineCollectionExporter exporter(document({u"", u"words", u"2"}));
    exporter.setSkipEmptyLines(true);
    const std::string page = *exporter.HTMLSourceWithStyle(Style());
    EXPECT_EQ(page.find("class=\"line top\""), std::string::npos);
    EXPECT_NE(page.find("<td class=\"line_number\">2</td>"), std::string::npos);
    exporter.setSkipLinesWithoutAnswer(true);
    EXPECT_EQ(exporter.HTMLSourceWithStyle(Style())->find("<td class=\"line_number\">2</td>"),
              std::string::npos);
}

TEST(Exporter, ADocumentCantBringMarkupAlong) {
    const auto lines = document({u"<script>alert(1)</script> 5", u"</pre></td><b> 2", u"12.5"});
    auto options = std::make_shared<TCResultFormattingOptions>();
    options->setDisplayFormat(TCDisplayFormatDegreesMinutesSeconds);
    options->setDegreesCharacter(u"<i>");
    lines->lineAtIndex(2)->setCustomFormattingOptions(options);
    const std::string page = *TKLineCollectionExporter(lines).HTMLSourceWithStyle(Style());
    for (const char* markup : {"<script", "<b>", "<i>"})
        EXPECT_EQ(page.find(markup), std::string::npos) << markup;
    EXPECT_NE(page.find("12&lt;i&gt; 30'"), std::string::npos);
}

TEST(Exporter, AlignmentFollowsTheLine) {
    const auto lines = document({u"1", u"2"});
    lines->lineAtIndex(0)->expressionFormattingOptions().setTextAlignment(1);
    lines->lineAtIndex(1)->expressionFormattingOptions().setTextAlignment(2);
    const std::string page = *TKLineCollectionExporter(lines).HTMLSourceWithStyle(Style());
    EXPECT_NE(page.find("<div style=\"text-align: right;\"><span class=\"number\">1"), std::string::npos);
    EXPECT_NE(page.find("<div style=\"text-align: center;\"><span class=\"number\">2"), std::string::npos);
}

TEST(Exporter, ALongLineTakesLinearTime) {
    std::u16string text = u"1";
    for (int i = 0; i < 20'000; ++i)
        text += u"+ 1";
    EXPECT_NE(firstRow({text}).find("<td class=\"answer\">20,001</td>"), std::string::npos);
}

// For hosts that put the body into a page of their own.
TEST(Exporter, TheBodyIsThatOfThePage) {
    const Style style;
    TKLineCollectionExporter exporter(document({u"2 + 3"}));
    const std::string body = exporter.bodyHTMLWithStyle(&style);
    const std::string page = *exporter.mutableHTMLSourceWithCSS("p {}", &style);
    EXPECT_EQ(between(page, "<body>\n", "</body>"), body);
    EXPECT_EQ(between(page, "media=\"all\">\n", "\n</style>"), "p {}");
    EXPECT_EQ(TKLineCollectionExporter().bodyHTMLWithStyle(&style), "");
    EXPECT_FALSE(TKLineCollectionExporter().mutableHTMLSourceWithCSS(std::nullopt, nullptr));
}

} // namespace
