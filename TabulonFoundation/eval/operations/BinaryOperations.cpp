#include "eval/operations/BinaryOperations.h"

#include "eval/operations/BoundedArithmetic.h"
#include "eval/operations/PercentArithmetic.h"
#include "eval/operations/SpecialRules.h"
#include "numbers/KernelLock.h"
#include "numbers/MAPMContext.h"
#include "numbers/TBFMAPMExtensions.h"
#include "runtime/TBFLog.h"
#include "units/UnitFractionBuilder.h"
#include "units/Value.h"

#include <utility>

namespace TBF {

namespace {

// The plain decimal that a number stands for: a percentage becomes its hundredth.
void copyNormalized(BoundedArithmetic& arithmetic, M_APM result, const Number& number) {
    switch (number.type()) {
    case TBFNumberTypeDecimal:
        m_apm_copy(result, number.mapmRef());
        return;
    case TBFNumberTypePercent:
        arithmetic.multiply(result, number.mapmRef(), TBF_MAPM_0_01());
        return;
    default:
        TBFErrorLog("Unexpected type %d", static_cast<int>(number.type()));
    }
}

// What power and E10 refuse by the right-hand digits as they stand, percentages included.
TBFEvaluationError errorOfPower(const OperationTools& tools, const Number& base, const Number& power) {
    if (m_apm_exponent(power.mapmRef()) >= tools.maxExponentDigits) return TBFEvaluationErrorExponentTooLarge;
    if (m_apm_sign(power.mapmRef()) < 0 && m_apm_sign(base.mapmRef()) == 0) {
        return TBFEvaluationErrorDivideByZero;
    }
    return TBFEvaluationErrorNone;
}

// r0 = base ^ power, through r1 and r2. False if the result is not-a-number.
bool raiseNormalized(BoundedArithmetic& arithmetic, const Number& base, const Number& power) {
    const MAPMContext& r = arithmetic.registers;
    const bool isNegative = m_apm_sign(base.mapmRef()) < 0;
    if (isNegative && m_apm_exponent(power.mapmRef()) < 0) return false;
    copyNormalized(arithmetic, r.r1(), base);
    copyNormalized(arithmetic, r.r2(), power);
    if (isNegative && arithmetic.isFine() && !m_apm_is_integer(r.r2())) return false;
    arithmetic.power(r.r0(), r.r1(), r.r2());
    return true;
}

// The start that operators of two values share.
struct Operands : CoercedOperands {
    Ref<Value> special; // the answer if a rule for special numbers gave one

    Operands(const OperationTools& tools, TBFOperatorType coercedAs, TBFOperatorType operation,
             const Value& leftValue, const Value& rightValue)
        : CoercedOperands(coerceOperands(tools, coercedAs, leftValue, rightValue)) {
        if (!areReady()) return;
        if (auto number = applySpecialRules(operation, *left, *right)) {
            special = Value::create(std::move(number));
        }
    }

