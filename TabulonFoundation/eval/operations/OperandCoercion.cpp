#include "eval/operations/OperandCoercion.h"

#include "eval/operations/BoundedArithmetic.h"
#include "numbers/KernelLock.h"
#include "numbers/MAPMContext.h"
#include "runtime/Settings.h"
#include "runtime/TBFLog.h"
#include "units/UnitFractionBuilder.h"
#include "units/UnitFractionSimplifier.h"
#include "units/Value.h"

#include <utility>

namespace TBF {

namespace {

CoercedOperands refused(TBFEvaluationError error) {
    CoercedOperands result;
    result.error = error;
    return result;
}

// A fraction's builder gives none when a degree leaves its 8 bits.
CoercedOperands combined(CoercedOperands operands, Ref<UnitFraction> fraction) {
    if (!fraction) return refused(TBFEvaluationErrorExponentTooLarge);
    operands.fraction = std::move(fraction);
    return operands;
}

// As an exponent of units. A percentage isn't taken by its hundredth there.
bool isFraction(const Number& exponent) {
    return !exponent.isSpecial() && (exponent.isPercent() || !m_apm_is_integer(exponent.mapmRef()));
}

Ref<UnitFraction> raised(UnitFraction* fraction, int32_t degree) {
    const auto builder = UnitFractionBuilder::create();
    builder->addUnit(fraction, degree);
    return builder->unitFraction();
}

Ref<UnitFraction> combinedFraction(UnitFraction* left, UnitFraction* right, int32_t rightDegree) {
    const auto builder = UnitFractionBuilder::create(left);
    builder->addUnit(right, rightDegree);
    return builder->unitFraction();
}

CoercedOperands withUnitOnLeft(TBFOperatorType operation, CoercedOperands operands, UnitFraction* fraction) {
    if (operation != TBFOperatorTypePower) return combined(std::move(operands), retain(fraction));
    // A reading: no unit has such a degree, and the next lower one would be a false answer.
    if (isFraction(*operands.right) && Settings::current().readings()) {
        return refused(TBFEvaluationErrorRootOfUnit);
    }
    const int32_t degree = operands.right->isSpecial() ? 0 : operands.right->int32Value();
    constexpr int32_t bound = UnitFraction::maximalDegree + 1;
    if (degree < -bound || degree > bound) return refused(TBFEvaluationErrorExponentTooLarge);
    return combined(std::move(operands), raised(fraction, degree));
}

CoercedOperands withUnitOnRight(TBFOperatorType operation, CoercedOperands operands, UnitFraction* fraction) {
    const bool inverts = operation == TBFOperatorTypeDivide;
    return combined(std::move(operands), inverts ? raised(fraction, -1) : retain(fraction));
}

// The left side takes on the right side's units.
CoercedOperands withCommonUnits(const OperationTools& tools, CoercedOperands operands, UnitFraction* left,
                                UnitFraction* right) {
    const TBFEvaluationError error =
        convertDigitsInBaseTypes(tools, operands.left->mapmRef(), left, right, operands.fraction);
    if (error != TBFEvaluationErrorNone) return refused(error);
    operands.left = Number::create(tools.registers.r0(), TBFNumberTypeDecimal);
    return operands;
}

// Of units as they were typed (5 km/m) an extra multiplier may not have reached the value yet. Units are
// combined without it, so it has to be there first.
CoercedOperands coerceUnsettled(const OperationTools& tools, TBFOperatorType operation, const Value& left,
                                const Value& right) {
    TBFEvaluationError error = TBFEvaluationErrorNone;
    const auto settled = [&](const Value& value) {
        if (value.number()->isSpecial()) return Value::create(retain(value.number()));
        return valueInFraction(tools, value.number()->mapmRef(), value.number()->type(),
                               retain(value.unitFraction()), error);
    };
    const Ref<Value> settledLeft = settled(left);
    const Ref<Value> settledRight = settledLeft ? settled(right) : nullptr;
    return settledRight ? coerceOperands(tools, operation, *settledLeft, *settledRight) : refused(error);
}

// The value without units, where those come to nothing in base types (1 GHz s). A plain number isn't added to
// gigahertz seconds. Null for other values.
Ref<Value> asPlainNumber(const OperationTools& tools, const Value& value) {
    UnitFraction* const fraction = value.unitFraction();
    if (!fraction) return retain(const_cast<Value*>(&value)); // values are immutable
    if (!tools.simplifier || value.number()->isSpecial()) return nullptr;
    Ref<UnitFraction> simplified = tools.simplifier->createSimplifiedUnitFraction(fraction);
    if (!simplified || !simplified->isScalar()) return nullptr;
    if (!simplified->hasExtraMultiplier()) return Value::create(retain(value.number()));
    TBFEvaluationError error = TBFEvaluationErrorNone;
    return valueInFraction(tools, value.number()->mapmRef(), value.number()->type(), std::move(simplified),
                           error);
}

} // namespace

CoercedOperands coerceOperands(const OperationTools& tools, TBFOperatorType operation, const Value& left,
                               const Value& right) {
    UnitFraction* const f = left.unitFraction();
    UnitFraction* const g = right.unitFraction();
    if ((f && f->hasExtraMultiplier()) || (g && g->hasExtraMultiplier())) {
        return coerceUnsettled(tools, operation, left, right);
    }
    CoercedOperands operands;
    operands.left = retain(left.number());
    operands.right = retain(right.number());
    if (!f && !g) return operands;
    if ((!f || !g) && (operation == TBFOperatorTypeAdd || operation == TBFOperatorTypeSubtract)) {
        const Ref<Value> leftNumber = asPlainNumber(tools, left);
        const Ref<Value> rightNumber = asPlainNumber(tools, right);
        if (leftNumber && rightNumber) return coerceOperands(tools, operation, *leftNumber, *rightNumber);
    }
    if (!g) return withUnitOnLeft(operation, std::move(operands), f);
    if (!f) return withUnitOnRight(operation, std::move(operands), g);
    switch (operation) {
    case TBFOperatorTypeDivide:
        return combined(std::move(operands), combinedFraction(f, g, -1));
    case TBFOperatorTypeMultiply:
        return combined(std::move(operands), combinedFraction(f, g, 1));
    case TBFOperatorTypeAdd:
    case TBFOperatorTypeSubtract:
        return withCommonUnits(tools, std::move(operands), f, g);
    default:
        TBFErrorLog("Unexpected operator type: %d", static_cast<int>(operation));
        // No value, and no error either: the operation has nothing to work with.
        return {};
    }
}

TBFEvaluationError convertDigits(const OperationTools& tools, M_APM digits, UnitFraction* source,
                                 UnitFraction* target) {
    bool inverted = false;
    if (!digits || !source || !target || !UnitFraction::typesCompare(*source, *target, inverted)) {
        return TBFEvaluationErrorIncompatibleUnits;
    }
    const Ref<Number> sourceOffset = source->offset();
    const Ref<Number> targetOffset = target->offset();
    const M_APM sourceMultiplier = source->multiplier() ? source->multiplier() : MM_One;
    const M_APM targetMultiplier = target->multiplier() ? target->multiplier() : MM_One;

    const KernelLock lock;
    const MAPMContext& r = tools.registers;
    BoundedArithmetic arithmetic(r);
    if (sourceOffset) {
        arithmetic.add(r.r0(), digits, sourceOffset->mapmRef());
        arithmetic.multiply(r.r1(), r.r0(), sourceMultiplier);
    } else {
        arithmetic.multiply(r.r1(), digits, sourceMultiplier);
    }
    // Without units every fraction is the inverse of every other, and none is meant.
    if (inverted && !target->isScalar()) {
        arithmetic.divide(r.r0(), MM_One, r.r1());
        m_apm_copy(r.r1(), r.r0());
    }
    arithmetic.divide(r.r0(), r.r1(), targetMultiplier);
    if (targetOffset) {
        arithmetic.subtract(r.r1(), r.r0(), targetOffset->mapmRef());
        m_apm_copy(r.r0(), r.r1());
    }
    return arithmetic.error();
}

TBFEvaluationError convertDigitsInBaseTypes(const OperationTools& tools, M_APM digits, UnitFraction* source,
                                            UnitFraction* target, Ref<UnitFraction>& targetInBaseTypes) {
    if (!tools.simplifier) return TBFEvaluationErrorIncompatibleUnits;
    const auto sourceInBaseTypes = tools.simplifier->createSimplifiedUnitFraction(source);
    targetInBaseTypes = tools.simplifier->createSimplifiedUnitFraction(target);
    if (!sourceInBaseTypes || !targetInBaseTypes) return TBFEvaluationErrorExponentTooLarge;
    return convertDigits(tools, digits, sourceInBaseTypes.get(), targetInBaseTypes.get());
}

Ref<Value> valueInFraction(const OperationTools& tools, M_APM digits, TBFNumberType type,
                           Ref<UnitFraction> fraction, TBFEvaluationError& error) {
    if (!fraction || !fraction->hasExtraMultiplier()) {
        return Value::create(Number::create(digits, type), std::move(fraction));
    }
    Ref<Number> number;
    {
        const KernelLock lock;
        BoundedArithmetic arithmetic(tools.registers);
        arithmetic.multiply(tools.registers.r0(), digits, fraction->extraMultiplier());
        error = arithmetic.error();
        if (!arithmetic.isFine()) return nullptr;
        number = Number::create(tools.registers.r0(), type);
    }
    if (fraction->isScalar()) return Value::create(std::move(number));
    return Value::create(std::move(number), fraction->copyWithRecomputedMultiplier());
}

} // namespace TBF
