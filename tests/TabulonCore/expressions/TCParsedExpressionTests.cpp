#include "expressions/TCParsedExpression.h"

#include "expressions/TCExpression.h"
#include "expressions/TCExpressionParser.h"
#include "expressions/TCExpressionScanner.h"
#include "expressions/TCTokenListParsedExpression.h"

#include <gtest/gtest.h>

#include <string>

namespace {

// Two references of 17 typed characters and one displayed character each.
const std::u16string text = u"1+(___rel_line(-1))*(___rel_line(-2))";

std::shared_ptr<TCExpression> expression(const std::u16string& typed = text) {
    return TCExpression::expressionWithString(typed);
}

TEST(TCParsedExpression, a_location_finds_the_token_that_holds_it) {
    struct Row {
        int line;
        int64_t location;
        int32_t locationType;
        int64_t start; // of the token's typed range; -1 for none
    };
    constexpr Row rows[] = {
        {__LINE__, 0, 0, 0},   {__LINE__, 2, 0, 2},   {__LINE__, 18, 0, 2},  {__LINE__, 19, 0, 19},
        {__LINE__, 36, 0, 20}, {__LINE__, 37, 0, -1}, {__LINE__, -1, 0, -1}, {__LINE__, 2, 1, 2},
        {__LINE__, 3, 1, 19},  {__LINE__, 4, 1, 20},  {__LINE__, 5, 1, -1},
    };
    const auto parsed = TCExpressionParser(nullptr).parseExpression(expression());
    for (const Row& row : rows) {
        const auto token = parsed->tokenAtLocation(row.location, row.locationType);
        EXPECT_EQ(token ? token->range().location : -1, row.start) << "row " << row.line;
    }
}

TEST(TCParsedExpression, neighbours_follow_in_the_direction) {
    const auto starts = [](const TCExpressionTokens& tokens) {
        std::string result;
        for (const auto& token : tokens)
            result += std::to_string(token->range().location) + ' ';
        return result;
    };
    const TCExpressionParser parser(nullptr);
    const std::u16string sum = u"1 + 2";
    const auto find = [&](int64_t location, int32_t direction, std::size_t count, bool skip) {
        return starts(parser.findTokensInString(sum, location, direction, count, skip));
    };
    EXPECT_EQ(find(2, TCTokenDirectionForward, 9, false), "2 3 4 ");
    EXPECT_EQ(find(2, TCTokenDirectionForward, 2, true), "3 4 ");
    EXPECT_EQ(find(2, TCTokenDirectionBackward, 9, false), "2 1 0 ");
    EXPECT_EQ(find(2, TCTokenDirectionBackward, 1, true), "1 ");
    EXPECT_EQ(find(5, TCTokenDirectionBackward, 2, false), "4 3 ");
    EXPECT_EQ(find(5, TCTokenDirectionForward, 2, false), "");

    const auto parsed = parser.parseExpression(expression(sum));
    std::string walked;
    parsed->enumerateTokensAfterToken(parsed->tokens().back().get(), TCTokenDirectionBackward,
                                      [&](const TCExpressionToken& token, bool& stop) {
                                          walked += std::to_string(token.range().location) + ' ';
                                          stop = token.range().location == 1;
                                      });
    EXPECT_EQ(walked, "3 2 1 ");
    EXPECT_EQ(parsed->tokenAfter(*parsed->tokens().front(), TCTokenDirectionBackward), nullptr);
}

TEST(TCParsedExpression, ranges_convert_between_the_typed_and_the_displayed_text) {
    struct Row {
        int line;
        TCRange displayed;
        TCRange typed;
    };
    constexpr Row rows[] = {
        {__LINE__, {0, 1}, {0, 1}},  {__LINE__, {0, 2}, {0, 2}},  {__LINE__, {1, 2}, {1, 18}},
        {__LINE__, {2, 1}, {2, 17}}, {__LINE__, {3, 1}, {19, 1}}, {__LINE__, {2, 3}, {2, 35}},
        {__LINE__, {0, 5}, {0, 37}}, {__LINE__, {3, 0}, {19, 0}}, {__LINE__, {5, 0}, {37, 0}},
    };
    const TCExpressionParser parser(nullptr);
    for (const Row& row : rows) {
        EXPECT_EQ(parser.convertHighLevelRangeToLowLevelRange(row.displayed, expression()), row.typed)
            << "row " << row.line;
        EXPECT_EQ(parser.convertLowLevelRangeToHighLevelRange(row.typed, expression()), row.displayed)
            << "row " << row.line;
    }
}

TEST(TCParsedExpression, tokens_are_sorted_out_by_type) {
    const auto parsed = TCExpressionParser(nullptr).parseExpression(expression());
    ASSERT_TRUE(parsed->tokensOfType(TCExpressionTokenTypeLineReference));
    EXPECT_EQ(parsed->tokensOfType(TCExpressionTokenTypeLineReference)->size(), 2u);
    EXPECT_TRUE(parsed->tokensOfType(TCExpressionTokenTypeWord)->empty());
    EXPECT_EQ(parsed->lineReferenceTokensOfType(TCLineReferenceTypeRelative).size(), 2u);
    EXPECT_TRUE(parsed->lineReferenceTokensOfType(TCLineReferenceTypeAbsolute).empty());
    const auto empty = TCExpressionParser(nullptr).parseExpression(nullptr);
    EXPECT_EQ(empty->tokensOfType(TCExpressionTokenTypeNumber), std::nullopt);
    EXPECT_EQ(empty->countOfTokens(), 0u);
}

TEST(TCExpressionScanner, one_token_of_the_type_and_nothing_else) {
    EXPECT_TRUE(TCExpressionScanner::isSingleTokenOfType(u"12.5", TCExpressionTokenTypeNumber));
    EXPECT_TRUE(TCExpressionScanner::isSingleTokenOfType(u" ", TCExpressionTokenTypeWhitespace));
    EXPECT_FALSE(TCExpressionScanner::isSingleTokenOfType(u"1+2", TCExpressionTokenTypeNumber));
    EXPECT_FALSE(TCExpressionScanner::isSingleTokenOfType(u"", TCExpressionTokenTypeNumber));
    EXPECT_FALSE(TCExpressionScanner::isOperator(u"rent"));
    EXPECT_TRUE(TCExpressionScanner::isOperator(u"+"));
}

} // namespace
