#include "editing/TKLineCollectionSyntaxFormatter.h"

#include "TestEnvironment.h"
#include "export/TKLineCollectionExporter.h"
#include "expressions/TCExpressionToken.h"
#include "lines/TCLine.h"
#include "lines/TCLineCollection.h"
#include "runtime/Unicode.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

std::shared_ptr<TCLineCollection> document(const std::vector<std::u16string>& texts) {
    TestEnvironment::set();
    auto lines = std::make_shared<TCLineCollection>();
    lines->beginBatchUpdate();
    for (const std::u16string& text : texts)
        lines->addLine(TCLine::lineWithExpressionString(text));
    lines->endBatchUpdate();
    return lines;
}

// A text that notes when its editing begins, ends and is fixed.
class NotedText final : public TKFormattableText {
public:
    explicit NotedText(std::u16string_view text)
        : TKFormattableText(text) {}
    std::vector<std::string> calls;

    void beginEditing() override { calls.emplace_back("begin"); }
    void endEditing() override { calls.emplace_back("end"); }
    void fixAttributesInRange(TBFRange range) override {
        calls.push_back("fix " + std::to_string(range.location) + " " + std::to_string(range.length));
    }
};

// Puts brackets around lines and tokens, and notes the ranges it was given.
class Brackets final : public TKLineCollectionSyntaxFormatterDelegate {
public:
    explicit Brackets(const TCLineCollection& lines)
        : collection(lines) {}

    std::u16string before, behind; // of a line
    int32_t cut = 0;               // how much of each line is said not to be there
    std::vector<std::string> calls;

    TBFRange rangeOfLineAtIndex(std::size_t index, const std::any& contextInfo) override {
        EXPECT_EQ(std::any_cast<int>(contextInfo), 7);
        int32_t start = 0;
        for (std::size_t i = 0; i < index; ++i)
            start += lengthOf(i) + 1; // and a line feed
        return {start, lengthOf(index) - cut};
    }
    void preFormatLine(TCLine& line, TBFRange havingRange, const TKFormattableText&, TKFormattableText& text,
                       TBFRange withRange, const std::any&) override {
        note("pre " + std::to_string(line.index()), havingRange, withRange);
        text.insert(static_cast<std::size_t>(withRange.location), before);
    }
    void formatToken(const TCExpressionToken&, TBFRange havingRange, const TKFormattableText&,
                     std::size_t onLine, TKFormattableText& text, TBFRange withRange,
                     const std::any&) override {
        note("token " + std::to_string(onLine), havingRange, withRange);
        text.replace(withRange, u"[" + text.substring(withRange) + u"]");
    }
    void postFormatLine(TCLine& line, TBFRange havingRange, const TKFormattableText&, TKFormattableText& text,
                        TBFRange withRange, const std::any&) override {
        note("post " + std::to_string(line.index()), havingRange, withRange);
        text.insert(static_cast<std::size_t>(withRange.end()), behind);
    }

private:
    int32_t lengthOf(std::size_t index) const {
        return static_cast<int32_t>(collection.lineAtIndex(index)->expressionString().value_or(u"").size());
    }
    void note(const std::string& name, TBFRange source, TBFRange destination) {
        calls.push_back(name + ": " + std::to_string(source.location) + "+" + std::to_string(source.length) +
                        " -> " + std::to_string(destination.location) + "+" +
                        std::to_string(destination.length));
    }

    const TCLineCollection& collection;
};

class SyntaxFormatterTests : public testing::Test {
protected:
    explicit SyntaxFormatterTests(const std::vector<std::u16string>& texts = {u"1+2", u"", u"34"})
        : lines(document(texts))
        , delegate(*lines)
        , formatter(lines) {
        formatter.setDelegate(&delegate);
    }

    const std::shared_ptr<TCLineCollection> lines;
    Brackets delegate;
    TKLineCollectionSyntaxFormatter formatter;
};

TEST_F(SyntaxFormatterTests, RangesFollowTheEditsOfTheDestination) {
    const TKFormattableText source(u"1+2\n\n34");
    NotedText text(u"1+2\n\n34");
    delegate.before = u"<";
    delegate.behind = u">";
    formatter.formatLinesAtIndexes({2, 0, 1}, source, text, 7);
    EXPECT_EQ(text.string(), u"<[1][+][2]>\n<>\n<[34]>");
    EXPECT_THAT(delegate.calls, ElementsAre("pre 0: 0+3 -> 0+3", "token 0: 0+1 -> 1+1", "token 0: 1+1 -> 4+1",
                                            "token 0: 2+1 -> 7+1", "post 0: 0+3 -> 0+10",
                                            "pre 1: 4+0 -> 12+0", "post 1: 4+0 -> 4+9", "pre 2: 5+2 -> 15+2",
                                            "token 2: 5+2 -> 16+2", "post 2: 5+2 -> 5+15"));
    EXPECT_THAT(text.calls, ElementsAre("begin", "fix 0 10", "fix 4 9", "fix 5 15", "end"));
}

