#include "lines/TCLineReferenceSubstituter.h"

#include "lines/LineCollectionTesting.h"
#include "lines/TCContiguousIndexOffsets.h"
#include "lines/TCPlainTextLineReferenceSubstituterDelegate.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ElementsAre;

namespace {

std::shared_ptr<TCLineCollection> document(const std::vector<std::string>& texts) {
    useEvaluatingEnvironment();
    auto lines = std::make_shared<TCLineCollection>();
    fill(*lines, texts);
    return lines;
}

// Marks each reference with a bold run over "[number]".
class MarkingDelegate : public TCLineReferenceSubstituterDelegate {
public:
    std::optional<TCAttributedString> stringForLineReference(TCLineReferenceType, int64_t number,
                                                             std::size_t lineIndex, TCLineCollection&,
                                                             const std::any& contextInfo) override {
        EXPECT_EQ(lineIndex, 1u);
        if (number == std::any_cast<int64_t>(contextInfo)) return std::nullopt;
        const std::u16string text = TBF::utf16("[" + std::to_string(number) + "]");
        return TCAttributedString{text, {{{0, static_cast<int32_t>(text.size())}, {"bold"}}}};
    }
};

TEST(LineReferenceSubstituter, AnswersTakeThePlaceOfReferences) {
    const struct {
        const char* text; // of line index 2
        int32_t mask;
        const char* expected;
    } rows[] = {
        {"(___rel_line(-1)) * 2", 31, "=1,234.5 * 2"},
        {"(___rel_line(-2)) + (___abs_line(0)) + 4", 31, "=7 + =7 + 4"},
        {"(___rel_line(-2)) + (___abs_line(0)) + 4", 6, "(___rel_line(-2)) + =7 + 4"},
        {"x = (___abs_line_numbered(1)) + 1", 31, "x = =7 + 1"},
        {"(___abs_line(8)) + (___rel_line_fixed(-9))", 31, "=line 9 + =line -6"},
        {"3 // see (___abs_line(0))", 31, "3 // see 7"}, // without the prefix: comments have their own
        {"3 + 4", 31, "3 + 4"},
        {"", 31, ""},
    };
    for (const auto& row : rows) {
        const auto lines = document({"7", "1234.5", row.text});
        TCPlainTextLineReferenceSubstituterDelegate delegate;
        delegate.setPrefix(u"=");
        const auto text = TCLineReferenceSubstituter::stringByReplacingLineReferencesOfType(
            row.mask, *lines->lineAtIndex(2), lines, &delegate, {});
        EXPECT_EQ(TBF::utf8(text.value_or(u"none")), row.expected) << row.text;
    }
}

TEST(LineReferenceSubstituter, PlainTextAndAttributes) {
    const auto lines = document({"7"});
    lines->addLine(TCLine::lineWithPlainText(u"(___abs_line(0)) a (___abs_line(3)) b (___rel_line(-1))"));
    MarkingDelegate delegate;
    TCLineReferenceSubstituter substituter(lines, &delegate);
    const auto text =
        substituter.stringByReplacingLineReferencesOfType(31, *lines->lineAtIndex(1), int64_t{3}, true);
    ASSERT_TRUE(text);
    EXPECT_EQ(text->text, u"[0] a (___abs_line(3)) b [-1]");
    std::vector<std::u16string> bold;
    for (const auto& run : text->runs)
        bold.push_back(text->text.substr(static_cast<std::size_t>(run.range.location),
                                         static_cast<std::size_t>(run.range.length)));
    EXPECT_THAT(bold, testing::UnorderedElementsAre(u"[0]", u"[-1]"));
    EXPECT_TRUE(
        substituter.stringByReplacingLineReferencesOfType(31, *lines->lineAtIndex(1), int64_t{3}, false)
            ->runs.empty());
    EXPECT_FALSE(substituter.stringByReplacingLineReferencesOfType(31, *TCLine::make(), int64_t{3}, true));
}

TEST(ContiguousIndexOffsets, LocationsLeadBack) {
    TCContiguousIndexOffsets offsets;
    EXPECT_EQ(offsets.offsetForLocation(5), 0);
    offsets.offsetBy(3, 10);
    EXPECT_EQ(offsets.offsetForLocation(9), 0);
    EXPECT_EQ(offsets.offsetForLocation(10), 3);
    offsets.offsetBy(-2, 4);
    const std::pair<int64_t, int64_t> expected[] = {{3, 0}, {4, -2}, {11, -2}, {12, 1}, {99, 1}};
    for (const auto& [location, offset] : expected)
        EXPECT_EQ(offsets.offsetForLocation(location), offset) << location;
    offsets.offsetBy(1, 0);
    EXPECT_EQ(offsets.offsetForLocation(0), 1);
    EXPECT_EQ(offsets.offsetForLocation(11), 2);
}

} // namespace
