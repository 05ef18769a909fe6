#include "names/functions/StandardFunctions.h"
#include "numbers/Decimal.h"
#include "numbers/KernelLock.h"
#include "numbers/MAPMContext.h"
#include "numbers/Number.h"
#include "numbers/TBFMAPMExtensions.h"
#include "results/EvaluationContext.h"
#include "units/Value.h"

namespace TBF::functions {
namespace {

// e^x has about x / ln 10 digits in front of the point; from here on they are more than a result may have.
constexpr long largestExponentialArgument = 23'000'000;

void setError(const FunctionCall& call, TBFEvaluationError error) {
    if (call.context) call.context->setError(error);
}

Ref<Value> special(const Ref<Number>& number) {
    return Value::create(number);
}

// The common road of the functions that keep the number's type. `Body` leaves its answer in the Decimal
// and gives null, or gives the value itself. Specials give what `specials` makes of them.
template <typename Body, typename Specials>
Ref<Value> keepingType(const FunctionCall& call, Body body, Specials specials) {
    const Number& number = *call.arguments[0]->number();
    if (number.isSpecial()) return special(specials(number.specialType()));
    if (number.type() != TBFNumberTypeDecimal && number.type() != TBFNumberTypePercent) return nullptr;
    const KernelLock lock;
    Decimal result;
    if (const Ref<Number> answer = body(M_APM(result), number.mapmRef())) return special(answer);
    return Value::create(Number::create(std::move(result), number.type()));
}

template <typename Body>
Ref<Value> keepingType(const FunctionCall& call, Body body) {
    return keepingType(call, body, [](TBFNumberSpecialType) { return Number::notANumber(); });
}

// Rounded to the precision first, so that a value a hair below a whole number counts as that number.
Decimal roundedToPrecision(const FunctionCall& call, M_APM x) {
    Decimal rounded;
    m_apm_round(rounded, call.registers.precision(), x);
    return rounded;
}

template <typename Logarithm>
Ref<Value> logarithm(const FunctionCall& call, Logarithm body) {
    return keepingType(call, [&](M_APM result, M_APM x) -> Ref<Number> {
        if (m_apm_sign(x) == 0) return Number::negativeInfinity();
        if (m_apm_sign(x) < 0) {
            setError(call, TBFEvaluationErrorLogarithmOfNegative);
            return Number::notANumber();
        }
        body(result, call.registers.precision(), x);
        return nullptr;
    });
}

template <typename Root>
Ref<Value> root(const FunctionCall& call, Root body) {
    const Value& value = *call.arguments[0];
    if (value.number()->isSpecial() || m_apm_sign(value.number()->mapmRef()) < 0) return notANumber(call);
    if (value.unitFraction()) {
        setError(call, TBFEvaluationErrorRootOfUnit);
        return nullptr;
    }
    const KernelLock lock;
    Decimal result;
    body(M_APM(result), call.registers.precision(), value.number()->mapmRef());
    return Value::create(Number::create(std::move(result), TBFNumberTypeDecimal));
}

} // namespace

Ref<Value> absoluteValue(const FunctionCall& call) {
    return keepingType(call, [](M_APM result, M_APM x) -> Ref<Number> {
        m_apm_absolute_value(result, x);
        return nullptr;
    });
}

Ref<Value> floor(const FunctionCall& call) {
    return keepingType(call, [&](M_APM result, M_APM x) -> Ref<Number> {
        m_apm_floor(result, roundedToPrecision(call, x));
        return nullptr;
    });
}

Ref<Value> ceiling(const FunctionCall& call) {
    return keepingType(call, [&](M_APM result, M_APM x) -> Ref<Number> {
        m_apm_ceil(result, roundedToPrecision(call, x));
        return nullptr;
    });
}

Ref<Value> truncate(const FunctionCall& call) {
    return keepingType(call, [&](M_APM result, M_APM x) -> Ref<Number> {
        const Decimal rounded = roundedToPrecision(call, x);
        if (m_apm_sign(x) < 0)
            m_apm_ceil(result, rounded);
        else
            m_apm_floor(result, rounded);
        return nullptr;
    });
}

Ref<Value> round(const FunctionCall& call) {
    return keepingType(call, [](M_APM result, M_APM x) -> Ref<Number> {
        TBF_mapm_round(result, 0, x);
        return nullptr;
    });
}

Ref<Value> exponential(const FunctionCall& call) {
    bool tooLarge = false;
    Ref<Value> value = keepingType(
        call,
        [&](M_APM result, M_APM x) -> Ref<Number> {
            const bool isHuge = m_apm_exponent(x) >= 6;
            if (isHuge && m_apm_sign(x) < 0) return nullptr; // e^x is 0 for all purposes
            const Decimal largest(largestExponentialArgument);
            tooLarge = isHuge && m_apm_compare(x, largest) > 0;
            if (!tooLarge) m_apm_exp(result, call.registers.precision(), x);
            return nullptr;
        },
        [](TBFNumberSpecialType type) {
            if (type == TBFNumberSpecialTypeInfinity) return Number::infinity();
            return type == TBFNumberSpecialTypeNegativeInfinity ? Number::zero() : Number::notANumber();
        });
    if (!tooLarge) return value;
    setError(call, TBFEvaluationErrorExponentTooLarge);
    return nullptr;
}

Ref<Value> naturalLogarithm(const FunctionCall& call) {
    return logarithm(call, m_apm_log);
}

Ref<Value> commonLogarithm(const FunctionCall& call) {
    return logarithm(call, m_apm_log10);
}

Ref<Value> binaryLogarithm(const FunctionCall& call) {
    return logarithm(call, [](M_APM result, int precision, M_APM x) {
        Decimal logOfX, logOfTwo;
        m_apm_log(logOfX, precision, x);
        m_apm_log(logOfTwo, precision, MM_Two);
        m_apm_divide(result, precision, logOfX, logOfTwo);
    });
}

Ref<Value> squareRoot(const FunctionCall& call) {
    return root(call, m_apm_sqrt);
}

Ref<Value> cubeRoot(const FunctionCall& call) {
    return root(call, m_apm_cbrt);
}

void digitsAlone(const FunctionCall& call) {
    m_apm_copy(call.registers.r0(), call.arguments[0]->number()->mapmRef());
}

Ref<Value> infinity(const FunctionCall&) {
    return special(Number::infinity());
}

Ref<Value> negativeInfinity(const FunctionCall&) {
    return special(Number::negativeInfinity());
}

Ref<Value> notANumber(const FunctionCall&) {
    return special(Number::notANumber());
}

} // namespace TBF::functions
