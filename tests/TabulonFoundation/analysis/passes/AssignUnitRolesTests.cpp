#include "analysis/AnalysisVocabulary.h"

#include <gtest/gtest.h>

namespace TBFTests {

TEST(AssignUnitRoles, aUnitStandsBeforeBehindOrAlone) {
    const AnalysisRow rows[] = {
        {"5 kg", "Num(5) Post(kg)"},
        {"$5", "Pre($) Num(5)"},
        {"$ (5)", "Pre($) Br(() Num(5) Br())"},
        {"5$", "Num(5) Post($)"},
        {"kg", "Alone(kg)"},
        {"(kg)", "Br(() Alone(kg) Br())"},
        {"5 km/h", "Num(5) Post(km) Op(/) Alone(h)"},
        {"3 km 2 m", "Num(3) Post(km) Num(2) Post(m)"},
        {"5 km __uc m", "Num(5) Post(km) Conv(__uc) Alone(m)"},
        {"5 + kg", "Num(5) Op(+) Alone(kg)"},
        {"kg + 5", "Alone(kg) Op(+) Num(5)"},
        {"word kg", "Word(word) Alone(kg)"},
        {"km m", "Alone(km) Post(m)"},
        {"km m + 1", "Alone(km) Post(m) Op(+) Num(1)"},
        {"5! kg", "Num(5) Fact(!) Post(kg)"},
        {"5 M", "Num(5) Post(M)"},
    };
    for (const AnalysisRow& row : rows)
        EXPECT_EQ(analyzedThroughStep(10, row.line), row.tokens) << row.line;
}

TEST(AssignUnitRoles, aUnitThatFitsNowhereIsAWord) {
    const AnalysisRow rows[] = {
        {"kg 5", "Word(kg) Num(5)"},
        {"5 apples kg", "Num(5) Word(apples) Word(kg)"},
        {"a kg b", "Word(a) Word(kg) Word(b)"},
        {"this min is", "Word(this) Word(min) Word(is)"},
        {"word km m", "Word(word) Word(km) Post(m)"},
        {"km m 5", "Word(km) Post(m) Num(5)"},
    };
    for (const AnalysisRow& row : rows)
        EXPECT_EQ(analyzedThroughStep(10, row.line), row.tokens) << row.line;
}

} // namespace TBFTests
