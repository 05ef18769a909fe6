#include "parser/ExpressionNode.h"

#include "names/functions/Function.h"
#include "numbers/Number.h"
#include "parser/ExpressionTree.h"
#include "units/AmbiguousUnit.h"
#include "units/EvalMetadata.h"
#include "units/UnitContainer.h"
#include "units/UnitFraction.h"
#include "units/Value.h"

#include <gtest/gtest.h>

using namespace TBF;

namespace {

Ref<ExpressionNode> operand(int value) {
    return TBFOperandExpressionNode::create(Number::create(value, TBFNumberTypeDecimal), nullptr, nullptr);
}

Ref<ExpressionNode> call(Ref<ExpressionNode> arguments) {
    return TBFFunctionExpressionNode::create(Function::create(String::create(u"f")), std::move(arguments));
}

TEST(ExpressionNode, retrieving_a_result_empties_the_slot) {
    const auto node = operand(1);
    const auto value = Value::create(Number::one(), nullptr);
    const auto metadata = EvalMetadata::create();
    node->setEvaluated({value, metadata});
    const EvaluatedNode first = node->retrieveEvaluated();
    EXPECT_EQ(first.value, value);
    EXPECT_EQ(first.metadata, metadata);
    const EvaluatedNode second = node->retrieveEvaluated();
    EXPECT_FALSE(second.value);
    EXPECT_FALSE(second.metadata);
}

TEST(ExpressionNode, setting_operands_replaces_the_children_and_skips_nulls) {
    const auto op = TBFOperatorExpressionNode::create(TBFOperatorTypeAdd, operand(1), operand(2));
    const Ref<ExpressionNode> old = op->children()[0];
    const auto only = operand(3);
    op->setOperands(nullptr, only);
    ASSERT_EQ(op->countOfChildren(), 1);
    EXPECT_EQ(op->children()[0], only);
    EXPECT_EQ(only->parent(), op.get());
    EXPECT_EQ(old->parent(), nullptr);

    // The children that are kept may be among those that go.
    op->setOperands(only, old);
    EXPECT_EQ(op->countOfChildren(), 2);
    EXPECT_EQ(only->parent(), op.get());
}

TEST(ExpressionNode, a_function_counts_its_argument_list_as_its_only_child) {
    const auto without = call(nullptr);
    EXPECT_EQ(without->countOfChildren(), 1);
    EXPECT_FALSE(without->hasChildren());
    EXPECT_EQ(without->onlyChild(), nullptr);

    const auto list = TBFListExpressionNode::create({operand(1), operand(2), operand(3)});
    const auto with = call(list);
    EXPECT_TRUE(with->hasChildren());
    EXPECT_EQ(with->onlyChild(), list.get());
    EXPECT_EQ(with->children().size(), 3u);

    with->setFunctionArguments(operand(4));
    EXPECT_EQ(with->functionArguments(), list.get());
}

TEST(ExpressionNode, a_property_of_another_kind_of_node_is_absent) {
    const auto number = operand(1);
    number->setOperatorType(TBFOperatorTypeAdd);
    number->setOperands(operand(2), operand(3));
    EXPECT_EQ(number->operatorType(), TBFOperatorTypeNone);
    EXPECT_EQ(number->countOfChildren(), 0);
    EXPECT_TRUE(number->children().empty());
    EXPECT_EQ(number->function(), nullptr);
    EXPECT_EQ(TBFEmptyOperandExpressionNode::create()->number(), nullptr);
}

TEST(ExpressionNode, children_survive_a_parent_that_goes) {
    Ref<ExpressionNode> kept = operand(1);
    TBFOperatorExpressionNode::create(TBFOperatorTypeAdd, kept, operand(2)).reset();
    EXPECT_EQ(kept->parent(), nullptr);
    EXPECT_TRUE(kept->isUnique());
}

TEST(ExpressionTree, visits_children_before_their_parents) {
    const auto one = operand(1);
    const auto two = operand(2);
    const auto sum = TBFOperatorExpressionNode::create(TBFOperatorTypeAdd, one, two);
    const auto three = operand(3);
    const auto list = TBFListExpressionNode::create({sum, three});
    const auto root = call(list);
    const auto tree = ExpressionTree::create(root);
    EXPECT_EQ(tree->nodesPostOrderDFS(),
              (ExpressionTree::Nodes{one.get(), two.get(), sum.get(), three.get(), list.get(), root.get()}));
    EXPECT_EQ(ExpressionTree::create(nullptr)->nodes().size(), 0u);
}

TEST(ExpressionTree, visits_two_operands_at_most) {
    const auto op = TBFOperatorExpressionNode::create(TBFOperatorTypeAdd, operand(1), operand(2));
    static_cast<BaseOperatorNode&>(*op).addChild(operand(3));
    EXPECT_EQ(op->children().size(), 3u);
    EXPECT_EQ(ExpressionTree::create(op)->nodes().size(), 3u);
}

} // namespace
