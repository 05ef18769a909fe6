#include "analysis/EPExpressionTree.h"

#include "analysis/AnalysisVocabulary.h"
#include "analysis/BasicToken.h"

#include <gtest/gtest.h>

namespace TBFTests {

namespace {

using TBF::EPExpressionTreeNode;
using TBF::Ref;

Ref<EPExpressionTreeNode> joined(std::string_view line) {
    Ref<EPExpressionTreeNode> node = EPExpressionTreeNode::create();
    for (const auto& token : tokensOf(line))
        node->addChild(EPExpressionTreeNode::createWithToken(*token));
    return node;
}

} // namespace

TEST(EPExpressionTreeNode, aJoinedNodeFindsItsTextBelow) {
    const auto node = joined("square meter 2");
    const auto top = EPExpressionTreeNode::createJoining({node->children()[2], node->children()[4]});
    EXPECT_FALSE(top->ownsBasicTokens());
    EXPECT_EQ(top->basicTokens().size(), 2u);
    EXPECT_EQ(top->range(), (TBFRange{7, 7}));
    EXPECT_EQ(top->text(), u"meter 2");
    EXPECT_EQ(top->firstCharacter(), u'm');
    EXPECT_EQ(EPExpressionTreeNode::create()->range(), TBFRangeZero);
    EXPECT_EQ(EPExpressionTreeNode::create()->string(), nullptr);
}

TEST(EPExpressionTreeNode, typesAreCopiedOnlyToNodesWithoutTokens) {
    const auto leaves = joined("5 km");
    const auto& number = leaves->children()[0];
    const auto& word = leaves->children()[2];
    word->setTypesBasedOn(*number);
    EXPECT_TRUE(word->is(TBFTokenTypeWord));
    leaves->setTypesBasedOn(*number);
    EXPECT_TRUE(leaves->is(TBFTokenTypeNumber, TBFTokenSubTypeDecimalNumber));
}

TEST(EPExpressionTreeNode, aRunOfChildrenIsReplacedByOne) {
    const auto node = joined("1+2+3");
    const auto three = node->children()[4];
    node->replaceChildren({1, 2}, EPExpressionTreeNode::create());
    EXPECT_EQ(node->children().size(), 4u);
    EXPECT_EQ(node->indexOfChild(three.get()), 3);
    node->replaceChildren({2, TBFRangeLengthMax}, nullptr);
    EXPECT_EQ(node->children().size(), 2u);
    EXPECT_EQ(node->indexOfChild(three.get()), -1);
}

TEST(EPExpressionTreeNode, depthCostsNoStack) {
    Ref<EPExpressionTreeNode> node = joined("5");
    const Ref<EPExpressionTreeNode> leaf = node->children().front();
    for (int depth = 0; depth < 200000; ++depth)
        node = EPExpressionTreeNode::createJoining({node});
    EXPECT_EQ(node->text(), u"5");
    node.reset();
    EXPECT_TRUE(leaf->isUnique());
}

} // namespace TBFTests
