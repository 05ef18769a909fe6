#include "expressions/TCExpressionTokenBuilder.h"

#include "analysis/ContextualAnalyzer.h"
#include "analysis/Expression.h"
#include "analysis/ExpressionTokenizer.h"
#include "environment/TCEvaluator.h"
#include "environment/TCFunctionList.h"
#include "expressions/TCExpression.h"
#include "names/functions/FunctionList.h"
#include "names/variables/VariableList.h"
#include "names/wordoperators/WordOperatorList.h"
#include "units/UnitCollection.h"

#include <gtest/gtest.h>

#include <string>

namespace {

std::string text(TCRange range) {
    return std::to_string(range.location) + '+' + std::to_string(range.length);
}

// "type.subtype typed displayed" of each token, and the number of a reference.
std::string shown(const TCExpressionTokens& tokens) {
    std::string result;
    for (const auto& token : tokens) {
        result += std::to_string(token->type()) + '.' + std::to_string(token->subType()) + ' ' +
                  text(token->range()) + ' ' + text(token->highLevelRange());
        if (token->lineReferenceType()) {
            result += " ref" + std::to_string(token->lineReferenceType()) + ':' +
                      std::to_string(token->lineReferenceNumber());
        }
        result += '\n';
    }
    return result;
}

// The tokens of a text that was rewritten to `substituted`, as the mappings tell.
std::string shownOf(std::u16string_view substituted, const TCExpressionMappings& mappings = {}) {
    const auto tokenizer = TBF::ExpressionTokenizer::create(kTBFLocaleDefault);
    const auto names = TBF::Namespace::create();
    names->setFunctionList(TBF::retain(TCEvaluator::builtInFunctions()->tbfFunctionList()));
    const auto analyzer = TBF::ContextualAnalyzer::create();
    analyzer->setNamespace(names);
    const auto tokens =
        analyzer->analyze(*tokenizer->tokenize(TBF::Expression::create(substituted).get()), 0);
    return shown(TCExpressionTokenBuilder(tokens, &mappings, {}).build());
}

TEST(TCExpressionTokenBuilder, plain_tokens_keep_their_places) {
    EXPECT_EQ(shownOf(u"2 - 15"), "1.10 0+1 0+1\n3.0 1+1 1+1\n2.13 2+1 2+1\n3.0 3+1 3+1\n1.10 4+2 4+2\n");
    EXPECT_EQ(shownOf(u""), "");
}

TEST(TCExpressionTokenBuilder, a_reference_is_one_token_of_one_displayed_character) {
    EXPECT_EQ(shownOf(u"(___rel_line(-1))+(___abs_line(12))"),
              "10.9 0+17 0+1 ref1:-1\n2.12 17+1 1+1\n10.9 18+17 2+1 ref2:12\n");
    EXPECT_EQ(shownOf(u"(___rel_line_fixed(2))"), "10.9 0+22 0+1 ref8:2\n");
    EXPECT_EQ(shownOf(u"(___dead_line(0))"), "10.9 0+17 0+1 ref16:0\n");
    EXPECT_EQ(shownOf(u"(___abs_line_numbered(3))"), "10.8 0+25 0+1 ref4:3\n");
}

TEST(TCExpressionTokenBuilder, what_only_begins_like_a_reference_is_none) {
    for (const char16_t* const broken :
         {u"(___rel_line(1)", u"(___rel_line", u"___rel_line(1)", u"(___rel_line 1)", u"(___other(1))"})
        EXPECT_EQ(shownOf(broken).find("ref"), std::string::npos);
}

TEST(TCExpressionTokenBuilder, a_replaced_phrase_is_one_token_over_what_was_typed) {
    // "20% of 5", rewritten to a marked word, which is no operator here.
    TCExpressionMappings mappings;
    mappings.addRangeMapping({2, 4}, {2, 13});
    EXPECT_EQ(shownOf(u"20\u0016_percent_of\u0017 5", mappings),
              "4.0 0+2 0+2\n4.0 2+4 2+4\n3.0 6+1 6+1\n1.10 7+1 7+1\n");

    // "line12 + 1": the reference shows as it was typed.
    TCExpressionMappings reference;
    reference.addRangeMapping({0, 6}, {0, 26});
    EXPECT_EQ(shownOf(u"(___abs_line_numbered(12)) + 1", reference),
              "10.8 0+6 0+6 ref4:12\n3.0 6+1 6+1\n2.12 7+1 7+1\n3.0 8+1 8+1\n1.10 9+1 9+1\n");
}

TEST(TCExpressionTokenBuilder, a_comment_measures_its_phrases_as_typed) {
    // "1 // 20% of 5" has a comment of 11 typed characters.
    TCExpressionMappings mappings;
    mappings.addRangeMapping({7, 4}, {7, 13});
    EXPECT_EQ(shownOf(u"1 // 20\u0016_percent_of\u0017 5", mappings),
              "1.10 0+1 0+1\n3.0 1+1 1+1\n12.7 2+11 2+11\n");
}

// In a text full of beginnings every one looks for the same end.
TEST(TCExpressionTokenBuilder, many_beginnings_of_references_take_no_long_time) {
    std::u16string text;
    for (int i = 0; i < 20'000; ++i)
        text += u"(___rel_line(";
    EXPECT_EQ(shownOf(text + u") x").find("ref"), std::string::npos);
}

} // namespace
