#include "analysis/AnalysisVocabulary.h"

#include <gtest/gtest.h>

namespace TBFTests {

TEST(RecognizeWords, theLongestNameWins) {
    const AnalysisRow rows[] = {
        {"5 km", "Num(5) Unit(km)"},
        {"m2", "Unit(m2)"},
        {"km2", "Var(km2)"},
        {"h2", "Unit(h) Num(2)"},
        {"5 m2", "Num(5) Unit(m2)"},
        {"square meter", "Unit(square meter)"},
        {"square  meter", "Unit(square  meter)"},
        {"square", "Word(square)"},
        {"net rate of", "Word(net) Var(rate) Word(of)"},
        {"a b square meter", "Word(a) Word(b) Unit(square meter)"},
        {"KM", "Unit(KM)"},
        {"sin 5", "Fn(sin) Num(5)"},
        {"5 x 3", "Num(5) WordOp(x) Num(3)"},
        {"X", "Word(X)"},
        // A number behind a gap is no part of a name.
        {"m 2", "Unit(m) Num(2)"},
        {"(m2 (square meter))", "Br(() Unit(m2) Br(() Unit(square meter) Br()) Br())"},
        // A name is at most three words, and may cross several gaps.
        {"square\x16 meter", "Unit(square\x16 meter)"},
    };
    for (const AnalysisRow& row : rows)
        EXPECT_EQ(analyzedThroughStep(6, row.line), row.tokens) << row.line;
}

TEST(RecognizeWords, aFunctionThatIsAUnitTooTakesAGroup) {
    const AnalysisRow rows[] = {
        {"min(3;4)", "Fn(min) Br(() Num(3) Sep(;) Num(4) Br())"},
        {"min (3)", "Fn(min) Br(() Num(3) Br())"},
        {"5 min", "Num(5) Unit(min)"},
        {"kg(3)", "Unit(kg) Br(() Num(3) Br())"},
        // In a full run of five nodes the last word counts as what follows.
        {"square meter min(3)", "Unit(square meter) Fn(min) Br(() Num(3) Br())"},
        {"a b min(3)", "Word(a) Word(b) Fn(min) Br(() Num(3) Br())"},
        {"min a b(3)", "Unit(min) Word(a) Word(b) Br(() Num(3) Br())"},
        {"min a(3)", "Fn(min) Word(a) Br(() Num(3) Br())"},
    };
    for (const AnalysisRow& row : rows)
        EXPECT_EQ(analyzedThroughStep(6, row.line), row.tokens) << row.line;
}

TEST(RecognizeWords, aNameBeingDeclaredStaysText) {
    const AnalysisRow rows[] = {
        {"rate = 900", "Word(rate) Eq(=) Num(900)"},
        {"km min = rate km", "Word(km) Word(min) Eq(=) Var(rate) Unit(km)"},
        {"(rate = 5", "Br(() Var(rate) Eq(=) Num(5)"},
        {"5 = rate = km", "Num(5) Eq(=) Var(rate) Eq(=) Unit(km)"},
    };
    for (const AnalysisRow& row : rows)
        EXPECT_EQ(analyzedThroughStep(6, row.line), row.tokens) << row.line;
}

TEST(RecognizeWords, theSecondTimeFindsJoinedWordsButNoWordOperators) {
    const AnalysisRow rows[] = {
        {"3-way x", "Word(3-way) WordOp(x)"},
        {"2nd", "Word(2nd)"},
        {"x-x", "WordOp(x) Op(-) WordOp(x)"},
    };
    for (const AnalysisRow& row : rows)
        EXPECT_EQ(analyzedThroughStep(9, row.line), row.tokens) << row.line;
}

} // namespace TBFTests
