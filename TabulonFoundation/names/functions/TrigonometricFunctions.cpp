#include "names/functions/StandardFunctions.h"
#include "numbers/Decimal.h"
#include "numbers/KernelLock.h"
#include "numbers/MAPMContext.h"
#include "numbers/Number.h"
#include "numbers/TBFMAPMExtensions.h"
#include "results/EvaluationContext.h"
#include "units/Value.h"

#include <optional>

namespace TBF::functions {
namespace {

constexpr int places = 100; // of the functions that don't get a context

bool isInDegrees(const FunctionCall& call) {
    return call.context && call.context->trigonometryMode() == TBFTrigonometryModeDegrees;
}

// The first argument in radians.
Decimal angle(const FunctionCall& call) {
    const M_APM argument = call.arguments[0]->number()->mapmRef();
    if (!isInDegrees(call)) return Decimal::copyOf(argument);
    Decimal halfTurns;
    m_apm_divide(halfTurns, call.registers.precision(), argument, TBF_MAPM_180());
    Decimal radians;
    m_apm_multiply(radians, halfTurns, MM_PI);
    return radians;
}

// Moves radians to the unit of the mode, in place.
void fromRadians(const FunctionCall& call, M_APM value) {
    if (!isInDegrees(call)) return;
    Decimal scaled;
    m_apm_multiply(scaled, value, TBF_MAPM_180());
    m_apm_divide(value, call.registers.precision(), scaled, MM_PI);
}

using KernelFunction = void (*)(M_APM result, int digits, M_APM_const x);

void ofAngle(const FunctionCall& call, KernelFunction function, M_APM result) {
    const int precision = call.registers.precision();
    function(result, precision, angle(call));
    TBF_mapm_truncate_tiny_number(result, precision, true);
}

void inverse(const FunctionCall& call, KernelFunction function) {
    const M_APM result = call.registers.r0();
    function(result, call.registers.precision(), call.arguments[0]->number()->mapmRef());
    fromRadians(call, result);
}

Ref<Value> plain(M_APM digits) {
    return Value::create(Number::create(digits, TBFNumberTypeDecimal));
}

// 1 / x, or the error of a division by zero.
Ref<Value> reciprocal(const FunctionCall& call, M_APM x) {
    if (m_apm_sign(x) == 0) {
        if (call.context) call.context->setError(TBFEvaluationErrorDivideByZero);
        return nullptr;
    }
    Decimal result;
    m_apm_reciprocal(result, call.registers.precision(), x);
    return Value::create(Number::create(std::move(result), TBFNumberTypeDecimal));
}

// True at odd multiples of a quarter turn, to within the precision. Degrees hit them exactly; radians as well
// as the digits of pi allow, of which the division of a typed pi/2 costs some.
bool isPole(const FunctionCall& call, M_APM radians) {
    const int precision = call.registers.precision();
    const int lostPlaces = isInDegrees(call) ? 1 : 3;
    Decimal halfTurns;
    m_apm_divide(halfTurns, precision, radians, MM_PI);
    Decimal quarterTurns;
    m_apm_multiply(quarterTurns, halfTurns, MM_Two);
    Decimal rounded;
    m_apm_round(rounded, precision - lostPlaces, quarterTurns);
    return m_apm_is_integer(rounded) && m_apm_is_odd(rounded);
}

// No value at a pole.
std::optional<Decimal> tangentOf(const FunctionCall& call) {
    const Decimal radians = angle(call);
    if (isPole(call, radians)) return std::nullopt;
    Decimal result;
    m_apm_tan(result, call.registers.precision(), radians);
    TBF_mapm_truncate_tiny_number(result, call.registers.precision(), true);
    return result;
}

bool isSpecial(const FunctionCall& call) {
    return call.arguments[0]->number()->isSpecial();
}

} // namespace

void sine(const FunctionCall& call) {
    ofAngle(call, m_apm_sin, call.registers.r0());
}

void cosine(const FunctionCall& call) {
    ofAngle(call, m_apm_cos, call.registers.r0());
}

Ref<Value> tangent(const FunctionCall& call) {
    if (isSpecial(call)) return notANumber(call);
    const KernelLock lock;
    std::optional<Decimal> result = tangentOf(call);
    if (!result) return infinity(call);
    return Value::create(Number::create(std::move(*result), TBFNumberTypeDecimal));
}

void arcSine(const FunctionCall& call) {
    inverse(call, m_apm_arcsin);
}

void arcCosine(const FunctionCall& call) {
    inverse(call, m_apm_arccos);
}

void arcTangent(const FunctionCall& call) {
    inverse(call, m_apm_arctan);
}

Ref<Value> cosecant(const FunctionCall& call) {
    if (isSpecial(call)) return notANumber(call);
    const KernelLock lock;
    ofAngle(call, m_apm_sin, call.registers.r0());
    return reciprocal(call, call.registers.r0());
}

Ref<Value> secant(const FunctionCall& call) {
    if (isSpecial(call)) return notANumber(call);
    const KernelLock lock;
    ofAngle(call, m_apm_cos, call.registers.r0());
    return reciprocal(call, call.registers.r0());
}

Ref<Value> cotangent(const FunctionCall& call) {
    if (isSpecial(call)) return notANumber(call);
    const KernelLock lock;
    const std::optional<Decimal> result = tangentOf(call);
    return result ? reciprocal(call, *result) : plain(MM_Zero);
}

namespace {

// Beyond this size e^x has more digits than a result may have, and in the hyperbolic tangent nothing
// is left but the sign.
bool isBeyondExponentials(M_APM x) {
    return m_apm_exponent(x) >= 7;
}

} // namespace

bool hyperbolicSine(M_APM result, std::span<const M_APM> reversedArguments) {
    if (isBeyondExponentials(reversedArguments.back())) return false;
    m_apm_sinh(result, places, reversedArguments.back());
    return true;
}

bool hyperbolicCosine(M_APM result, std::span<const M_APM> reversedArguments) {
    if (isBeyondExponentials(reversedArguments.back())) return false;
    m_apm_cosh(result, places, reversedArguments.back());
    return true;
}

bool hyperbolicTangent(M_APM result, std::span<const M_APM> reversedArguments) {
    const M_APM x = reversedArguments.back();
    if (isBeyondExponentials(x))
        m_apm_set_long(result, m_apm_sign(x));
    else
        m_apm_tanh(result, places, x);
    return true;
}

bool inverseHyperbolicSine(M_APM result, std::span<const M_APM> reversedArguments) {
    m_apm_arcsinh(result, places, reversedArguments.back());
    return true;
}

bool inverseHyperbolicCosine(M_APM result, std::span<const M_APM> reversedArguments) {
    m_apm_arccosh(result, places, reversedArguments.back());
    return true;
}

bool inverseHyperbolicTangent(M_APM result, std::span<const M_APM> reversedArguments) {
    m_apm_arctanh(result, places, reversedArguments.back());
    return true;
}

} // namespace TBF::functions
