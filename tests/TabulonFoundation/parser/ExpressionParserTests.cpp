#include "parser/ExpressionParser.h"

#include "analysis/Expression.h"
#include "analysis/Token.h"
#include "names/functions/FunctionList.h"
#include "names/variables/VariableList.h"
#include "names/wordoperators/WordOperatorList.h"
#include "parser/ExpressionNodeTreePrinter.h"
#include "parser/ParsedExpression.h"
#include "units/UnitCollection.h"

#include <gtest/gtest.h>

using namespace TBF;

namespace {

Ref<ParsedExpression> parsed(std::u16string_view text) {
    const auto functions = FunctionList::create();
    functions->add(Function::create(String::create(u"sin"), {}, 1));
    functions->add(Function::create(String::create(u"sum"), {}, 2));
    const auto variables = VariableList::create();
    const auto variable = Variable::create();
    variable->setName(String::create(u"y"));
    variables->add(variable);
    return ExpressionParser::create(functions, variables, nullptr, nullptr)
        ->parse(Expression::create(text).get());
}

std::string tree(std::u16string_view text) {
    const auto result = parsed(text);
    return result->tree() ? ExpressionNodeTreePrinter::create(retain(result->tree()->root()))->string() : "";
}

TEST(ExpressionParser, goes_from_text_to_tree) {
    struct Row {
        int line;
        std::u16string_view text;
        const char* tree;
    };
    constexpr Row rows[] = {
        {__LINE__, u"2 + 3 * 4", "(2+(3*4))"},
        {__LINE__, u"Rent: 1,200 / 12", "(1200/12)"},
        {__LINE__, u"2^-1", "(2^(`u-`1))"},
        {__LINE__, u"1e2^2", "((1`e10`2)^2)"},
        {__LINE__, u"3! 2", "((`fact`3)*2)"},
        {__LINE__, u"(2+3", "(2+3)"},
        {__LINE__, u"5 \"apples\" + 3 // total", "(5+3)"},
        {__LINE__, u"sum(1;2) * sin(3)^2", "(sum([1;2])*(sin([3])^2))"},
        {__LINE__, u"1/2y", "(1/(2*{variable:y}))"},
        {__LINE__, u"hello", ""},
        {__LINE__, u"", ""},
        {__LINE__, u"(", ""},
    };
    for (const Row& row : rows)
        EXPECT_EQ(tree(row.text), row.tree) << "row " << row.line;
}

// Type and subtype of each token.
std::string shownTokens(std::u16string_view text) {
    std::string shown;
    const auto result = parsed(text);
    for (const Ref<Token>& token : result->tokens()) {
        if (token->type() == TBFTokenTypeWhitespace) continue;
        shown += token->string()->utf8() + ' ' + std::to_string(token->type()) + '.' +
                 std::to_string(token->subType()) + ' ';
    }
    return shown;
}

TEST(ExpressionParser, tokens_show_what_the_parser_made_of_them) {
    EXPECT_EQ(shownTokens(u"2 - -5"), "2 3.8 - 1.11 - 1.18 5 3.8 ");
    EXPECT_EQ(shownTokens(u"total +5 *"), "total 8.0 + 1.17 5 3.8 * 8.0 ");
    EXPECT_EQ(shownTokens(u"(1) = 2"), "( 14.1 1 3.8 ) 14.2 = 8.0 2 3.8 ");
}

TEST(ExpressionParser, a_parsed_expression_outlives_its_source) {
    const auto result = parsed(u"1 + y");
    ASSERT_TRUE(result->tree());
    EXPECT_EQ(result->tokens().size(), 5u);
    EXPECT_EQ(ExpressionParser::create(nullptr, nullptr, nullptr, nullptr)->parse(nullptr), nullptr);
}

} // namespace
