#include "analysis/AnalysisVocabulary.h"

#include <gtest/gtest.h>

namespace TBFTests {

TEST(JoinSpacedNumbers, numbersWithNothingButWhitespaceBetweenThemAreOne) {
    const AnalysisRow rows[] = {
        {"1 000 000 kg", "Num(1 000 000) Word(kg)"},
        {"1  000", "Num(1  000)"},
        {"12 5", "Num(12 5)"},
        {"12 5 ", "Num(12 5)"},
        {"1 000 + 2 000", "Num(1 000) Op(+) Num(2 000)"},
        {"1\x16 2\x17", "Num(1\x16 2) Mark(\x17)"},
        {"4 rent 900", "Num(4) Word(rent) Num(900)"},
        // A base prefix may open a number and never continue one; what ends a number opens none.
        {"0x10 20", "Hex(0x10 20)"},
        {"5 0x10 20", "Num(5) Hex(0x10) Num(20)"},
    };
    for (const AnalysisRow& row : rows)
        EXPECT_EQ(analyzedThroughStep(2, row.line), row.tokens) << row.line;
}

} // namespace TBFTests
