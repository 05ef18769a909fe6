// What lines cost in memory once they are evaluated. Measured as bytes that the heap has handed out, over
// enough lines that what is kept once for all of them doesn't count.

#include "LineCollectionTesting.h"

#include "expressions/TCExpression.h"
#include "expressions/TCParsedExpression.h"
#include "results/TCResult.h"
#include "results/TCResultFormattingOptions.h"
#include "runtime/ObjectPool.h"

#include <gtest/gtest.h>

#include <malloc.h>

namespace {

// The pool of freed blocks may keep up to 2 MB, so a line of few bytes needs many of its kind.
std::size_t bytesInUse() {
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

template <typename TextOf>
double bytesPerLine(std::size_t lineCount, const TextOf& textOf) {
    useEvaluatingEnvironment();
    fill(*std::make_shared<TCLineCollection>(), {textOf(0), textOf(1)}); // what is made once is made now
    const auto collection = std::make_shared<TCLineCollection>();
    const std::size_t before = bytesInUse();
    collection->beginBatchUpdate();
    for (std::size_t i = 0; i < lineCount; ++i)
        collection->addLine(lineOf(textOf(i)));
    collection->endBatchUpdate();
    return static_cast<double>(bytesInUse() - before) / static_cast<double>(lineCount);
}

// Where the heap is the standard one, and blocks are what they are.
bool measuresMemory() {
    return TBF::poolKeepsMemory;
}

} // namespace

TEST(TCLineMemory, a_line_keeps_its_text_and_its_answer_and_little_else) {
    if (!measuresMemory()) GTEST_SKIP() << "another heap is in use";
    const struct {
        const char* name;
        double most; // bytes, with the text
        std::size_t lineCount;
        std::string (*textOf)(std::size_t);
    } rows[] = {
        {"an empty line", 200, 200'000, [](std::size_t) { return std::string(); }},
        {"prose", 1024, 30'000,
         [](std::size_t i) {
             return "Dinner with friends at the harbour, all of them: " + std::to_string(i);
         }},
        {"arithmetic", 1024, 30'000,
         [](std::size_t i) { return std::to_string(i) + " * (3.5 + 12) - 10% + 20% of 50 / 7"; }},
        {"a name", 1750, 20'000,
         [](std::size_t i) { return "name" + std::to_string(i) + " = " + std::to_string(i); }},
        {"a reference", 2048, 20'000, [](std::size_t i) { return relative(-1) + " + " + std::to_string(i); }},
    };
    for (const auto& row : rows) {
        const double bytes = bytesPerLine(row.lineCount, row.textOf);
        RecordProperty(row.name, std::to_string(bytes));
        EXPECT_LE(bytes, row.most) << row.name;
    }
}

TEST(TCLineMemory, tokens_that_were_made_for_a_look_go_with_it) {
    if (!measuresMemory()) GTEST_SKIP() << "another heap is in use";
    useEvaluatingEnvironment();
    const auto collection = std::make_shared<TCLineCollection>();
    fill(*collection, std::vector<std::string>(5'000, "Dinner 12 * 3 and 4 more of them"));
    const std::size_t before = bytesInUse();
    for (const auto& line : *collection) {
        EXPECT_GT(line->parsedExpression()->countOfTokens(), 5u);
        EXPECT_TRUE(line->formattedResult());
        line->dropForms();
    }
    EXPECT_LT(bytesInUse(), before + (std::size_t{2} << 20));
}

TEST(TCLineMemory, a_line_without_text_is_like_any_other_to_those_who_ask) {
    useEvaluatingEnvironment();
    const auto collection = std::make_shared<TCLineCollection>();
    fill(*collection, {"", "2 + 3"});
    const auto empty = collection->lineAtIndex(0);
    EXPECT_TRUE(empty->isKeptAsNothing());
    EXPECT_EQ(empty->expressionString(), u"");
    EXPECT_EQ(empty->lineType(), TCLineTypeNormal);
    EXPECT_EQ(empty->result()->resultType(), TCResultTypeEmpty);
    EXPECT_TRUE(empty->isParsed());
    EXPECT_TRUE(empty->isKeptAsNothing());

    const auto expression = empty->expression();
    ASSERT_TRUE(expression);
    EXPECT_EQ(expression->line(), empty.get());
    EXPECT_EQ(empty->expression(), expression);
    ASSERT_TRUE(empty->parsedExpression());
    EXPECT_EQ(empty->parsedExpression()->countOfTokens(), 0u);
    EXPECT_TRUE(empty->isEqual(*lineOf("")));
    EXPECT_FALSE(empty->isEqual(*TCLine::make()));
    EXPECT_EQ(empty->hash(), lineOf("")->hash());

    empty->setExpressionString(u"(___rel_line(1)) * 2");
    EXPECT_EQ(empty->formattedResult(), u"10");
    empty->setExpressionString(u"");
    EXPECT_EQ(empty->formattedResult(), std::nullopt);
    EXPECT_EQ(TCLine::make()->expression(), nullptr);
    EXPECT_EQ(TCLine::lineWithExpressionString(std::nullopt)->expressionString(), std::nullopt);
}

TEST(TCLineMemory, a_set_of_indexes_reaches_no_further_than_a_document) {
    const std::size_t most = TCLineCollection::mostLines;
    EXPECT_EQ(TCLineIndexSet::withRange(most - 2, 5), (TCLineIndexSet{most - 2, most - 1}));
    EXPECT_TRUE(TCLineIndexSet::withRange(most, 1).isEmpty());
    EXPECT_TRUE(TCLineIndexSet::withRange(SIZE_MAX, SIZE_MAX).isEmpty());
    EXPECT_EQ(TCLineIndexSet::withRange(0, SIZE_MAX).count(), most);
}

TEST(TCLineMemory, options_that_lines_share_are_a_lines_own_once_it_changes_them) {
    const auto a = lineOf("1/3"), b = lineOf("1/3");
    EXPECT_EQ(&a->readableFormattingOptions(), &b->readableFormattingOptions());
    a->customFormattingOptions()->setDecimalPlaces(2);
    EXPECT_EQ(a->readableFormattingOptions().decimalPlaces(), 2u);
    EXPECT_EQ(b->readableFormattingOptions().decimalPlaces(), 10u);
    a->setLocale(TCSimpleLocale{u',', u'.'});
    EXPECT_EQ(a->customFormattingOptions()->decimalPlaceCharacter(), u',');
    EXPECT_EQ(a->customFormattingOptions()->decimalPlaces(), 2u);
    EXPECT_EQ(b->readableFormattingOptions().decimalPlaceCharacter(), u'.');
}

TEST(TCLineMemory, a_collection_takes_no_more_lines_than_a_document_may_have) {
    TCLineCollection collection(nullptr);
    collection.beginBatchUpdate();
    const std::size_t most = TCLineCollection::mostLines;
    for (std::size_t i = 0; i < most + 2; ++i)
        collection.addLine(lineOf(""));
    EXPECT_EQ(collection.countOfLines(), most);
    collection.insertLine(lineOf("1"), 0);
    EXPECT_EQ(collection.countOfLines(), most);
    EXPECT_EQ(collection.lineAtIndex(0)->expressionString(), u"");
}
