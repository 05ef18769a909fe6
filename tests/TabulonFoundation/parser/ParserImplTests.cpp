#include "parser/TokenNotation.h"

#include "parser/OperatorTables.h"
#include "parser/Parser.h"
#include "parser/ParserImpl.h"
#include "runtime/TBFLog.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string_view>
#include <vector>

using namespace TBF;
using namespace TBFTests;

namespace {

struct Row {
    int line;
    const char* notation;
    const char* tree;
};

void expectTrees(std::initializer_list<Row> rows) {
    for (const Row& row : rows) {
        EXPECT_EQ(printedTree(row.notation), row.tree) << "row " << row.line << ": " << row.notation;
    }
}

// Its class is none, which is no fault: nothing is logged.
TEST(OperatorTables, modulo_between_brackets_is_the_weakest) {
    TBFErrorLogSetEnabled(1);
    testing::internal::CaptureStderr();
    const TBFOperatorPrecedence precedence = TBF::operatorPrecedence(TBFOperatorTypeModulo);
    const TBF::OperatorStrength strength = TBF::TBFOperatorPrecedenceGet_new(precedence);
    TBFErrorLogSetEnabled(0);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(precedence, TBFOperatorPrecedenceNone);
    EXPECT_EQ(strength.strength, 0);
    EXPECT_FALSE(strength.rightAssociative);
}

TEST(ParserImpl, stronger_operators_bind_first) {
    expectTrees({
        {__LINE__, "2 + 3 * 4", "(2+(3*4))"},
        {__LINE__, "2 * 3 + 4", "((2*3)+4)"},
        {__LINE__, "2 - 3 - 4", "((2-3)-4)"},
        {__LINE__, "2 ^ 3 ^ 2", "(2^(3^2))"},
        {__LINE__, "- 2 ^ 2", "(`u-`(2^2))"},
        {__LINE__, "2 ^ - 1", "(2^(`u-`1))"},
        {__LINE__, "1 e 2 ^ 2", "((1`e10`2)^2)"},
        {__LINE__, "1 e - 2", "(1`e10`(`u-`2))"},
        {__LINE__, "2 ^ 3 !", "(2^(`fact`3))"},
        {__LINE__, "2 + 15 %", "(2+(%15))"},
        {__LINE__, "6 / 2 * 3", "((6/2)*3)"},
        {__LINE__, "6 / 2 *! 3", "(6/(2*3))"},
        {__LINE__, "2 + 3 to 4", "((2+3)`uc`4)"},
        {__LINE__, "2 + 3 to! 4", "(2+(3`uc`4))"},
        {__LINE__, "7 mod 2 + 1", "((7`mod`2)+1)"},
        {__LINE__, "not 2 * 3", "(`not`(2*3))"},
        {__LINE__, "2 * 3 pct", "(`pct`(2*3))"},
        {__LINE__, "not not 5",
         "(`not`5)"}, // a prefix that doesn't bind to the right takes what stands there
    });
}

TEST(ParserImpl, a_sign_behind_no_operand_is_unary) {
    expectTrees({
        {__LINE__, "- 5", "(`u-`5)"},
        {__LINE__, "2 - - 5", "(2-(`u-`5))"},
        {__LINE__, "2 - + 5", "(2-(`u+`5))"},
        {__LINE__, "- - 5", "(`u-`(`u-`5))"},
        {__LINE__, "5 ! - 2", "((`fact`5)-2)"},
        {__LINE__, "( - 5 )", "(`u-`5)"},
        {__LINE__, "sin - 5", "sin([(`u-`5)])"},
    });
}

TEST(ParserImpl, operands_side_by_side_get_an_operator) {
    expectTrees({
        {__LINE__, "5 5", "(5*5)"},
        {__LINE__, "2 ( 3 )", "(2*3)"},
        {__LINE__, "2 sin ( 4 )", "(2*sin([4]))"},
        {__LINE__, "1 / 2 x", "(1/(2*{variable:x}))"},
        {__LINE__, "1 / 2 sin ( 3 )", "((1/2)*sin([3]))"},
        {__LINE__, "1 / ( 1 + 1 ) x", "((1/(1+1))*{variable:x})"},
        {__LINE__, "sin 2 x", "sin([(2*{variable:x})])"},
        {__LINE__, "5 apples x", "(5*{variable:x})"},
        {__LINE__, "3 ! 2", "((`fact`3)*2)"},
        {__LINE__, "15 % 2", "((%15)*2)"},
    });
}

TEST(ParserImpl, units_multiply_and_neighbouring_amounts_add) {
    expectTrees({
        {__LINE__, "5 ft", "(5*1{unit:ft})"},
        {__LINE__, "3 ft 2 in", "((3*1{unit:ft})+(2*1{unit:in}))"},
        {__LINE__, "3 ft 2 in * 4", "(((3*1{unit:ft})+(2*1{unit:in}))*4)"},
        {__LINE__, "- 3 ft", "((`u-`3)*1{unit:ft})"},
        {__LINE__, "( 3 ) ft 2", "((3*1{unit:ft})+2)"},
        {__LINE__, "( 1 + 2 ) ft 2 in", "(((1+2)*1{unit:ft})*(2*1{unit:in}))"},
        {__LINE__, "$ 5 + 1", "(5{unit:dollar}+1)"},
        {__LINE__, "$ 5 ft", "(5*1{unit:ft})"},
        {__LINE__, "5 ft / @s", "((5*1{unit:ft})/1{unit:s})"},
        {__LINE__, "1 / 5 ft", "(1/(5*1{unit:ft}))"},
        {__LINE__, "10 / 5 ft /! @s", "(10/((5*1{unit:ft})/1{unit:s}))"},
        {__LINE__, "5 m? + 2 ft", "((5*1{unit:metre})+(2*1{unit:ft}))"},
        {__LINE__, "5 m?", "(5*1{unit:minute})"},
    });
}

TEST(ParserImpl, functions_take_a_bracket_at_once_and_an_operand_by_strength) {
    expectTrees({
        {__LINE__, "sin ( 3 ) ^ 2", "(sin([3])^2)"},
        {__LINE__, "sin 3 ^ 2", "sin([(3^2)])"},
        {__LINE__, "sin 3 + 2", "(sin([3])+2)"},
        {__LINE__, "sin sin 3", "sin([sin([3])])"},
        {__LINE__, "now ( )", "now()"},
        {__LINE__, "now ( ) + 1", "(now()+1)"},
        {__LINE__, "sum ( 1 ; 2 )", "sum([1;2])"},
        {__LINE__, "sum ( 1 ; 2 ) * 3", "(sum([1;2])*3)"},
        {__LINE__, "sum ( 1 + 1 ; sin ( 2 ) ; ( 3 ) )", "sum([(1+1);sin([2]);3])"},
        {__LINE__, "sum ( ( 1 ; 2 ) )", "sum([1;2])"},
        {__LINE__, "sum ( 1 ) + 4", "(`u+`4)"}, // too few arguments: no operand
        {__LINE__, "sin ( ) + 4", "(`u+`4)"},
        {__LINE__, "4 / sin ( )", "4"},
    });
}

TEST(ParserImpl, brackets_need_not_close) {
    expectTrees({
        {__LINE__, "( 2 + 3", "(2+3)"},
        {__LINE__, "( ( 2 + 3 ) * 4", "((2+3)*4)"},
        {__LINE__, "sum ( 1 ; 2", "sum([1;2])"},
        {__LINE__, "2 + 3 ) * 4", "(2+3)"}, // nothing is read behind a stray bracket
        {__LINE__, "( ( ( 5 ) ) )", "5"},
        {__LINE__, "(", ""},
        {__LINE__, "( ( (", ""},
        {__LINE__, "( )", ""},
        {__LINE__, ") 5", ""},
        {__LINE__, "2 ( )", "2"},
        {__LINE__, "( ) 2", "2"},
    });
}

TEST(ParserImpl, separators_make_lists_inside_of_brackets) {
    expectTrees({
        {__LINE__, "( 1 ; 2 ; 3 )", "[1;2;3]"},
        {__LINE__, "( 1 ; )", "[1]"},
        {__LINE__, "( ; 1 )", "[1]"},
        {__LINE__, "1 ; 2", "(1*2)"},
        {__LINE__, "( 1 ; 2 ) + 3", "([1;2]+3)"},
        {__LINE__, "( ( 1 ; 2 ) ; 3 )", "[[1;2];3]"},
        {__LINE__, "( 1 ; ; 3 )", "([1]*3)"}, // an empty element ends the list
    });
}

TEST(ParserImpl, free_text_gives_the_best_tree_it_can) {
    expectTrees({
        {__LINE__, "", ""},
        {__LINE__, "rent", ""},
        {__LINE__, "rent 5 apples", "5"},
        {__LINE__, "rent + 5", "(`u+`5)"},
        {__LINE__, "rent - 5", "(`u-`5)"},
        {__LINE__, "rent * 5", "5"},
        {__LINE__, "rent / 5", "(1/5)"},
        {__LINE__, "rent ^ 5", ""},
        {__LINE__, "rent mod 5", ""},
        {__LINE__, "rent !", ""},
        {__LINE__, "5 +", "5"},
        {__LINE__, "5 + rent", "5"},
        {__LINE__, "5 + rent - 3", "(5-3)"},
        {__LINE__, "5 + sin", "5"},
        {__LINE__, "sin", ""},
        {__LINE__, "* 5", "5"},
        {__LINE__, "+", ""},
        {__LINE__, "1 = 2", "(1*2)"},
        {__LINE__, "1 _ + // 2", "(1+2)"},
        {__LINE__, "5 + * 3", "error"},
        {__LINE__, "2 * ( 5 + * 3 ) + 1", "error"},
        {__LINE__, "( 1 ; 5 * / 3 )", "error"},
    });
}

TEST(ParserImpl, spellings_of_one_grouping_give_one_tree) {
    const std::initializer_list<std::initializer_list<const char*>> groups = {
        {"2 + 3 * 4", "2 + ( 3 * 4 )", "( 2 + 3 * 4 )", "2 + ( 3 * 4", "rent 2 _ + 3 * 4 apples"},
        {"2 ( 3 )", "2 * 3", "2 3", "( 2 ) ( 3 )", "2 ; 3"},
        {"1 / 2 x", "1 / ( 2 * x )", "1 / ( 2 x )"},
        {"sin 2 ^ 2", "sin ( 2 ^ 2 )", "sin ( ( 2 ^ 2 ) )"},
        {"sum ( 1 ; 2 )", "sum ( ( 1 ; 2 ) )", "sum ( 1 ; 2", "sum ( ( 1 ) ; ( 2 ) )"},
        {"3 ft 2 in", "3 ft + 2 in", "3 ft and 2 in", "( 3 ft ) + ( 2 in )"},
        {"- 2 ^ 2", "- ( 2 ^ 2 )"},
        {"1 e 2 ^ 2", "( 1 e 2 ) ^ 2"},
    };
    for (const auto& spellings : groups) {
        const std::string expected = printedTree(*spellings.begin());
        for (const char* const spelling : spellings)
            EXPECT_EQ(printedTree(spelling), expected) << spelling;
    }
}

// Every way to nest, far deeper than the stack would bear.
TEST(ParserImpl, nesting_is_not_bound_by_the_stack) {
    constexpr int depth = 100'000;
    // The same tokens over and over: the parser only reads them.
    const auto nested = [](std::string_view repeatedPiece, std::string_view inside,
                           std::string_view closingPiece = "") {
        ExpressionTokenList tokens;
        const auto append = [&tokens](const ExpressionTokenList& more) {
            tokens.insert(tokens.end(), more.begin(), more.end());
        };
        const auto opening = tokensInNotation(repeatedPiece);
        const auto closing = tokensInNotation(closingPiece);
        for (int i = 0; i < depth; ++i)
            append(opening);
        append(tokensInNotation(inside));
        for (int i = 0; i < depth; ++i)
            append(closing);
        return tokens;
    };
    EXPECT_GT(printedTree(nested("-", "5")).size(), static_cast<std::size_t>(depth));
    EXPECT_EQ(printedTree(nested("(", "5")), "5");
    EXPECT_EQ(printedTree(nested("(", "5", ")")), "5");
    EXPECT_EQ(printedTree(nested("(", "")), "");
    EXPECT_EQ(printedTree(nested("(", "5 + * 3", ")")), "error");
    for (const char* const piece : {"1 + (", "-", "- (", "sin", "sin (", "( 1 ;", "$", "2 ^"}) {
        const auto tokens = nested(piece, "5");
        const ParseResult result = parseExpressionTokens(tokens);
        ASSERT_TRUE(result.tree) << piece;
        EXPECT_GT(result.tree->nodes().size(), static_cast<std::size_t>(depth)) << piece;
    }
}

TEST(Parser, the_error_is_reported_for_each_parse) {
    const auto good = tokensInNotation("1 + 2");
    const auto bad = tokensInNotation("1 + * 2");
    const auto parser = TBF::Parser::create();
    EXPECT_EQ(parser->parse(bad), nullptr);
    EXPECT_EQ(parser->error(), TBFParserErrorMisplacedOperator);
    EXPECT_NE(parser->parse(good), nullptr);
    EXPECT_EQ(parser->error(), TBFParserErrorNone);
    EXPECT_EQ(parser->parse({}), nullptr);
    EXPECT_EQ(parser->error(), TBFParserErrorNone);
}

} // namespace
