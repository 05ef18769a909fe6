#include "analysis/AnalysisVocabulary.h"

#include <gtest/gtest.h>

namespace TBFTests {

TEST(PromoteHighPriorityOperators, ratesAndTheirConversionsBindTighter) {
    const AnalysisRow rows[] = {
        {"100 / 5 km/h", "Num(100) Op(/) Num(5) Post(km) High(/) Alone(h)"},
        {"5 kg * m", "Num(5) Post(kg) High(*) Alone(m)"},
        {"(5 km/h) * 2", "Br(() Num(5) Post(km) High(/) Alone(h) Br()) Op(*) Num(2)"},
        {"5 km/h __uc m/h", "Num(5) Post(km) High(/) Alone(h) Conv(__uc) Alone(m) High(/) Alone(h)"},
        {"5 km __uc 3 * 2", "Num(5) Post(km) HighConv(__uc) Num(3) Op(*) Num(2)"},
        {"5 + 3 / 2", "Num(5) Op(+) Num(3) Op(/) Num(2)"},
        {"5 km / 3 h", "Num(5) Post(km) Op(/) Num(3) Post(h)"},
    };
    for (const AnalysisRow& row : rows)
        EXPECT_EQ(analyzedThroughStep(13, row.line), row.tokens) << row.line;
}

} // namespace TBFTests
