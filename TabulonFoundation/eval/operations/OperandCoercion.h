#pragma once

// Brings the operands of a binary operator to a common ground: sums work in the right side's units, products
// and quotients combine both sides' units, and a plain number takes the other side as it is. Conversion
// between units stands here too. One thread for each evaluator.

#include "numbers/Number.h"
#include "numbers/TBFOperatorType.h"
#include "results/TBFEvaluationError.h"
#include "runtime/Ref.h"
#include "units/UnitFraction.h"

namespace TBF {

class MAPMContext;
class UnitFractionSimplifier;
class Value;

// What the operations work with; borrowed from the evaluator for one operation. Without a unit collection
// there is no simplifier, and no units are compatible.
struct OperationTools {
    MAPMContext& registers;
    UnitFractionSimplifier* simplifier;
    int16_t maxExponentDigits; // powers from 10^this on are refused
};

struct CoercedOperands {
    TBFEvaluationError error = TBFEvaluationErrorNone;
    Ref<Number> left;
    Ref<Number> right;
    Ref<UnitFraction> fraction; // of the result; null for none
};

CoercedOperands coerceOperands(const OperationTools& tools, TBFOperatorType operation, const Value& left,
                               const Value& right);

// `digits` counted in `source`, counted in `target`: left in the first register. Goes through base units,
// with offsets, and by the reciprocal where one fraction is the inverse of the other. Different kinds of
// units, and digits that aren't there, give TBFEvaluationErrorIncompatibleUnits.
TBFEvaluationError convertDigits(const OperationTools& tools, M_APM digits, UnitFraction* source,
                                 UnitFraction* target);

// The same after taking both fractions to base types, so that a litre fits a cubic metre. `targetInBaseTypes`
// receives the simplified target.
TBFEvaluationError convertDigitsInBaseTypes(const OperationTools& tools, M_APM digits, UnitFraction* source,
                                            UnitFraction* target, Ref<UnitFraction>& targetInBaseTypes);

// The value of digits in a fraction, with the fraction's extra multiplier moved into the digits. Null, with
// the error set, if that would take too many digits.
Ref<Value> valueInFraction(const OperationTools& tools, M_APM digits, TBFNumberType type,
                           Ref<UnitFraction> fraction, TBFEvaluationError& error);

} // namespace TBF
