#include "eval/operations/SpecialRules.h"

#include "numbers/Decimal.h"
#include "numbers/KernelLock.h"

#include <utility>

namespace TBF {

namespace {

// The sign by which a number enters the rules. All finite numbers count as +1, whatever their sign.
int signOf(const Number& number) {
    return number.specialType() == TBFNumberSpecialTypeNegativeInfinity ? -1 : 1;
}

bool isNotANumber(const Number& number) {
    return number.specialType() == TBFNumberSpecialTypeNaN;
}

Ref<Number> infinityOfSign(int sign) {
    if (sign == 0) return Number::notANumber();
    return sign < 0 ? Number::negativeInfinity() : Number::infinity();
}

Ref<Number> negated(const Number& number) {
    const KernelLock lock;
    Decimal digits;
    m_apm_negate(digits, number.mapmRef());
    return Number::create(std::move(digits), number.type());
}

Ref<Number> shared(const Number& number) {
    // Numbers are immutable: the one that comes in can go out as the result.
    return retain(const_cast<Number*>(&number));
}

Ref<Number> withNotANumber(TBFOperatorType operation, const Number& left, const Number& right) {
    const bool isSum = operation == TBFOperatorTypeAdd;
    if (!isSum && operation != TBFOperatorTypeSubtract) return Number::notANumber();
    if (!right.isSpecial()) return isSum ? shared(right) : negated(right);
    if (!left.isSpecial()) return shared(left);
    return Number::notANumber();
}

} // namespace

Ref<Number> applySpecialRules(TBFOperatorType operation, const Number& left, const Number& right) {
    if (!left.isSpecial() && !right.isSpecial()) return nullptr;
    if (isNotANumber(left) || isNotANumber(right)) return withNotANumber(operation, left, right);
    switch (operation) {
    case TBFOperatorTypeAdd:
        return infinityOfSign(signOf(left) + signOf(right));
    case TBFOperatorTypeSubtract:
        return infinityOfSign(signOf(left) - signOf(right));
    case TBFOperatorTypeMultiply:
        return infinityOfSign(signOf(left) * signOf(right));
    default:
        return Number::notANumber();
    }
}

Ref<Number> applySpecialRules(TBFOperatorType operation, const Number& number) {
    if (!number.isSpecial()) return nullptr;
    if (operation != TBFOperatorTypeUnaryMinus || isNotANumber(number)) return Number::notANumber();
    return infinityOfSign(-signOf(number));
}

} // namespace TBF
