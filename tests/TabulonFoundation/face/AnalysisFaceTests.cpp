#include "analysis/EPExpressionTree.h"
#include "analysis/EPExpressionTreeNode.h"
#include "analysis/ExpressionToken.h"
#include "face/analysis/TBFBasicToken.h"
#include "face/analysis/TBFEPExpressionTree.h"
#include "face/analysis/TBFExpressionScanner.h"
#include "face/analysis/TBFExpressionToken.h"
#include "face/analysis/TBFExpressionTokenizer.h"
#include "face/analysis/TBFRagelMatcher.h"

#include <gtest/gtest.h>
#include <vector>

namespace {

TEST(TBFBasicToken, nullIsHarmless) {
    EXPECT_EQ(TBFBasicTokenGetType(nullptr), TBFBasicTokenTypeNone);
    EXPECT_EQ(TBFBasicTokenGetFirstCharacter(nullptr), TBFCharNULL);
    EXPECT_EQ(TBFBasicTokenGetStringReference(nullptr), nullptr);
    EXPECT_FALSE(TBFBasicTokenIsFirstToken(nullptr));
    TBFBasicTokenRelease(TBFBasicTokenRetain(nullptr));
    EXPECT_TRUE(TBFExpressionScannerScanExpression(nullptr, nullptr).empty());
}

TEST(TBFExpressionTreeNode, nullIsHarmless) {
    EXPECT_EQ(TBFExpressionTreeNodeGetTokenType(nullptr), TBFTokenTypeNone);
    EXPECT_EQ(TBFExpressionTreeNodeGetRange(nullptr), TBFRangeZero);
    EXPECT_TRUE(TBFExpressionTreeNodeGetChildren(nullptr).empty());
    TBFExpressionTreeNodeSetTokenType(nullptr, TBFTokenTypeWord);
    const auto tree = TBF::adopt(TBFEPExpressionTreeCreate());
    EXPECT_EQ(TBFExpressionTreeNodeGetTokenType(TBFEPExpressionTreeGetRootNode(tree.get())),
              TBFTokenTypeGroup);
}

TEST(TBFExpressionToken, nullIsHarmless) {
    EXPECT_EQ(TBFExpressionTokenCreateWithBasicToken(nullptr), nullptr);
    EXPECT_EQ(TBFExpressionTokenCreateWithBasicTokenVector({}), nullptr);
    EXPECT_TRUE(TBFExpressionTokenGetBasicTokens(nullptr).empty());
    EXPECT_EQ(TBFExpressionTokenGetActualSubType(nullptr), TBFTokenSubTypeNone);
    EXPECT_EQ(TBFExpressionTokenGetDecimalStringReference(nullptr), nullptr);
    TBFExpressionTokenSetUnitFraction(nullptr, nullptr);
    EXPECT_EQ(TBFExpressionTokenizerTokenize(nullptr, nullptr), nullptr);
}

TEST(TBFRagelMatcher, tellsWhereTheMatchLies) {
    using TBF::RagelToken;
    const RagelToken number = {TBFTokenTypeNumber, TBFTokenSubTypeDecimalNumber};
    const std::vector<RagelToken> tokens = {{TBFTokenTypeWord, TBFTokenSubTypeNone},
                                            {TBFTokenTypeOperator, TBFTokenSubTypeUnitConversion},
                                            number,
                                            {TBFTokenTypeOperator, TBFTokenSubTypeDivide},
                                            number};
    const auto matcher = TBF::adopt(TBFStandardRagelMatchersCreateHighPriorityOperators());
    const RagelToken* begin = nullptr;
    const RagelToken* end = nullptr;
    const RagelToken* op = nullptr;
    int32_t kind = 0;
    const RagelToken* const first = tokens.data();
    ASSERT_TRUE(
        TBFRagelMatcherFindNextMatch(matcher.get(), first, first + tokens.size(), &begin, &end, &kind, &op));
    EXPECT_EQ(begin - first, 1);
    EXPECT_EQ(end - first, 5);
    EXPECT_EQ(op - first, 1);
    EXPECT_EQ(kind, 2);
    EXPECT_FALSE(TBFRagelMatcherFindNextMatch(matcher.get(), begin + 1, end, &begin, &end, &kind, &op));
}

} // namespace
