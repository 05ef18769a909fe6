#pragma once

// What the operators make of infinities and not-a-number. Not-a-number counts for nothing in a sum, so that
// a sum over lines passes those without an answer.

#include "numbers/Number.h"
#include "numbers/TBFOperatorType.h"
#include "runtime/Ref.h"

namespace TBF {

// The result if a rule applies, null if both numbers are finite and the operation goes on. It has no unit.
Ref<Number> applySpecialRules(TBFOperatorType operation, const Number& left, const Number& right);

// The same for an operator of one number.
Ref<Number> applySpecialRules(TBFOperatorType operation, const Number& number);

} // namespace TBF
