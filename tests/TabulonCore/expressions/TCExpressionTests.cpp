#include "expressions/TCExpression.h"

#include "analysis/Expression.h"
#include "expressions/TCExpressionMappings.h"
#include "expressions/TCTokenizedExpression.h"

#include <gtest/gtest.h>

namespace {

TEST(TCExpression, references_are_bracketed_calls_of_reserved_functions) {
    EXPECT_EQ(TCExpression::relativeLineReferenceToken(-2), u"(___rel_line(-2))");
    EXPECT_EQ(TCExpression::fixedRelativeLineReferenceToken(3), u"(___rel_line_fixed(3))");
    EXPECT_EQ(TCExpression::absoluteLineReferenceToken(7), u"(___abs_line(7))");
    EXPECT_EQ(TCExpression::absoluteLineReferenceFunctionWithLineNumber(4294967295u),
              u"(___abs_line_numbered(4294967295))");
    EXPECT_EQ(TCExpression::nullLineReferenceToken(), u"(___dead_line(0))");
}

TEST(TCExpression, a_new_locale_reads_the_same_text_anew) {
    const auto expression = std::make_shared<TCExpression>(u"1.200,5");
    const auto old = expression->tokenizedExpression();
    expression->setLocaleWithDecimalPoint(u',', u'.');
    EXPECT_EQ(expression->originalString(), u"1.200,5");
    EXPECT_EQ(expression->delocalizedString(), u"1,200.5");
    EXPECT_NE(expression->tokenizedExpression(), old);
    EXPECT_EQ(expression->tokenizedExpression()->tokens().size(), 1u);

    expression->convertToLocaleWithDecimalPoint(u'.', u',');
    EXPECT_EQ(expression->originalString(), u"1,200.5");
    EXPECT_EQ(expression->tbfExpression()->view(), u"1,200.5");
    EXPECT_EQ(expression->locale(), TCSimpleLocale::standardLocale());
}

TEST(TCExpression, a_changed_text_drops_what_was_made_of_the_old_one) {
    const auto expression = std::make_shared<TCExpression>(u"1 + 2");
    EXPECT_EQ(expression->tokenizedExpression()->tokens().size(), 5u);
    expression->setOriginalString(u"3");
    EXPECT_EQ(expression->stringForEvaluation(), u"3");
    EXPECT_EQ(expression->tokenizedExpression()->tokens().size(), 1u);
    expression->setOriginalString(std::nullopt);
    EXPECT_TRUE(expression->isEmpty());
    EXPECT_TRUE(expression->tokenizedExpression()->tokens().empty());
}

TEST(TCExpression, a_simple_text_is_never_substituted) {
    const auto expression = TCExpression::expressionWithSimpleString(u"5 in");
    EXPECT_EQ(expression->stringForEvaluation(), u"5 in");
    EXPECT_EQ(expression->expressionMappings(), nullptr);
    EXPECT_EQ(expression->tokenizedExpression()->tokens().size(), 3u);
}

TEST(TCExpression, tokens_outlive_their_expression_without_a_text) {
    auto expression = std::make_shared<TCExpression>(u"12 + 3");
    const auto tokens = expression->tokenizedExpression()->tokens();
    EXPECT_EQ(tokens[0]->string(), u"12");
    expression.reset();
    EXPECT_EQ(tokens[0]->string(), u"12");
    EXPECT_EQ(tokens[4]->string(), std::nullopt);
}

TEST(TCExpressionMappings, replacements_in_front_move_what_stands_behind) {
    TCExpressionMappings mappings;
    const TCExpressionMappings::Replacement behind[] = {{{10, 4}, 13}};
    const TCExpressionMappings::Replacement inFront[] = {{{2, 1}, 3}};
    mappings.addReplacements(behind);
    mappings.addReplacements(inFront);
    ASSERT_EQ(mappings.mappings().size(), 2u);
    EXPECT_EQ(mappings.findRangeMapping(2)->tbfRange, (TCRange{2, 3}));
    EXPECT_EQ(mappings.findRangeMapping(10), nullptr);
    ASSERT_NE(mappings.findRangeMapping(12), nullptr);
    EXPECT_EQ(mappings.findRangeMapping(12)->tcRange, (TCRange{10, 4}));
}

TEST(TCExpressionMappings, a_range_finds_the_mappings_around_it) {
    TCExpressionMappings mappings;
    for (const int64_t start : {2, 10, 20})
        mappings.addRangeMapping({start, 3}, {start, 3});
    const struct {
        TCRange range;
        std::vector<int64_t> starts;
    } rows[] = {{{0, 2}, {}},  {{2, 3}, {2}},      {{3, 1}, {2}},          {{4, 7}, {2, 10}},
                {{6, 2}, {2}}, {{10, 3}, {2, 10}}, {{0, 30}, {2, 10, 20}}, {{25, 5}, {20}}};
    for (const auto& row : rows) {
        std::vector<int64_t> starts;
        for (const auto& mapping : mappings.mappingsAround(row.range))
            starts.push_back(mapping.tbfRange.location);
        EXPECT_EQ(starts, row.starts) << row.range.location << "+" << row.range.length;
    }
}

TEST(TCExpressionMappings, a_replacement_takes_in_what_it_touches) {
    // "abcdef": "b" and "e" become longer, then "d" with a part of what stands for "e" becomes nothing.
    TCExpressionMappings mappings;
    const TCExpressionMappings::Replacement first[] = {{{1, 1}, 3}, {{4, 1}, 3}};
    const TCExpressionMappings::Replacement second[] = {{{5, 2}, 0}};
    mappings.addReplacements(first);
    mappings.addReplacements(second);
    ASSERT_EQ(mappings.mappings().size(), 2u);
    EXPECT_EQ(mappings.mappings()[1].tbfRange, (TCRange{5, 2}));
    EXPECT_EQ(mappings.mappings()[1].tcRange, (TCRange{3, 2}));
    const int64_t ends[] = {0, 1, 2, 2, 2, 3, 5, 5, 6};
    for (int64_t end = 0; end < 9; ++end)
        EXPECT_EQ(mappings.tcEndOfTBFEnd(end), ends[end]) << end;
}

} // namespace
