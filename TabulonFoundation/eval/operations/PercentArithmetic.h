#pragma once

// What the four basic operators do with plain numbers and percentages: a percentage after plus or minus is
// a share of the left side, one that multiplies or divides is its hundredth, and two of them keep to
// themselves.

#include "eval/operations/BoundedArithmetic.h"
#include "numbers/Number.h"
#include "numbers/TBFOperatorType.h"

namespace TBF {

class Number;

// The digits of the result go to the first register. Gives the type of the result; 0 if there is none, for
// another operator or after an error, which stands in `arithmetic`. Neither number is special.
TBFNumberType computePercentArithmetic(BoundedArithmetic& arithmetic, TBFOperatorType operation,
                                       const Number& left, const Number& right);

} // namespace TBF
