#include "expressions/TCLineExpressionParser.h"

#include "analysis/Expression.h"
#include "analysis/ExpressionTokenizer.h"
#include "expressions/TCExpression.h"
#include "expressions/TCExpressionMappings.h"
#include "expressions/TCExpressionSubstituter.h"
#include "expressions/TCExpressionTokenizer.h"
#include "expressions/TCLineVariableDeclaration.h"
#include "expressions/TCNormalLineExpression.h"
#include "expressions/TCParsedExpression.h"
#include "expressions/TCPlainTextLineExpression.h"
#include "expressions/TCSimpleTokenizedExpression.h"
#include "expressions/TCVarDeclLineExpression.h"
#include "runtime/Unicode.h"

#include <gtest/gtest.h>

#include <string>

namespace {

std::shared_ptr<TCSimpleTokenizedExpression> simpleTokens(const std::shared_ptr<TCExpression>& expression) {
    return TCExpressionTokenizer(expression->locale(), TCExpressionSubstituter::defaultSubstituter())
        .tokenizeExpression(*expression);
}

TEST(TCExpressionParser, a_line_declares_the_last_word_before_its_equals_sign) {
    struct Row {
        int line;
        const char16_t* text;
        int32_t type;
        TCRange name;
        TCRange value;
    };
    constexpr int32_t normal = TCExpressionTypeNormal;
    constexpr int32_t declaration = TCExpressionTypeVariableDeclaration;
    constexpr int32_t plain = TCExpressionTypePlainText;
    constexpr Row rows[] = {
        {__LINE__, u"Rent = 1,200", declaration, {0, 5}, {6, 6}},
        {__LINE__, u"my rent = 5", declaration, {3, 5}, {9, 2}},
        {__LINE__, u"Rent 2 = 5", declaration, {0, 7}, {8, 2}},
        {__LINE__, u"x = y + 1", declaration, {0, 2}, {3, 6}},
        {__LINE__, u"x =", declaration, {0, 2}, {3, 0}},
        {__LINE__, u"Rent: x = 5", declaration, {6, 2}, {9, 2}},
        {__LINE__, u"x = 5 // a = b", declaration, {0, 2}, {3, 11}},
        {__LINE__, u"Rent: = 5", plain, {}, {}},
        {__LINE__, u"= 5", plain, {}, {}},
        {__LINE__, u"5 = 5", plain, {}, {}},
        {__LINE__, u"a = b = 3", plain, {}, {}},
        {__LINE__, u"a + 1 = 5", plain, {}, {}},
        {__LINE__, u"5 + 3", normal, {}, {}},
        {__LINE__, u"5 + 3 // = 1", normal, {}, {}},
        {__LINE__, u"", normal, {}, {}},
    };
    for (const Row& row : rows) {
        TCVariableDeclarationRecord record;
        const auto tokens = simpleTokens(TCExpression::expressionWithString(row.text));
        EXPECT_EQ(TCExpressionParser::expressionTypeOfTokenizedExpression(*tokens, &record), row.type)
            << "row " << row.line;
        EXPECT_EQ(record.nameRange, row.name) << "row " << row.line;
        EXPECT_EQ(record.valueRange, row.value) << "row " << row.line;
    }
}

// "type.subtype text" of each display token.
std::string shown(const TCParsedExpression* parsed) {
    if (!parsed) return "none";
    std::string result;
    for (const auto& token : parsed->tokens()) {
        result += std::to_string(token->type()) + '.' + std::to_string(token->subType()) + " '" +
                  (token->string() ? TBF::utf8(*token->string()) : std::string("?")) + "' ";
    }
    return result;
}

std::shared_ptr<TCVarDeclLineExpression> declarationOf(const std::u16string& text) {
    const auto expression = TCExpression::expressionWithString(text);
    const auto tokens = simpleTokens(expression);
    TCVariableDeclarationRecord record;
    EXPECT_TRUE(TCExpressionParser::findVariableDeclarationInTokenizedExpression(*tokens, &record, nullptr));
    const auto part = [&text](TCRange range) {
        return text.substr(static_cast<std::size_t>(range.location), static_cast<std::size_t>(range.length));
    };
    const auto value =
        record.valueRange.length > 0 ? TCExpression::expressionWithString(part(record.valueRange)) : nullptr;
    const auto declaration = std::make_shared<TCLineVariableDeclaration>(
        record.equalsTokenIndex, record.nameRange, part(record.nameRange), value);
    return std::make_shared<TCVarDeclLineExpression>(expression, tokens, declaration);
}

TEST(TCLineExpressionParser, a_declaration_shows_its_name_and_the_tokens_of_its_value) {
    TCLineExpressionParser parser;
    const auto line = declarationOf(u"my rent = 5+(___rel_line(-1))");
    EXPECT_EQ(line->parsedExpression(), nullptr);
    parser.parseLineExpression(*line);
    EXPECT_EQ(shown(line->parsedExpression().get()),
              "4.0 'my' 3.0 ' ' 7.27 'rent ' 8.0 '=' 3.0 ' ' 1.10 '5' 2.12 '+' 10.9 '(___rel_line(-1))' ");
    EXPECT_EQ(shown(line->evaluableParsedExpression().get()),
              "3.0 ' ' 1.10 '5' 2.12 '+' 10.9 '(___rel_line(-1))' ");
    ASSERT_TRUE(line->tokenizedEvaluableExpression());
    EXPECT_EQ(line->tokenizedEvaluableExpression()->length(), 20);
    const auto& reference = line->parsedExpression()->tokens().back();
    EXPECT_EQ(reference->lineReferenceNumber(), -1);
    EXPECT_EQ(reference->highLevelRange(), (TCRange{12, 1}));

    line->reset();
    EXPECT_EQ(line->parsedExpression(), nullptr);
    EXPECT_TRUE(line->tokenizedEvaluableExpression());
}

TEST(TCLineExpressionParser, a_declaration_without_a_value_shows_what_there_is) {
    TCLineExpressionParser parser;
    const auto line = declarationOf(u"x =");
    parser.parseLineExpression(*line);
    EXPECT_EQ(shown(line->parsedExpression().get()), "7.27 'x ' 8.0 '=' ");
    EXPECT_EQ(line->tokenizedEvaluableExpression(), nullptr);
    EXPECT_EQ(line->evaluableParsedExpression()->countOfTokens(), 0u);
}

TEST(TCLineExpressionParser, other_lines_are_parsed_whole_or_not_at_all) {
    TCLineExpressionParser parser;
    const auto expression = TCExpression::expressionWithString(u"Rent: 5");
    TCNormalLineExpression normal(expression, simpleTokens(expression));
    parser.parseLineExpression(normal);
    EXPECT_EQ(shown(normal.parsedExpression().get()), "12.4 'Rent:' 3.0 ' ' 1.10 '5' ");
    EXPECT_EQ(normal.evaluableParsedExpression(), normal.parsedExpression());
    EXPECT_EQ(normal.tokenizedEvaluableExpression(), normal.tokenizedExpression());

    TCPlainTextLineExpression plain(expression, nullptr);
    parser.parseLineExpression(plain);
    EXPECT_EQ(plain.parsedExpression(), nullptr);
    EXPECT_EQ(plain.evaluableExpression(), nullptr);
}

TEST(TCSimpleTokenizedExpression, tokens_lie_end_to_end_in_the_typed_text) {
    // "20% of 5", rewritten to a marked word: mark, word and mark stand for the four typed characters.
    const auto map = std::make_shared<TCExpressionMappings>();
    map->addRangeMapping({2, 4}, {2, 13});
    const auto foundation = TBF::ExpressionTokenizer::create(kTBFLocaleDefault)
                                ->tokenize(TBF::Expression::create(u"20\u0016_percent_of\u0017 5").get());
    const TCSimpleTokenizedExpression tokens(foundation, map, 8);
    std::string ranges;
    int64_t end = 0;
    tokens.enumerateTokensWithBlock([&](const TCSimpleTokenizedExpression::Token& token, bool&) {
        EXPECT_EQ(token.range.location, end);
        end = token.range.end();
        ranges += std::to_string(token.range.length) + ' ';
    });
    EXPECT_EQ(ranges, "2 4 0 0 1 1 ");
    EXPECT_EQ(end, tokens.length());
    EXPECT_EQ(tokens.substitutedLength(), 17);
    EXPECT_EQ(tokens.tokenAtIndex(5).type, TCExpressionTokenTypeNumber);
    EXPECT_EQ(tokens.tokenAtIndex(6).type, TCExpressionTokenTypeNone);
}

} // namespace
