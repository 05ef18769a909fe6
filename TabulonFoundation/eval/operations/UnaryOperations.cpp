#include "eval/operations/UnaryOperations.h"

#include "eval/operations/BoundedArithmetic.h"
#include "eval/operations/SpecialRules.h"
#include "numbers/KernelLock.h"
#include "numbers/MAPMContext.h"
#include "units/Value.h"

#include <utility>

namespace TBF {

namespace {

Ref<Value> withUnitOf(const Value& operand, M_APM digits, TBFNumberType type) {
    return Value::create(Number::create(digits, type), retain(operand.unitFraction()));
}

TBFEvaluationError errorOfFactorial(M_APM n) {
    if (m_apm_sign(n) < 0) return TBFEvaluationErrorFactorialOfNegative;
    return m_apm_is_integer(n) ? TBFEvaluationErrorNone : TBFEvaluationErrorFactorialOfFraction;
}

} // namespace

Ref<Value> computeUnaryMinus(const OperationTools& tools, const Value& operand, TBFEvaluationError& error) {
    error = TBFEvaluationErrorNone;
    const Number& number = *operand.number();
    if (auto special = applySpecialRules(TBFOperatorTypeUnaryMinus, number)) {
        return Value::create(std::move(special));
    }
    const KernelLock lock;
    m_apm_negate(tools.registers.r0(), number.mapmRef());
    return withUnitOf(operand, tools.registers.r0(), number.type());
}

Ref<Value> computeFactorial(const OperationTools& tools, const Value& operand, TBFEvaluationError& error) {
    error = TBFEvaluationErrorNone;
    const Number& number = *operand.number();
    if (auto special = applySpecialRules(TBFOperatorTypeFactorial, number)) {
        return Value::create(std::move(special));
    }
    const KernelLock lock;
    error = errorOfFactorial(number.mapmRef());
    if (error != TBFEvaluationErrorNone) return nullptr;
    BoundedArithmetic arithmetic(tools.registers);
    arithmetic.factorial(tools.registers.r0(), number.mapmRef());
    error = arithmetic.error();
    return arithmetic.isFine() ? withUnitOf(operand, tools.registers.r0(), number.type()) : nullptr;
}

Ref<Value> computePercent(const Value& operand) {
    const Number& number = *operand.number();
    if (number.isSpecial()) return retain(const_cast<Value*>(&operand)); // values are immutable
    return withUnitOf(operand, number.mapmRef(), TBFNumberTypePercent);
}

} // namespace TBF
