#include "face/eval/TBFExpressionNodeEvaluator.h"

#include "eval/ExpressionNodeEvaluator.h"
#include "parser/ExpressionTree.h"
#include "units/Value.h"

using TBF::Value;

namespace {

Value* applied(TBFExpressionNodeEvaluatorRef evaluator, TBFOperatorType operation, const Value* left,
               const Value* right, TBFEvaluationError* error) {
    if (error) *error = TBFEvaluationErrorNone;
    if (!evaluator || !left || !right) return nullptr;
    TBFEvaluationError found = TBFEvaluationErrorNone;
    auto result = evaluator->apply(operation, left, right, found);
    if (error) *error = found;
    return result.leak();
}

Value* applied(TBFExpressionNodeEvaluatorRef evaluator, TBFOperatorType operation, const Value* operand,
               TBFEvaluationError* error) {
    if (error) *error = TBFEvaluationErrorNone;
    if (!evaluator || !operand) return nullptr;
    TBFEvaluationError found = TBFEvaluationErrorNone;
    auto result = evaluator->apply(operation, operand, nullptr, found);
    if (error) *error = found;
    return result.leak();
}

} // namespace

TBFExpressionNodeEvaluatorRef TBFExpressionNodeEvaluatorCreate(TBF::UnitCollection* unitCollection) {
    return TBF::ExpressionNodeEvaluator::create(unitCollection).leak();
}

TBFExpressionNodeEvaluatorRef TBFExpressionNodeEvaluatorRetain(TBFExpressionNodeEvaluatorRef evaluator) {
    return TBF::retain(evaluator).leak();
}

void TBFExpressionNodeEvaluatorRelease(const TBF::ExpressionNodeEvaluator* evaluator) {
    if (evaluator) evaluator->release();
}

Value* TBFExpressionNodeEvaluatorEvaluate(TBFExpressionNodeEvaluatorRef evaluator,
                                          const TBF::ExpressionTree* tree, TBF::EvaluationContext* context) {
    return evaluator && tree && context ? evaluator->evaluate(*tree, *context).leak() : nullptr;
}

Value* TBFExpressionNodeEvaluatorAdd(TBFExpressionNodeEvaluatorRef evaluator, const Value* left,
                                     const Value* right, TBFEvaluationError* error) {
    return applied(evaluator, TBFOperatorTypeAdd, left, right, error);
}

Value* TBFExpressionNodeEvaluatorSubtract(TBFExpressionNodeEvaluatorRef evaluator, const Value* left,
                                          const Value* right, TBFEvaluationError* error) {
    return applied(evaluator, TBFOperatorTypeSubtract, left, right, error);
}

Value* TBFExpressionNodeEvaluatorMultiply(TBFExpressionNodeEvaluatorRef evaluator, const Value* left,
                                          const Value* right, TBFEvaluationError* error) {
    return applied(evaluator, TBFOperatorTypeMultiply, left, right, error);
}

Value* TBFExpressionNodeEvaluatorDivide(TBFExpressionNodeEvaluatorRef evaluator, const Value* left,
                                        const Value* right, TBFEvaluationError* error) {
    return applied(evaluator, TBFOperatorTypeDivide, left, right, error);
}

Value* TBFExpressionNodeEvaluatorPower(TBFExpressionNodeEvaluatorRef evaluator, const Value* left,
                                       const Value* right, TBFEvaluationError* error) {
    return applied(evaluator, TBFOperatorTypePower, left, right, error);
}

Value* TBFExpressionNodeEvaluatorE10(TBFExpressionNodeEvaluatorRef evaluator, const Value* left,
                                     const Value* right, TBFEvaluationError* error) {
    return applied(evaluator, TBFOperatorTypeE10, left, right, error);
}

Value* TBFExpressionNodeEvaluatorMod(TBFExpressionNodeEvaluatorRef evaluator, const Value* left,
                                     const Value* right, TBFEvaluationError* error) {
    return applied(evaluator, TBFOperatorTypeModulo, left, right, error);
}

Value* TBFExpressionNodeEvaluatorUnitConvert(TBFExpressionNodeEvaluatorRef evaluator, const Value* left,
                                             const Value* right, TBFEvaluationError* error) {
    return applied(evaluator, TBFOperatorTypeUnitConversion, left, right, error);
}

Value* TBFExpressionNodeEvaluatorUnaryMinus(TBFExpressionNodeEvaluatorRef evaluator, const Value* operand,
                                            TBFEvaluationError* error) {
    return applied(evaluator, TBFOperatorTypeUnaryMinus, operand, error);
}

Value* TBFExpressionNodeEvaluatorUnaryPlus(TBFExpressionNodeEvaluatorRef evaluator, const Value* operand,
                                           TBFEvaluationError* error) {
    return applied(evaluator, TBFOperatorTypeUnaryPlus, operand, error);
}

Value* TBFExpressionNodeEvaluatorFactorial(TBFExpressionNodeEvaluatorRef evaluator, const Value* operand,
                                           TBFEvaluationError* error) {
    return applied(evaluator, TBFOperatorTypeFactorial, operand, error);
}

Value* TBFExpressionNodeEvaluatorPercent(TBFExpressionNodeEvaluatorRef evaluator, const Value* operand,
                                         TBFEvaluationError* error) {
    return applied(evaluator, TBFOperatorTypePercent, operand, error);
}
