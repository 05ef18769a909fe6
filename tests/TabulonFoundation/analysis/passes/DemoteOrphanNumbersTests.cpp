#include "analysis/AnalysisVocabulary.h"

#include <gtest/gtest.h>

namespace TBFTests {

TEST(DemoteOrphanNumbers, ofTwoValuesWithOnlyWordsBetweenThemTheLaterCounts) {
    const AnalysisRow rows[] = {
        {"Flat 4 rent 900", "Word(Flat) Word(4) Word(rent) Num(900)"},
        {"5 apples 3", "Word(5) Word(apples) Num(3)"},
        {"1 a 2 b 3", "Word(1) Word(a) Word(2) Word(b) Num(3)"},
        {"rate 2", "Word(rate) Num(2)"},
        {"5 apples rate", "Num(5) Word(apples) Var(rate)"},
        {"1 + 2 apples 3", "Num(1) Op(+) Word(2) Word(apples) Num(3)"},
        {"5 \"and\" 3", "Word(5) Comment(\"and\") Num(3)"},
        {"(4 a 5)", "Br(() Word(4) Word(a) Num(5) Br())"},
    };
    for (const AnalysisRow& row : rows)
        EXPECT_EQ(analyzedThroughStep(7, row.line), row.tokens) << row.line;
}

TEST(DemoteOrphanNumbers, operatorsAndUnitsProtectTheEarlierValue) {
    const AnalysisRow rows[] = {
        {"5 kg 3", "Num(5) Unit(kg) Num(3)"},
        {"5 apples kg 3", "Word(5) Word(apples) Unit(kg) Num(3)"},
        {"2 rate", "Num(2) Var(rate)"},
        {"5 + 15% for 3", "Num(5) Op(+) Num(15) Percent(%) Word(for) Num(3)"},
        {"5 % 3", "Num(5) Percent(%) Num(3)"},
        {"(5) 3", "Br(() Num(5) Br()) Num(3)"},
        {"5 sin 3", "Num(5) Fn(sin) Num(3)"},
        {"4 a; 5", "Num(4) Word(a) Sep(;) Num(5)"},
        {"4 a = 5", "Num(4) Word(a) Eq(=) Num(5)"},
        {"5 _off words 3", "Num(5) WordOp(_off) Word(words) Num(3)"},
    };
    for (const AnalysisRow& row : rows)
        EXPECT_EQ(analyzedThroughStep(7, row.line), row.tokens) << row.line;
}

} // namespace TBFTests
