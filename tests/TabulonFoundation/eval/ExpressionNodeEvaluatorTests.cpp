#include "eval/ExpressionNodeEvaluator.h"

#include "eval/EvaluationTestSupport.h"
#include "names/functions/FunctionList.h"
#include "parser/ExpressionTree.h"
#include "results/EvaluationContext.h"
#include "runtime/String.h"
#include "units/AmbiguousUnit.h"
#include "units/EvalMetadata.h"
#include "units/Unit.h"
#include "units/UnitContainer.h"
#include "units/UnitFraction.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

using namespace TBF;

namespace {

using Node = Ref<ExpressionNode>;

Node operand(std::string_view text) {
    const auto value = evaltest::value(text);
    Ref<UnitContainer> container;
    if (value->unitFraction()) {
        container = UnitContainer::create();
        container->setUnitFraction(retain(value->unitFraction()));
    }
    auto node = TBFOperandExpressionNode::create(retain(value->number()), std::move(container), nullptr);
    node->setUnitNameFormat(TBFUnitFormatTypeSymbol);
    return node;
}

Node operation(TBFOperatorType type, Node left, Node right = nullptr) {
    return TBFOperatorExpressionNode::create(type, std::move(left), std::move(right));
}

Node call(std::string_view name, std::vector<Node> arguments) {
    evaltest::startFoundation();
    const auto match = FunctionList::standard().find(*String::createWithUTF8(name));
    return TBFFunctionExpressionNode::create(retain(match.function),
                                             TBFListExpressionNode::create(std::move(arguments)));
}

struct Outcome {
    std::string text;
    Ref<EvaluationContext> context = EvaluationContext::create(TBFTrigonometryModeRadians);
    Ref<ExpressionTree> tree;
};

Outcome evaluated(Node root) {
    Outcome outcome;
    outcome.tree = ExpressionTree::create(std::move(root));
    const auto evaluator = ExpressionNodeEvaluator::create(&evaltest::units());
    const auto value = evaluator->evaluate(*outcome.tree, *outcome.context);
    outcome.text = evaltest::text(value.get());
    return outcome;
}

TEST(ExpressionNodeEvaluator, AnErrorStopsTheWalkAndLeavesNothingBehind) {
    const Node zero = operand("0");
    const Node quotient = operation(TBFOperatorTypeDivide, operand("1"), zero);
    const Node left = operand("7");
    const auto outcome = evaluated(operation(TBFOperatorTypeAdd, left, quotient));
    EXPECT_EQ(outcome.text, "none");
    EXPECT_EQ(outcome.context->error(), TBFEvaluationErrorDivideByZero);
    for (ExpressionNode* const node : outcome.tree->nodesPostOrderDFS()) {
        EXPECT_EQ(node->retrieveEvaluated().value, nullptr);
    }
}

TEST(ExpressionNodeEvaluator, AMissingOperandIsAnErrorAndAMissingRootIsNot) {
    const auto sum =
        evaluated(operation(TBFOperatorTypeAdd, operand("1"), TBFEmptyOperandExpressionNode::create()));
    EXPECT_EQ(sum.context->error(), TBFEvaluationErrorTooFewOperands);

    const auto empty = evaluated(TBFEmptyOperandExpressionNode::create());
    EXPECT_EQ(empty.text, "none");
    EXPECT_EQ(empty.context->error(), TBFEvaluationErrorNone);

    const auto list = evaluated(TBFListExpressionNode::create({operand("1"), operand("2")}));
    EXPECT_EQ(list.text, "none");
    EXPECT_EQ(list.context->error(), TBFEvaluationErrorNone);
}

TEST(ExpressionNodeEvaluator, AnArgumentWithoutAValueMakesTheCallNotANumber) {
    EXPECT_EQ(evaluated(call("sqrt", {TBFEmptyOperandExpressionNode::create()})).text, "nan");
    EXPECT_EQ(evaluated(call("pow", {operand("3"), operand("2")})).text, "9");
    EXPECT_EQ(evaluated(call("pow", {operand("3")})).text, "nan");
}

TEST(ExpressionNodeEvaluator, TheResultShowsTheUnitsThatWereNamedLast) {
    const auto sum = evaluated(operation(TBFOperatorTypeAdd, operand("1 km"), operand("500 m")));
    EXPECT_EQ(sum.text, "1500 m");

    const auto converted = evaluated(
        operation(TBFOperatorTypeUnitConversion,
                  operation(TBFOperatorTypeAdd, operand("1 m"), operand("500 m")), operand("1 km")));
    EXPECT_EQ(converted.text, "0.501 km");

    const auto product = evaluated(operation(TBFOperatorTypeMultiply, operand("2 km/h"), operand("3 h")));
    EXPECT_EQ(product.text, "6 km");
}

TEST(ExpressionNodeEvaluator, TheContextReceivesHowUnitsWereWritten) {
    const auto outcome = evaluated(operation(TBFOperatorTypeAdd, operand("1 km"), operand("5")));
    ASSERT_NE(outcome.context->unitAccumulator(), nullptr);
    const auto& formats = outcome.context->unitAccumulator()->unitNameFormats();
    ASSERT_EQ(formats.size(), 1u);
    EXPECT_EQ(formats.begin()->first.string(), "km");
    EXPECT_EQ(formats.begin()->second, TBFUnitFormatTypeSymbol);
    EXPECT_EQ(evaluated(operand("5")).context->unitAccumulator(), nullptr);
}

TEST(ExpressionNodeEvaluator, AnOperatorUnitAppliesToItsChild) {
    const auto metre = UnitContainer::create();
    metre->setUnitFraction(retain(evaltest::value("1 m")->unitFraction()));
    const auto prefixed = [&metre](Node child) {
        return TBFOperatorUnitExpressionNode::create(metre, nullptr, TBFOperatorTypeUnitPrefix,
                                                     std::move(child));
    };
    EXPECT_EQ(evaluated(prefixed(operand("5"))).text, "5 m");
    EXPECT_EQ(evaluated(prefixed(operand("5 s"))).text, "5 m*s");
    EXPECT_EQ(evaluated(prefixed(TBFEmptyOperandExpressionNode::create())).text, "none");
}

TEST(ExpressionNodeEvaluator, DepthCostsNoStack) {
    Node node = operand("5");
    for (int level = 0; level < 100'000; ++level) {
        node = operation(TBFOperatorTypeUnaryMinus, std::move(node));
    }
    EXPECT_EQ(evaluated(std::move(node)).text, "5");
}

TEST(ExpressionNodeEvaluator, ValuesThatWaitTogetherAreBounded) {
    std::vector<Node> arguments;
    for (int index = 0; index < 12; ++index) {
        // 9,999,000 digits each, made cheaply.
        arguments.push_back(operation(TBFOperatorTypeAdd, operand("1e9998999"), operand("1")));
    }
    const auto outcome = evaluated(call("test_add3", std::move(arguments)));
    EXPECT_EQ(outcome.text, "none");
    EXPECT_EQ(outcome.context->error(), TBFEvaluationErrorExponentTooLarge);
}

} // namespace
