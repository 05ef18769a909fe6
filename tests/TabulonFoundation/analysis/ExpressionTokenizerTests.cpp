#include "analysis/ExpressionToken.h"
#include "analysis/ExpressionTokenizer.h"
#include "analysis/TokenText.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

std::string tokenized(std::u16string_view text, bool comments = true) {
    const auto tokenizer = TBF::ExpressionTokenizer::create(kTBFLocaleDefault);
    tokenizer->setEnableComments(comments);
    const auto expression = TBF::Expression::create(text);
    return TBFTests::textOf(tokenizer->tokenize(expression.get())->tokens());
}

struct Row {
    const char16_t* text;
    const char* tokens;
};

TEST(ExpressionTokenizer, foldsCommentsAndTitlesIntoOneTokenEach) {
    const Row rows[] = {
        {u"", ""},
        {u"Rent: 1200", "LT[Rent:]_[ ]N[1200]"},
        {u"a: b: 5", "LT[a: b:]_[ ]N[5]"},
        {u": 5", "LT[:]_[ ]N[5]"},
        {u"Sum ;", "LC[Sum ;]"},
        {u"Total: 5;", "LC[Total: 5;]"},
        {u"Total: 5; ", "LT[Total:]_[ ]N[5]b[;]_[ ]"},
        {u"a;b", "W[a]b[;]W[b]"},
        {u"@ Heading 1 + 2", "RT[@ Heading 1 + 2]"},
        {u"@", "RT[@]"},
        {u"@a: 5 // x", "RT[@a: 5 // x]"},
        {u" @ x", "_[ ]b[@]_[ ]W[x]"},
        {u"5 + 3 // total", "N[5]_[ ]O[+]_[ ]N[3]_[ ]RC[// total]"},
        {u"a: 5 // b: c", "LT[a:]_[ ]N[5]_[ ]RC[// b: c]"},
        {u"a // b: c;", "W[a]_[ ]RC[// b: c;]"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(tokenized(row.text), row.tokens) << TBF::utf8(row.text);
}

TEST(ExpressionTokenizer, foldsWhatStandsBetweenTwoQuotes) {
    const Row rows[] = {
        {u"\"", "b[\"]"},
        {u"\"\"", "IC[\"\"]"},
        {u"5 \"apples\" + 3", "N[5]_[ ]IC[\"apples\"]_[ ]O[+]_[ ]N[3]"},
        {u"\"a: // b\" 5", "IC[\"a: // b\"]_[ ]N[5]"},
        {u"\"a\"\"b\"\"c", "IC[\"a\"]IC[\"b\"]b[\"]W[c]"},
        {u"\"@\"x;", "LC[\"@\"x;]"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(tokenized(row.text), row.tokens) << TBF::utf8(row.text);
}

TEST(ExpressionTokenizer, leavesTheMarksAloneWithoutComments) {
    EXPECT_EQ(tokenized(u"@a: \"b\"; // c", false), "b[@]W[a]b[:]_[ ]b[\"]W[b]b[\"]b[;]_[ ]C[//]_[ ]W[c]");
}

TEST(ExpressionTokenizer, aCommentCoversItsPlaceInTheText) {
    const auto expression = TBF::Expression::create(u"a \"b c\" d");
    const auto list = TBF::ExpressionTokenizer::create(kTBFLocaleDefault)->tokenize(expression.get());
    ASSERT_EQ(list->tokens().size(), 5u);
    TBF::ExpressionToken* const comment = list->tokens()[2].get();
    EXPECT_EQ(comment->type(), TBFTokenTypeComment);
    EXPECT_EQ(comment->range(), (TBFRange{2, 5}));
    EXPECT_EQ(comment->basicTokens().size(), 5u);
    EXPECT_TRUE(comment->view() == u"\"b c\"");
    EXPECT_EQ(comment->firstCharacter(), u'"');
}

// Quotes and colons that each begin or end something must not make the walk go over the text again.
TEST(ExpressionTokenizer, takesLongLines) {
    for (const char16_t* pattern : {u"a", u"\"", u": ", u"\"x\" ", u"(1.5+"}) {
        std::u16string text;
        while (text.size() < 200'000)
            text += pattern;
        const auto expression = TBF::Expression::create(text);
        const auto list = TBF::ExpressionTokenizer::create(kTBFLocaleDefault)->tokenize(expression.get());
        EXPECT_EQ(list->tokens().back()->range().end(), static_cast<int32_t>(text.size()));
    }
}

std::string decimalString(std::u16string_view text, TBFLocale locale) {
    const auto expression = TBF::Expression::create(text);
    const auto list = TBF::ExpressionTokenizer::create(locale)->tokenize(expression.get());
    return list->tokens().front()->decimalText();
}

TEST(ExpressionToken, decimalStringHasNoTraceOfLocaleOrPrefix) {
    EXPECT_EQ(decimalString(u"1,200", kTBFLocaleDefault), "1200");
    EXPECT_EQ(decimalString(u"1.200,5", TBFLocale::europeanLocale()), "1200.5");
    EXPECT_EQ(decimalString(u"1\u00A0000.5", {u'.', u'\u00A0'}), "1000.5");
    EXPECT_EQ(decimalString(u"0x1F", kTBFLocaleDefault), "31");
    EXPECT_EQ(decimalString(u"0b101", kTBFLocaleDefault), "5");
    EXPECT_EQ(decimalString(u"word", kTBFLocaleDefault), "1");
}

TEST(ExpressionToken, aNumberJoinedOverSpacesReadsAsOne) {
    const auto expression = TBF::Expression::create(u"1 000");
    const auto basicTokens = TBF::ExpressionScanner::create()->scan(expression.get());
    const std::vector<TBF::Ref<TBF::BasicToken>> joined(basicTokens.begin(), basicTokens.end());
    const auto token = TBF::ExpressionToken::create(joined);
    EXPECT_EQ(token->type(), TBFTokenTypeNumber);
    EXPECT_EQ(token->range(), (TBFRange{0, 5}));
    EXPECT_EQ(token->decimalText(), "1000");
}

TEST(ExpressionToken, aTokenOfATextHasNoPlace) {
    const auto text = TBF::String::create(u"per");
    const auto token = TBF::ExpressionToken::create(text.get(), TBFTokenTypeOperator, TBFTokenSubTypeDivide);
    EXPECT_EQ(token->range(), TBFRangeZero);
    EXPECT_EQ(token->locale(), kTBFLocaleDefault);
    EXPECT_EQ(token->firstCharacter(), TBFCharNULL);
    EXPECT_TRUE(token->basicTokens().empty());
    EXPECT_EQ(token->expression(), nullptr);
    EXPECT_TRUE(token->view() == u"per");
}

TEST(ExpressionToken, actualSubTypeIsTheSubTypeUntilSet) {
    const auto token = TBF::ExpressionToken::create(nullptr, TBFTokenTypeOperator, TBFTokenSubTypeDivide);
    EXPECT_EQ(token->actualSubType(), TBFTokenSubTypeDivide);
    token->setActualSubType(TBFTokenSubTypeWordOperator);
    EXPECT_EQ(token->actualSubType(), TBFTokenSubTypeWordOperator);
    EXPECT_EQ(token->subType(), TBFTokenSubTypeDivide);
}

TEST(TokenTypes, basicTypesOutOfRangeLeaveTheOutputsAlone) {
    token_type type = TBFTokenTypeUnit;
    TBFTokenSubType subType = TBFTokenSubTypeUnitAlone;
    TBFBasicTokenTypesToTokenTypes(static_cast<TBFBasicTokenType>(8), TBFBasicTokenSubTypePlus, &type,
                                   &subType);
    TBFBasicTokenTypesToTokenTypes(TBFBasicTokenTypeWord, TBFBasicTokenSubTypeWord, nullptr, &subType);
    EXPECT_EQ(type, TBFTokenTypeUnit);
    EXPECT_EQ(subType, TBFTokenSubTypeUnitAlone);
    TBFBasicTokenTypesToTokenTypes(TBFBasicTokenTypeWord, TBFBasicTokenSubTypeLetterE, &type, &subType);
    EXPECT_EQ(type, TBFTokenTypeWord);
    EXPECT_EQ(subType, TBFTokenSubTypeNone);
}

} // namespace