    bool areReady() const { return left && right; }
};

Ref<Value> notANumber() {
    return Value::create(Number::notANumber());
}

// Neither a unit nor a special number: by far the most frequent case, which needs none of the frame.
bool arePlain(const Value& left, const Value& right) {
    return !left.unitFraction() && !right.unitFraction() && !left.number()->isSpecial() &&
           !right.number()->isSpecial();
}

Ref<Value> computeBasicDigits(const OperationTools& tools, TBFOperatorType operation, const Number& left,
                              const Number& right, Ref<UnitFraction> fraction, TBFEvaluationError& error) {
    if (operation == TBFOperatorTypeDivide && m_apm_sign(right.mapmRef()) == 0) {
        error = TBFEvaluationErrorDivideByZero;
        return nullptr;
    }
    const KernelLock lock;
    BoundedArithmetic arithmetic(tools.registers);
    const TBFNumberType type = computePercentArithmetic(arithmetic, operation, left, right);
    error = arithmetic.error();
    if (type == TBFNumberTypeNone) return nullptr;
    return valueInFraction(tools, tools.registers.r0(), type, std::move(fraction), error);
}

// A copy of the fraction with the digits of `number` as its extra multiplier.
Ref<UnitFraction> multipliedFraction(UnitFraction* fraction, const Number& number) {
    const auto builder = UnitFractionBuilder::create(fraction);
    builder->setExtraMultiplier(number.mapmRef());
    return builder->unitFraction();
}

} // namespace

Ref<Value> computeBasic(const OperationTools& tools, TBFOperatorType operation, const Value& left,
                        const Value& right, TBFEvaluationError& error) {
    error = TBFEvaluationErrorNone;
    if (arePlain(left, right)) {
        return computeBasicDigits(tools, operation, *left.number(), *right.number(), nullptr, error);
    }
    Operands operands(tools, operation, operation, left, right);
    error = operands.error;
    if (!operands.areReady() || operands.special) return std::move(operands.special);
    return computeBasicDigits(tools, operation, *operands.left, *operands.right, std::move(operands.fraction),
                              error);
}

Ref<Value> computePower(const OperationTools& tools, const Value& left, const Value& right,
                        TBFEvaluationError& error) {
    Operands operands(tools, TBFOperatorTypePower, TBFOperatorTypePower, left, right);
    error = operands.error;
    if (!operands.areReady() || operands.special) return std::move(operands.special);
    error = errorOfPower(tools, *operands.left, *operands.right);
    if (error != TBFEvaluationErrorNone) return nullptr;

    const KernelLock lock;
    BoundedArithmetic arithmetic(tools.registers);
    if (!raiseNormalized(arithmetic, *operands.left, *operands.right)) return notANumber();
    error = arithmetic.error();
    if (!arithmetic.isFine()) return nullptr;
    return valueInFraction(tools, tools.registers.r0(), TBFNumberTypeDecimal, std::move(operands.fraction),
                           error);
}

Ref<Value> computeE10(const OperationTools& tools, const Value& left, const Value& right,
                      TBFEvaluationError& error) {
    CoercedOperands operands = coerceOperands(tools, TBFOperatorTypeDivide, left, right);
    error = operands.error;
    if (!operands.left || !operands.right) return nullptr;
    if (operands.left->isSpecial() || operands.right->isSpecial()) return notANumber();
    error = errorOfPower(tools, *operands.left, *operands.right);
    if (error != TBFEvaluationErrorNone) return nullptr;

    const KernelLock lock;
    const MAPMContext& r = tools.registers;
    BoundedArithmetic arithmetic(r);
    copyNormalized(arithmetic, r.r1(), *operands.left);
    copyNormalized(arithmetic, r.r2(), *operands.right);
    arithmetic.power(r.r3(), MM_Ten, r.r2());
    arithmetic.multiply(r.r0(), r.r1(), r.r3());
    error = arithmetic.error();
    if (!arithmetic.isFine()) return nullptr;
    return valueInFraction(tools, r.r0(), TBFNumberTypeDecimal, std::move(operands.fraction), error);
}

Ref<Value> computeModulo(const OperationTools& tools, const Value& left, const Value& right,
                         TBFEvaluationError& error) {
    Operands operands(tools, TBFOperatorTypeDivide, TBFOperatorTypeAdd, left, right);
    error = operands.error;
    if (!operands.areReady() || operands.special) return std::move(operands.special);

    const KernelLock lock;
    const MAPMContext& r = tools.registers;
    BoundedArithmetic arithmetic(r);
    copyNormalized(arithmetic, r.r1(), *operands.left);
    copyNormalized(arithmetic, r.r2(), *operands.right);
    arithmetic.modulo(r.r3(), r.r0(), r.r1(), r.r2());
    error = arithmetic.error();
    if (!arithmetic.isFine()) return nullptr;
    return valueInFraction(tools, r.r0(), TBFNumberTypeDecimal, std::move(operands.fraction), error);
}

Ref<Value> computeUnitConversion(const OperationTools& tools, const Value& left, const Value& right,
                                 TBFEvaluationError& error) {
    error = TBFEvaluationErrorNone;
    if (!right.unitFraction()) {
        error = TBFEvaluationErrorNoConversionTarget;
        return nullptr;
    }
    if (auto special = applySpecialRules(TBFOperatorTypeUnitConversion, *left.number(), *right.number())) {
        return Value::create(std::move(special));
    }
    Ref<UnitFraction> target = multipliedFraction(right.unitFraction(), *right.number());
    if (!target) {
        error = TBFEvaluationErrorExponentTooLarge;
        return nullptr;
    }
    const KernelLock lock;
    if (left.unitFraction()) {
        Ref<UnitFraction> targetInBaseTypes;
        error = convertDigitsInBaseTypes(tools, left.number()->mapmRef(), left.unitFraction(), target.get(),
                                         targetInBaseTypes);
        if (error != TBFEvaluationErrorNone) return nullptr;
    } else {
        m_apm_copy(tools.registers.r0(), left.number()->mapmRef());
    }
    return valueInFraction(tools, tools.registers.r0(), TBFNumberTypeDecimal, std::move(target), error);
}

} // namespace TBF
