#include "expressions/TCExpressionTokenTypes.h"

#include <gtest/gtest.h>

namespace {

TEST(TCExpressionTokenTypes, typesWithACounterpartComeBack) {
    for (int32_t value = 1; value <= 18; ++value) {
        const auto type = static_cast<TCExpressionTokenType>(value);
        const token_type foundation = TCExpressionTokenTypeToTBFTokenType(type);
        if (foundation == TBFTokenTypeNone) continue;
        EXPECT_EQ(TCExpressionTokenTypeFromTBFTokenType(foundation), type) << value;
    }
}

TEST(TCExpressionTokenTypes, whatHasNoCounterpartIsUnknown) {
    for (const int32_t value : {-1, 0, 4, 7, 16, 17, 18, 21, 24, 1000}) {
        EXPECT_EQ(TCExpressionTokenTypeFromTBFTokenType(static_cast<token_type>(value)),
                  TCExpressionTokenTypeUnknown)
            << value;
    }
    EXPECT_EQ(TCExpressionTokenTypeToTBFTokenType(static_cast<TCExpressionTokenType>(19)), TBFTokenTypeNone);
    EXPECT_EQ(TCExpressionTokenSubTypeFromTBFTokenSubType(TBFTokenSubTypeWordBreaker),
              TCExpressionTokenSubTypeNone);
}

TEST(TCExpressionTokenTypes, promotedOperatorsReadAsPlainOnes) {
    EXPECT_EQ(TCExpressionTokenSubTypeFromTBFTokenSubType(TBFTokenSubTypeHighPriorityDivide),
              TCExpressionTokenSubTypeDivide);
    EXPECT_EQ(TCExpressionTokenSubTypeFromTBFTokenSubType(TBFTokenSubTypeHighPriorityMultiply),
              TCExpressionTokenSubTypeMultiply);
    EXPECT_EQ(TCExpressionTokenSubTypeFromTBFTokenSubType(TBFTokenSubTypeHighPriorityUnitConversion),
              TCExpressionTokenSubTypeNone);
}

} // namespace
