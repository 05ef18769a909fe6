#pragma once

// The operators that take one value. They keep its unit. They give null when there is no value, and
// `error`, which starts at none, tells why. One thread for each evaluator.

#include "eval/operations/OperandCoercion.h"
#include "results/TBFEvaluationError.h"
#include "runtime/Ref.h"

namespace TBF {

class Value;

Ref<Value> computeUnaryMinus(const OperationTools& tools, const Value& operand, TBFEvaluationError& error);

// Whole numbers from 0 on have one; fractions and negative numbers are errors.
Ref<Value> computeFactorial(const OperationTools& tools, const Value& operand, TBFEvaluationError& error);

// The same digits, as a percentage. A special number stays as it is.
Ref<Value> computePercent(const Value& operand);

} // namespace TBF
