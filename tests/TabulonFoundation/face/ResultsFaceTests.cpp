#include "face/results/TBFResult.h"
#include "results/Result.h"

#include <gtest/gtest.h>

namespace {

TEST(TBFResult, ANullResultHasTheMaskAsItsCode) {
    EXPECT_EQ(TBFResultGetErrorCode(nullptr), 0xFF0000FFu);
    EXPECT_EQ(TBFResultGetErrorCode(TBF::Result::create().get()), 0u);
    EXPECT_EQ(TBFResultGetMAPM(TBF::Result::create("").get()), nullptr);
    EXPECT_EQ(TBFResultGetExponent(TBF::Result::create("1234.5").get()), 3);
}

} // namespace
