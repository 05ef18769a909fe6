#include "analysis/AnalysisVocabulary.h"

#include <gtest/gtest.h>

namespace TBFTests {

TEST(CheckOperatorArguments, operatorsKeepTheirPlaceBetweenOperands) {
    const AnalysisRow rows[] = {
        {"2 ^ 3", "Num(2) Power(^) Num(3)"},
        {"2 ^ -3", "Num(2) Power(^) Op(-) Num(3)"},
        {"5 ^", "Num(5) Power(^)"},
        {"5 ^ ", "Num(5) Power(^)"},
        {"5 ^ -", "Num(5) Power(^) Op(-)"},
        {"1e5", "Num(1) E10(e) Num(5)"},
        {"1e-5", "Num(1) E10(e) Op(-) Num(5)"},
        {"1e", "Num(1) E10(e)"},
        {"5 km __uc m", "Num(5) Post(km) Conv(__uc) Alone(m)"},
        {"5 __uc", "Num(5) Conv(__uc)"},
        {"5 from 10", "Num(5) WordOp(from) Num(10)"},
        {"5 km per h", "Num(5) Post(km) WordOp(per) Alone(h)"},
        {"5 cans per 2", "Num(5) Word(cans) WordOp(per) Num(2)"},
        {"5 x big 2", "Num(5) WordOp(x) Word(big) Num(2)"},
        {"5% x 3", "Num(5) Percent(%) WordOp(x) Num(3)"},
        {"5 x _not 3", "Num(5) WordOp(x) WordOp(_not) Num(3)"},
        {"_off", "WordOp(_off)"},
    };
    for (const AnalysisRow& row : rows)
        EXPECT_EQ(analyzedThroughStep(11, row.line), row.tokens) << row.line;
}

TEST(CheckOperatorArguments, operatorsWithoutOperandsAreWords) {
    const AnalysisRow rows[] = {
        {"^ 2", "Word(^) Num(2)"},
        {"x 3", "Word(x) Num(3)"},
        {"3 x", "Num(3) Word(x)"},
        {"5 per", "Num(5) Word(per)"},
        {"1 e 5", "Num(1) Word(e) Num(5)"},
        {"1e 5", "Num(1) Word(e) Num(5)"},
        {"kg e 5", "Alone(kg) Word(e) Num(5)"},
        {"5 kg from 10", "Num(5) Post(kg) Word(from) Num(10)"},
        {"5 cans from 10", "Num(5) Word(cans) Word(from) Num(10)"},
        {"5 ^ word", "Num(5) Word(^) Word(word)"},
        {"word ^ 5", "Word(word) Word(^) Num(5)"},
        // The first one became a word, through which the second sees nothing.
        {"x x 3", "Word(x) Word(x) Num(3)"},
        {"2 x x 3", "Num(2) Word(x) WordOp(x) Num(3)"},
        {"(x)", "Br(() Word(x) Br())"},
        // Only the end of the line will do for an operand, not that of a group.
        {"(5 ^) 2", "Br(() Num(5) Word(^) Br()) Num(2)"},
    };
    for (const AnalysisRow& row : rows)
        EXPECT_EQ(analyzedThroughStep(11, row.line), row.tokens) << row.line;
}

TEST(CheckFactorials, anExclamationMarkNeedsAValueOnItsLeft) {
    const AnalysisRow rows[] = {
        {"5!", "Num(5) Fact(!)"},
        {"5 !", "Num(5) Fact(!)"},
        {"5!!", "Num(5) Fact(!) Fact(!)"},
        {"(5)!", "Br(() Num(5) Br()) Fact(!)"},
        {"rate!", "Var(rate) Fact(!)"},
        {"hello!", "Word(hello) Word(!)"},
        {"5 kg!", "Num(5) Post(kg) Word(!)"},
        {"!!", "Word(!) Word(!)"},
    };
    for (const AnalysisRow& row : rows)
        EXPECT_EQ(analyzedThroughStep(12, row.line), row.tokens) << row.line;
}

} // namespace TBFTests
