#pragma once

// The operators that take two values. All of them bring their operands to a common ground, let the rules
// for special numbers decide first, and then compute with the digits. They give null when there is no value,
// and `error`, which starts at none, tells why if it was an error. One thread for each evaluator.

#include "eval/operations/OperandCoercion.h"
#include "numbers/TBFOperatorType.h"
#include "results/TBFEvaluationError.h"
#include "runtime/Ref.h"

namespace TBF {

class Value;

// Add, subtract, multiply and divide.
Ref<Value> computeBasic(const OperationTools& tools, TBFOperatorType operation, const Value& left,
                        const Value& right, TBFEvaluationError& error);

// A negative base has powers by whole numbers only; others are not-a-number.
Ref<Value> computePower(const OperationTools& tools, const Value& left, const Value& right,
                        TBFEvaluationError& error);

// left * 10^right, with the units of a division. Special numbers give not-a-number.
Ref<Value> computeE10(const OperationTools& tools, const Value& left, const Value& right,
                      TBFEvaluationError& error);

// The remainder, with the sign of the left side and the units of a division. By zero, the left side.
Ref<Value> computeModulo(const OperationTools& tools, const Value& left, const Value& right,
                         TBFEvaluationError& error);

// The left value in the unit of the right one; a plain number takes on that unit. The right side's number
// counts, too: 12 m in 2 m counts pairs of metres.
Ref<Value> computeUnitConversion(const OperationTools& tools, const Value& left, const Value& right,
                                 TBFEvaluationError& error);

} // namespace TBF
