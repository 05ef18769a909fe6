#include "analysis/AnalysisVocabulary.h"

#include <gtest/gtest.h>

namespace TBFTests {

TEST(RecognizeImportantWords, theLanguagesOwnWordsBecomeOperators) {
    const AnalysisRow rows[] = {
        {"a % b;c", "Word(a) Percent(%) Word(b) Sep(;) Word(c)"},
        {"5! ^ 2", "Num(5) Fact(!) Power(^) Num(2)"},
        {"1e5", "Num(1) E10(e) Num(5)"},
        {"5 __uc km", "Num(5) Conv(__uc) Word(km)"},
        {"5 __mod 3", "Num(5) Mod(__mod) Num(3)"},
        {"(5 % (3!))", "Br(() Num(5) Percent(%) Br(() Num(3) Fact(!) Br()) Br())"},
        // Case counts, and so does the whole word.
        {"1E5 be", "Num(1) Word(E) Num(5) Word(be)"},
    };
    for (const AnalysisRow& row : rows)
        EXPECT_EQ(analyzedThroughStep(4, row.line), row.tokens) << row.line;
}

} // namespace TBFTests
