#include "analysis/AnalysisVocabulary.h"

#include <gtest/gtest.h>

namespace TBFTests {

TEST(JoinCompoundWords, whatTouchesAWordBelongsToIt) {
    const AnalysisRow rows[] = {
        {"2nd", "Word(2nd)"},         {"abc123", "Word(abc123)"},
        {"5abc", "Word(5abc)"},       {"3-way", "Word(3-way)"},
        {"3-km", "Word(3-km)"},       {"well-known", "Word(well-known)"},
        {"abc-km", "Word(abc-km)"},   {"a-b-c 7", "Word(a-b-c) Num(7)"},
        {"foo@bar", "Word(foo@bar)"}, {"(2nd) (3-way)", "Br(() Word(2nd) Br()) Br(() Word(3-way) Br())"},
    };
    for (const AnalysisRow& row : rows)
        EXPECT_EQ(analyzedThroughStep(8, row.line), row.tokens) << row.line;
}

TEST(JoinCompoundWords, calculationsStayCalculations) {
    const AnalysisRow rows[] = {
        {"3-5", "Num(3) Op(-) Num(5)"},
        {"3-$", "Num(3) Op(-) Unit($)"},
        {"kg-m", "Unit(kg) Op(-) Unit(m)"},
        {"5kg", "Num(5) Unit(kg)"},
        {"5 abc", "Num(5) Word(abc)"},
        {"abc-5", "Word(abc) Op(-) Num(5)"},
        {"abc - def", "Word(abc) Op(-) Word(def)"},
        {"3-", "Num(3) Op(-)"},
        {"abc+def", "Word(abc) Op(+) Word(def)"},
    };
    for (const AnalysisRow& row : rows)
        EXPECT_EQ(analyzedThroughStep(8, row.line), row.tokens) << row.line;
}

} // namespace TBFTests
