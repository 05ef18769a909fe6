#include "eval/ExpressionNodeEvaluator.h"

#include "eval/operations/BinaryOperations.h"
#include "eval/operations/DigitBudget.h"
#include "eval/operations/UnaryOperations.h"
#include "eval/wordoperators/CompiledWordOperator.h"
#include "names/functions/Function.h"
#include "names/variables/ScopedVariable.h"
#include "names/wordoperators/WordOperator.h"
#include "numbers/Number.h"
#include "numbers/WorkBudget.h"
#include "parser/ExpressionTree.h"
#include "results/EvaluationContext.h"
#include "runtime/Settings.h"
#include "runtime/TBFLog.h"
#include "units/EvalMetadata.h"
#include "units/UnitContainer.h"
#include "units/UnitFractionBuilder.h"
#include "units/UnitFractionFactorizer.h"
#include "units/UnitFractionSimplifier.h"
#include "units/Value.h"

#include <array>
#include <utility>

namespace TBF {

namespace {

using BinaryOperation = Ref<Value> (*)(const OperationTools& tools, const Value& left, const Value& right,
                                       TBFEvaluationError& error);
using UnaryOperation = Ref<Value> (*)(const OperationTools& tools, const Value& operand,
                                      TBFEvaluationError& error);

template <TBFOperatorType operation>
Ref<Value> basic(const OperationTools& tools, const Value& left, const Value& right,
                 TBFEvaluationError& error) {
    return computeBasic(tools, operation, left, right, error);
}

Ref<Value> percent(const OperationTools&, const Value& operand, TBFEvaluationError&) {
    return computePercent(operand);
}

Ref<Value> unaryPlus(const OperationTools&, const Value& operand, TBFEvaluationError&) {
    return retain(const_cast<Value*>(&operand)); // values are immutable
}

struct OperatorRow {
    TBFOperatorType operation;
    BinaryOperation binary; // one of the two is set, and tells how many values the operator takes
    UnaryOperation unary;
};

constexpr std::array<OperatorRow, 12> operators = {{
    {TBFOperatorTypeAdd, basic<TBFOperatorTypeAdd>, nullptr},
    {TBFOperatorTypeSubtract, basic<TBFOperatorTypeSubtract>, nullptr},
    {TBFOperatorTypeMultiply, basic<TBFOperatorTypeMultiply>, nullptr},
    {TBFOperatorTypeDivide, basic<TBFOperatorTypeDivide>, nullptr},
    {TBFOperatorTypePower, computePower, nullptr},
    {TBFOperatorTypeUnaryMinus, nullptr, computeUnaryMinus},
    {TBFOperatorTypeUnaryPlus, nullptr, unaryPlus},
    {TBFOperatorTypeFactorial, nullptr, computeFactorial},
    {TBFOperatorTypeE10, computeE10, nullptr},
    {TBFOperatorTypePercent, nullptr, percent},
    {TBFOperatorTypeUnitConversion, computeUnitConversion, nullptr},
    {TBFOperatorTypeModulo, computeModulo, nullptr},
}};

// What a node counts whatever it does, and the digits of its value that are copied in a step. Operations on
// short values count nothing else.
constexpr int64_t stepsOfANode = 2'000;
constexpr int64_t digitsOfAStep = 4;

int64_t digitsOf(const EvaluatedNode& node) {
    if (!node.value || node.value->number()->isSpecial()) return 0;
    return m_apm_digit_bound(node.value->number()->mapmRef());
}

// An object of the caller's own with what `metadata` holds; null only for null. Nobody else sees changes.
Ref<EvalMetadata> ownMetadata(Ref<EvalMetadata> metadata) {
    if (!metadata || metadata->isUnique()) return metadata;
    auto copy = EvalMetadata::create();
    copy->append(*metadata);
    return copy;
}

Ref<EvalMetadata> mergedMetadata(Ref<EvalMetadata> first, const Ref<EvalMetadata>& second,
                                 TBFOperatorType operation) {
    if (!second) return first;
    auto merged = first ? ownMetadata(std::move(first)) : EvalMetadata::create();
    merged->append(*second, operation);
    return merged;
}

// Notes the units of a value, and how the node's unit was written.
void recordUnits(const ExpressionNode& node, EvaluatedNode& result) {
    if (!result.value) return;
    if (!result.metadata && result.value->unitFraction()) {
        result.metadata = EvalMetadata::create();
        result.metadata->appendUnitFraction(result.value->unitFraction());
    }
    const UnitContainer* const container = node.unitContainer();
    if (!container || !container->unitFraction() || !result.metadata) return;
    for (const auto& written : container->unitFraction()->typeDegrees()) {
        result.metadata->appendUnitNameFormatMapping(written.unit.get(), node.unitNameFormat());
    }
}

} // namespace

ExpressionNodeEvaluator::ExpressionNodeEvaluator(UnitCollection* collection)
    : registers(MAPMContext::create(precision)) {
    if (!collection) return;
    simplifier = UnitFractionSimplifier::create(collection);
    factorizer = UnitFractionFactorizer::create(collection);
}

ExpressionNodeEvaluator::~ExpressionNodeEvaluator() = default;

Ref<ExpressionNodeEvaluator> ExpressionNodeEvaluator::create(UnitCollection* collection) {
    return make<ExpressionNodeEvaluator>(collection);
}

OperationTools ExpressionNodeEvaluator::tools() const {
    return {*registers, simplifier.get(), maxExponentDigits};
}

Ref<Value> ExpressionNodeEvaluator::evaluate(const ExpressionTree& tree, EvaluationContext& context) {
    if (!tree.root()) return nullptr;
    if (depth == 0) waitingDigits = 0;
    ++depth;
    walk(tree, context);
    EvaluatedNode result = take(*tree.root());
    --depth;
    if (context.error() != TBFEvaluationErrorNone || !result.value) return nullptr;

    auto value = withShownUnits(std::move(result.value), result.metadata.get(), context);
    context.setUnitAccumulator(std::move(result.metadata));
    return value;
}

void ExpressionNodeEvaluator::walk(const ExpressionTree& tree, EvaluationContext& context) {
    for (ExpressionNode* const node : tree.nodesPostOrderDFS()) {
        if (context.error() != TBFEvaluationErrorNone) break;
        // A list leaves its values in its children, for the function that follows.
        if (node->type() == TBFExpressionNodeTypeList) continue;
        store(*node, evaluateNode(*node, context), context);
    }
    if (context.error() == TBFEvaluationErrorNone) return;
    // A stopped walk leaves values behind that nobody will take.
    for (ExpressionNode* const node : tree.nodesPostOrderDFS())
        take(*node);
}

EvaluatedNode ExpressionNodeEvaluator::evaluateNode(ExpressionNode& node, EvaluationContext& context) {
    switch (node.type()) {
    case TBFExpressionNodeTypeOperand:
        return evaluateOperand(node);
    case TBFExpressionNodeTypeOperator:
        return evaluateOperator(node, context);
    case TBFExpressionNodeTypeFunction:
        return evaluateFunction(node, context);
    case TBFExpressionNodeTypeVariable:
        return evaluateVariable(node);
    case TBFExpressionNodeTypeWordOperator:
        return evaluateWordOperator(node, context);
    case TBFExpressionNodeTypeOperatorUnit:
        return evaluateOperatorUnit(node, context);
    default:
        TBFErrorLog("Unsupported node type");
        return {};
    }
}

EvaluatedNode ExpressionNodeEvaluator::evaluateOperand(const ExpressionNode& node) {
    EvaluatedNode result;
    if (!node.number()) return result;
    const UnitContainer* const container = node.unitContainer();
    result.value = Value::create(node.number(), container ? container->unitFraction() : nullptr);
    recordUnits(node, result);
    return result;
}

EvaluatedNode ExpressionNodeEvaluator::evaluateOperator(const ExpressionNode& node,
                                                        EvaluationContext& context) {
    const auto children = node.children();
    if (children.empty()) return {};
    EvaluatedNode left = take(*children[0]);
    EvaluatedNode right = children.size() > 1 ? take(*children[1]) : EvaluatedNode();

    TBFEvaluationError error = TBFEvaluationErrorNone;
    EvaluatedNode result;
    result.value = apply(node.operatorType(), left.value.get(), right.value.get(), error);
    if (error != TBFEvaluationErrorNone) context.setError(error);
    result.metadata = mergedMetadata(std::move(left.metadata), right.metadata, node.operatorType());
    return result;
}

EvaluatedNode ExpressionNodeEvaluator::evaluateFunction(const ExpressionNode& node,
                                                        EvaluationContext& context) {
    EvaluatedNode result;
    takeArguments(node);
    if (const Function* const function = node.function()) {
        // A reading: outside of its domain a function has no answer.
        const TBFEvaluationError error =
            Settings::current().readings() ? function->errorOfDomain(argumentValues) : TBFEvaluationErrorNone;
        if (error != TBFEvaluationErrorNone) {
            context.setError(error);
        } else {
            result.value = function->execute({argumentValues, *registers, &context}, &result.metadata);
        }
    }
    if (!result.metadata) {
        for (EvaluatedNode& argument : argumentNodes) {
            result.metadata =
                mergedMetadata(std::move(result.metadata), argument.metadata, TBFOperatorTypeNone);
        }
    }
    if (!result.metadata) recordUnits(node, result);
    argumentNodes.clear();
    argumentValues.clear();
    return result;
}

EvaluatedNode ExpressionNodeEvaluator::evaluateVariable(const ExpressionNode& node) {
    EvaluatedNode result;
    if (ScopedVariable* const variable = node.scopedVariable()) result.value = TBF::retain(variable->value());
    recordUnits(node, result);
    return result;
}

EvaluatedNode ExpressionNodeEvaluator::evaluateWordOperator(const ExpressionNode& node,
                                                            EvaluationContext& context) {
    const auto children = node.children();
    if (children.empty() || !node.wordOperator()) return {};
    EvaluatedNode left = take(*children[0]);
    EvaluatedNode right = children.size() > 1 ? take(*children[1]) : EvaluatedNode();

    EvaluatedNode result;
    result.value = CompiledWordOperator::of(*node.wordOperator())
                       .execute(*this, context, left.value.get(), right.value.get());
    result.metadata = mergedMetadata(std::move(left.metadata), right.metadata, TBFOperatorTypeNone);
    return result;
}

EvaluatedNode ExpressionNodeEvaluator::evaluateOperatorUnit(const ExpressionNode& node,
                                                            EvaluationContext& context) {
    ExpressionNode* const child = node.onlyChild();
    if (!child) return {};
    EvaluatedNode operand = take(*child);
    if (!operand.value) return {};

    const UnitContainer* const container = node.unitContainer();
    const auto builder = UnitFractionBuilder::create(operand.value->unitFraction());
    builder->addUnit(container ? container->unitFraction() : nullptr, 1);
    Ref<UnitFraction> fraction = builder->unitFraction();
    if (!fraction) {
        context.setError(TBFEvaluationErrorExponentTooLarge);
        return {};
    }
    EvaluatedNode result;
    result.value = Value::create(TBF::retain(operand.value->number()), std::move(fraction));
    recordUnits(node, result);
    result.metadata = mergedMetadata(std::move(result.metadata), operand.metadata, TBFOperatorTypeNone);
    return result;
}

void ExpressionNodeEvaluator::store(ExpressionNode& node, EvaluatedNode result, EvaluationContext& context) {
    const int64_t digits = digitsOf(result);
    if (!WorkBudget::charge(stepsOfANode + digits / digitsOfAStep)) {
        context.setError(TBFEvaluationErrorTakesTooLong);
        return;
    }
    if (result.value && !result.value->number()->isSpecial() &&
        !digitsFit(result.value->number()->mapmRef())) {
        context.setError(TBFEvaluationErrorExponentTooLarge);
        return;
    }
    waitingDigits += digits;
    if (waitingDigits > maximumWaitingDigits) context.setError(TBFEvaluationErrorExponentTooLarge);
    node.setEvaluated(std::move(result));
}

EvaluatedNode ExpressionNodeEvaluator::take(ExpressionNode& node) {
    EvaluatedNode result = node.retrieveEvaluated();
    waitingDigits -= digitsOf(result);
    return result;
}

void ExpressionNodeEvaluator::takeArguments(const ExpressionNode& node) {
    static const Ref<Value> missing = Value::create(Number::notANumber());
    if (!node.functionArguments()) return;
    for (const auto& child : node.children()) {
        argumentNodes.push_back(take(*child));
        Value* const value = argumentNodes.back().value.get();
        // An argument without a value makes the call not-a-number, as one too few does.
        argumentValues.push_back(value ? value : missing.get());
    }
}

Ref<Value> ExpressionNodeEvaluator::withShownUnits(Ref<Value> value, const EvalMetadata* metadata,
                                                   EvaluationContext& context) {
    UnitFraction* const written = value->unitFraction();
    if (!written || !simplifier || value->number()->isSpecial()) return value;
    const auto simplified = simplifier->createSimplifiedUnitFraction(written);
    auto shown =
        factorizer->undecompose(simplified.get(), metadata ? metadata->preferredUnits() : UnitsByType(),
                                metadata ? metadata->requiredUnits() : UnitsByType(), written);
    if (!shown) {
        context.setError(TBFEvaluationErrorExponentTooLarge);
        return nullptr;
    }
    TBFEvaluationError error = TBFEvaluationErrorNone;
    const Number& number = *value->number();
    auto result = valueInFraction(tools(), number.mapmRef(), number.type(), std::move(shown), error);
    if (error != TBFEvaluationErrorNone) context.setError(error);
    return result;
}

Ref<Value> ExpressionNodeEvaluator::apply(TBFOperatorType operation, const Value* left, const Value* right,
                                          TBFEvaluationError& error) {
    error = TBFEvaluationErrorNone;
    for (const OperatorRow& row : operators) {
        if (row.operation != operation) continue;
        if (!left && !right) {
            error = TBFEvaluationErrorTooFewOperands;
        } else if (left && right) {
            if (row.binary) return row.binary(tools(), *left, *right, error);
            error = TBFEvaluationErrorTooManyOperands;
        } else {
            if (row.unary) return row.unary(tools(), left ? *left : *right, error);
            error = TBFEvaluationErrorTooFewOperands;
        }
        return nullptr;
    }
    TBFErrorLog("Unexpected operator type: %d", static_cast<int>(operation));
    return nullptr;
}

} // namespace TBF
