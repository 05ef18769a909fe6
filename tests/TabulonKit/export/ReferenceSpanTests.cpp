#include "TestEnvironment.h"
#include "export/TKLineCollectionExporter.h"
#include "lines/TCLine.h"
#include "lines/TCLineCollection.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

TEST(ReferenceSpans, ShowTheAnswerOrTheReferenceInWords) {
    TestEnvironment::set();
    const struct {
        std::u16string text;
        const char* resolved;
        const char* unresolved;
    } rows[] = {
        {u"(___rel_line(-1))", "<span class=\"rel_line_ref\">1,234.5</span>",
         "<span class=\"rel_line_ref\">(___rel_line(-1))</span>"},
        {u"(___rel_line_fixed(-2))", "<span class=\"fixed_rel_line_ref\">line 1</span>",
         "<span class=\"fixed_rel_line_ref\">(___rel_line_fixed(-2))</span>"}, // an error is no answer
        {u"(___abs_line_numbered(9))", "<span class=\"word_line_ref\">line 9</span>",
         "<span class=\"word_line_ref\">(___abs_line_numbered(9))</span>"},
        {u"(___abs_line(2))", "<span class=\"abs_line_ref\">line 3</span>", // the line itself
         "<span class=\"abs_line_ref\">(___abs_line(2))</span>"},
        {u"(___dead_line(0))", "<span class=\"rel_line_ref\">line</span>",
         "<span class=\"rel_line_ref\">(___dead_line(0))</span>"},
    };
    for (const auto& row : rows) {
        const auto lines = std::make_shared<TCLineCollection>();
        for (const std::u16string& text : {std::u16string(u"1/0"), std::u16string(u"1234.5"), row.text})
            lines->addLine(TCLine::lineWithExpressionString(text));
        TKLineCollectionExporter exporter(lines);
        EXPECT_NE(exporter.HTMLSource()->find(row.resolved), std::string::npos) << row.resolved;
        exporter.setResolveLineReferences(false);
        EXPECT_NE(exporter.HTMLSource()->find(row.unresolved), std::string::npos) << row.unresolved;
    }
}

} // namespace
