#include "face/parser/TBFExpressionNode.h"
#include "face/parser/TBFParser.h"
#include "numbers/Number.h"
#include "parser/ExpressionNode.h"
#include "parser/ExpressionTree.h"
#include "units/AmbiguousUnit.h"
#include "units/UnitContainer.h"

#include <gtest/gtest.h>

namespace {

using namespace TBF;

TEST(TBFExpressionNode, NullIsHarmlessAndOperandsAreTakenOver) {
    const auto operand = [] { return TBFOperandExpressionNode::create(Number::one(), nullptr, nullptr); };
    EXPECT_EQ(TBFExpressionNodeGetType(nullptr), TBFExpressionNodeTypeNone);
    EXPECT_EQ(TBFExpressionNodeGetCountOfChildren(nullptr), 0);
    EXPECT_EQ(TBFExpressionNodeRetrieveEvaluatedNode(nullptr).value, nullptr);
    TBFExpressionNodeSetOperands_TransferOwnership(nullptr, operand().leak(), operand().leak());
}

TEST(TBFParser, NullIsHarmlessAndNoTokensAreNoError) {
    EXPECT_EQ(TBFParserCreateExpressionTreeByParsingExpressionTokens(nullptr, {}), nullptr);
    int32_t error = 7;
    EXPECT_EQ(TBFParserImplParse({}, &error), nullptr);
    EXPECT_EQ(error, TBFParserErrorNone);
}

} // namespace
