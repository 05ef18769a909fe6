#include "export/TKLineCollectionExporterHTMLStyle.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using Style = TKLineCollectionExporterHTMLStyle;

TEST(HTMLStyle, TheSheetHasALineForEachSelector) {
    const std::string css = Style().cssString();
    EXPECT_EQ(std::count(css.begin(), css.end(), '\n'), 38);
    EXPECT_EQ(css.find("body { margin: 0px; padding: 0px; }\n"), 0u);
    EXPECT_TRUE(css.ends_with("span.inline_comment {  color: #555; }\n"));
}

TEST(HTMLStyle, DeclarationsFollowTheSettings) {
    const struct {
        const char* selector;
        void (*change)(Style&);
        const char* expected;
    } rows[] = {
        {"div.content", [](Style&) {}, "width: 100%; min-width: 250px;"},
        {"div.content",
         [](Style& s) {
             s.setEnableHorizontalAutoresizing(false);
             s.setEnableVerticalAutoresizing(true);
         },
         "width: 500px; min-width: 250px;height: 100%; position: absolute;"},
        {"div.table_container", [](Style&) {},
         " margin: 0px 30px; font-family: 'Lucida Grande', Verdana, Sans-serif; font-size: 14px;"},
        {"table.document_table", [](Style& s) { s.setEnableVerticalAutoresizing(true); },
         "border: 1px solid transparent; border-top: none; width: 100%; border-collapse: collapse; height: "
         "100%;"},
        {"div.document_title", [](Style&) {}, "display: none;"},
        {"div.document_title", [](Style& s) { s.setShowsDocumentTitle(true); },
         "font-size: 18px; font-weight: bold; margin: 0px 0px 12px 3px;"},
        {"td.expression", [](Style& s) { s.setExpressionBackgroundColor("#fff"); },
         "padding: 5px 8px 5px 6px; background-color: #fff;"},
        {"td.line_number", [](Style& s) { s.setShowsLineNumbers(false); }, "display: none;"},
        {"td.no_line_number", [](Style& s) { s.setShowsLineNumbers(false); }, "width: 1px;"},
        {"tr.statistic", [](Style& s) { s.setShowsDocumentStatistic(false); }, "display: none"},
        {"tr.statistic", [](Style& s) { s.setFontSize(15); }, "height: 37px;"},
        {"tr.line", [](Style& s) { s.setFontSize(15); },
         "border-left: 1px solid #aaa; border-right: 1px solid #aaa; height: 30px;"},
        {"span.rel_line_ref", [](Style& s) { s.setFontSize(15); },
         "background-color: #e0e7f8; border: 1px solid #a9bbeb; -webkit-border-radius: 13px; "
         "-moz-border-radius: 13px; border-radius: 13px; padding: 0px 10px 0px 10px;"},
        {"span.number", [](Style&) {}, " color: #000;"},
        {"span.number", [](Style& s) { s.setEnableSyntaxColoring(false); }, ""},
        {"span.word", [](Style&) {}, ""},
        {"td.answer", [](Style&) {},
         "width: 200px; text-overflow: ellipsis; overflow: hidden; border-left: 1px solid #aaa; "
         "background-color: #eef1fb; padding-left: 5px; color: #000;"},
    };
    for (const auto& row : rows) {
        Style style;
        row.change(style);
        EXPECT_EQ(style.cssForSelector(row.selector), row.expected) << row.selector;
    }
    EXPECT_EQ(Style().cssForSelector("td"), std::nullopt);
    EXPECT_EQ(Style().cssForSelector("span.word_line_ref"), std::nullopt);
}

} // namespace
