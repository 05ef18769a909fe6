#pragma once

// The plain functions of the node evaluator: whole trees, and one operator at a time for functions that work
// as an operator does. Null handles give null. An evaluator belongs to one thread.

#include "results/TBFEvaluationError.h"

namespace TBF {
class EvaluationContext;
class ExpressionNodeEvaluator;
class ExpressionTree;
class UnitCollection;
class Value;
} // namespace TBF
using TBFExpressionNodeEvaluatorRef = TBF::ExpressionNodeEvaluator*;

// Create. The caller owns the result. The collection may be null: units then neither convert nor simplify.
TBFExpressionNodeEvaluatorRef TBFExpressionNodeEvaluatorCreate(TBF::UnitCollection* unitCollection);
TBFExpressionNodeEvaluatorRef TBFExpressionNodeEvaluatorRetain(TBFExpressionNodeEvaluatorRef evaluator);
void TBFExpressionNodeEvaluatorRelease(const TBF::ExpressionNodeEvaluator* evaluator);

// The tree's value, owned by the caller. Null without one, and when an error stopped the evaluation, which
// then stands in the context beside the metadata of the result.
TBF::Value* TBFExpressionNodeEvaluatorEvaluate(TBFExpressionNodeEvaluatorRef evaluator,
                                               const TBF::ExpressionTree* tree,
                                               TBF::EvaluationContext* context);

// Operators. The result is owned by the caller; null when there is none. `error` may be null; it is cleared
// first.
TBF::Value* TBFExpressionNodeEvaluatorAdd(TBFExpressionNodeEvaluatorRef evaluator, const TBF::Value* left,
                                          const TBF::Value* right, TBFEvaluationError* error);
TBF::Value* TBFExpressionNodeEvaluatorSubtract(TBFExpressionNodeEvaluatorRef evaluator,
                                               const TBF::Value* left, const TBF::Value* right,
                                               TBFEvaluationError* error);
TBF::Value* TBFExpressionNodeEvaluatorMultiply(TBFExpressionNodeEvaluatorRef evaluator,
                                               const TBF::Value* left, const TBF::Value* right,
                                               TBFEvaluationError* error);
TBF::Value* TBFExpressionNodeEvaluatorDivide(TBFExpressionNodeEvaluatorRef evaluator, const TBF::Value* left,
                                             const TBF::Value* right, TBFEvaluationError* error);
TBF::Value* TBFExpressionNodeEvaluatorPower(TBFExpressionNodeEvaluatorRef evaluator, const TBF::Value* left,
                                            const TBF::Value* right, TBFEvaluationError* error);
TBF::Value* TBFExpressionNodeEvaluatorE10(TBFExpressionNodeEvaluatorRef evaluator, const TBF::Value* left,
                                          const TBF::Value* right, TBFEvaluationError* error);
TBF::Value* TBFExpressionNodeEvaluatorMod(TBFExpressionNodeEvaluatorRef evaluator, const TBF::Value* left,
                                          const TBF::Value* right, TBFEvaluationError* error);
TBF::Value* TBFExpressionNodeEvaluatorUnitConvert(TBFExpressionNodeEvaluatorRef evaluator,
                                                  const TBF::Value* left, const TBF::Value* right,
                                                  TBFEvaluationError* error);
TBF::Value* TBFExpressionNodeEvaluatorUnaryMinus(TBFExpressionNodeEvaluatorRef evaluator,
                                                 const TBF::Value* operand, TBFEvaluationError* error);
TBF::Value* TBFExpressionNodeEvaluatorUnaryPlus(TBFExpressionNodeEvaluatorRef evaluator,
                                                const TBF::Value* operand, TBFEvaluationError* error);
TBF::Value* TBFExpressionNodeEvaluatorFactorial(TBFExpressionNodeEvaluatorRef evaluator,
                                                const TBF::Value* operand, TBFEvaluationError* error);
TBF::Value* TBFExpressionNodeEvaluatorPercent(TBFExpressionNodeEvaluatorRef evaluator,
                                              const TBF::Value* operand, TBFEvaluationError* error);