TEST_F(SyntaxFormatterTests, InOneTextTheRangesOfTheSourceMoveToo) {
    TKFormattableText text(u"1+2\n\n34");
    formatter.formatLinesAtIndexes({0, 2}, text, text, 7);
    EXPECT_EQ(text.string(), u"[1][+][2]\n\n[34]");
    EXPECT_THAT(delegate.calls,
                ElementsAre("pre 0: 0+3 -> 0+3", "token 0: 0+1 -> 0+1", "token 0: 3+1 -> 3+1",
                            "token 0: 6+1 -> 6+1", "post 0: 0+9 -> 0+9", "pre 2: 11+2 -> 11+2",
                            "token 2: 11+2 -> 11+2", "post 2: 5+10 -> 5+10"));
}

TEST_F(SyntaxFormatterTests, WithoutLinesTheTextIsEditedAllTheSame) {
    NotedText text(u"1+2");
    formatter.formatLinesAtIndexes({}, text, text, 7);
    EXPECT_THAT(text.calls, ElementsAre("begin", "end"));
    EXPECT_THAT(delegate.calls, IsEmpty());
}

TEST_F(SyntaxFormatterTests, AnIndexBeyondTheLinesEndsTheWalk) {
    NotedText text(u"1+2");
    testing::internal::CaptureStderr();
    formatter.formatLinesAtIndexes({0, 3, 4}, text, text, 7);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "Warning! Text view being asked to reformat line 3 which is beyond the count\n");
    EXPECT_EQ(text.string(), u"[1][+][2]");
    EXPECT_EQ(text.calls.back(), "end");
}

TEST_F(SyntaxFormatterTests, TokensBeyondTheLineAreLeftOut) {
    NotedText text(u"1+2");
    delegate.cut = 1;
    testing::internal::CaptureStderr();
    formatter.formatLinesAtIndexes({0}, text, text, 7);
    EXPECT_THAT(testing::internal::GetCapturedStderr(),
                HasSubstr("token range ({2, 1}) that goes beyond the range of "
                          "the line ({0, 2})"));
    EXPECT_EQ(text.string(), u"[1][+]2");
    EXPECT_EQ(delegate.calls.back(), "post 0: 0+6 -> 0+6");
}

TEST_F(SyntaxFormatterTests, WithoutADelegateNothingHappens) {
    NotedText text(u"1+2");
    formatter.setDelegate(nullptr);
    testing::internal::CaptureStderr();
    formatter.formatLinesAtIndexes({0}, text, text, 7);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "Error: syntax formatter requires a delegate to proceed\n");
    EXPECT_THAT(text.calls, IsEmpty());
}

class EmptyFirstLineTests : public SyntaxFormatterTests {
protected:
    EmptyFirstLineTests()
        : SyntaxFormatterTests({u"", u"1"}) {}
};

TEST_F(EmptyFirstLineTests, HasNoLastStepUnlessTheFirstAddsText) {
    NotedText text(u"");
    formatter.formatLinesAtIndexes({0}, text, text, 7);
    EXPECT_THAT(delegate.calls, ElementsAre("pre 0: 0+0 -> 0+0"));
    delegate.before = u"<";
    delegate.calls.clear();
    formatter.formatLinesAtIndexes({0}, text, text, 7);
    EXPECT_THAT(delegate.calls, ElementsAre("pre 0: 0+0 -> 0+0", "post 0: 0+1 -> 0+1"));
}

TEST(ExporterLimits, LinesAndTextsAreCutWhereTheyNoLongerShow) {
    TKLineCollectionExporter exporter(document({u"12 + 345 // <6", u"@ title & more of it", u"7", u"8"}));
    exporter.setCountOfLinesLimit(3);
    exporter.setLineLengthLimit(7);
    const std::string page = *exporter.HTMLSourceWithStyle({});
    EXPECT_THAT(page, HasSubstr("<span class=\"number\">12</span> <span class=\"operator\">+</span> "
                                "<span class=\"number\">34</span>\u2026</div></pre>"));
    EXPECT_THAT(page, HasSubstr(">@ title</span>\u2026</div></pre>"));
    EXPECT_THAT(page, HasSubstr(">7</span></div></pre>"));
    EXPECT_THAT(page, Not(HasSubstr(">8<")));
}

} // namespace
