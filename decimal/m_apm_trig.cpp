// Sine, cosine, tangent. An angle is first brought within a quarter of pi of a multiple of half pi, with
// enough digits of pi to keep the relative precision however close to the multiple it lies.

#include "fixed.h"
#include "transcendental.h"
#include "work.h"

#include <algorithm>
#include <cmath>

using namespace mapm;

namespace {

// Angles of greater exponents count as whole turns: pi to that many digits would take too long.
constexpr std::int64_t kMaxAngleExponent = 100'000;
// Up to this exponent a double holds the number of quarter turns.
constexpr std::int64_t kSmallAngleExponent = 14;

Limb sineDivisor(Limb k) {
    return 2 * k * (2 * k + 1);
}
Limb versineDivisor(Limb k) {
    return (2 * k + 1) * (2 * k + 2);
}

// Digits to which an argument is made small before its series: the more digits the result has, the more.
double reductionTarget(std::int64_t digits) {
    return 1.9 + 0.25 * std::sqrt(static_cast<double>(digits) / kLimbDigits);
}

double smallToDouble(M_APM_const a) {
    double significand = 0;
    const std::int64_t power = M_get_double(a, significand);
    return power < -300 ? 0.0 : significand * std::pow(10.0, static_cast<double>(power));
}

// The integer nearest to a / halfPi, or one beside it.
void nearestQuarter(M_APM quarter, M_APM_const a, M_APM_const halfPi) {
    if (exponentOf(a) <= kSmallAngleExponent) {
        m_apm_set_long(quarter, static_cast<long>(std::llround(smallToDouble(a) / 1.57079632679489661923)));
        return;
    }
    M_quotient(quarter, exponentOf(a) + 4, a, halfPi);
    M_round_at(quarter, quarter, 0);
}

int modulo4(M_APM_const quarter) {
    if (quarter->sign == 0 || quarter->low > 0) return 0;
    const int rest = static_cast<int>(quarter->limbs[-quarter->low] % 4);
    return quarter->sign < 0 ? (4 - rest) % 4 : rest;
}

// rest = a - q half pi with |rest| <= 0.8 to `digits` relative digits; returns q modulo 4.
int reduceAngle(M_APM rest, std::int64_t digits, M_APM_const a) {
    const std::int64_t exponent = exponentOf(a);
    if (a->sign == 0 || std::abs(smallToDouble(a)) < 0.78) {
        M_round_digits(rest, a, digits + kGuardDigits);
        return 0;
    }
    if (exponent > kMaxAngleExponent) {
        M_set_to_zero(rest);
        return 0;
    }
    ScratchValue halfPi;
    ScratchValue quarter;
    ScratchValue multiple;
    for (std::int64_t extra = 0;;) {
        const std::int64_t needed = digits + kGuardDigits + exponent + extra;
        M_check_PI_places(needed);
        M_round_at(halfPi, MM_lc_HALF_PI, -needed - 1);
        nearestQuarter(quarter, a, halfPi);
        m_apm_multiply(multiple, quarter, halfPi);
        m_apm_subtract(rest, a, multiple);
        // The digits that the subtraction cancelled are made up for.
        const std::int64_t cancelled = rest->sign == 0 ? digits + 2 * extra : -exponentOf(rest);
        if (cancelled <= extra + 4) break;
        extra = cancelled;
    }
    M_round_digits(rest, rest, digits + kGuardDigits);
    return modulo4(quarter);
}

// The digits of pi that the reduction takes on top.
std::int64_t digitsOfReduction(M_APM_const a) {
    const std::int64_t exponent = exponentOf(a);
    return exponent > kMaxAngleExponent ? 0 : std::max<std::int64_t>(exponent, 0);
}

// Sine or cosine of a whole angle from its reduced rest: `quarter` 0 is sine, 1 cosine, and so on.
void functionOfQuarter(M_APM r, std::int64_t digits, M_APM_const rest, int quarter) {
    if (quarter % 2 == 0)
        M_sin_reduced(r, digits, rest);
    else
        M_cos_reduced(r, digits, rest);
    if (quarter % 4 >= 2) r->sign = -r->sign;
}

} // namespace

// sin 5x = 16 s^5 - 20 s^3 + 5 s.
void M_sin_reduced(M_APM r, std::int64_t digits, M_APM_const a) {
    if (a->sign == 0 || M_is_negligible_square(digits, a)) {
        M_round_digits(r, a, digits + kGuardDigits);
        return;
    }
    const std::int64_t exponent = exponentOf(a);
    const double wanted = (reductionTarget(digits) + static_cast<double>(exponent)) / 0.69897;
    int fifths = std::clamp(static_cast<int>(std::lround(wanted)), 0, 24);
    const FixedPoint fixed(FixedPoint::limbsFor(digits + kGuardDigits + 2 - exponent + fifths));
    Scratch scratch;
    Limb* x = scratch.take(fixed.size());
    Limb* square = scratch.take(fixed.size());
    Limb* sine = scratch.take(fixed.size());
    Limb* factor = scratch.take(fixed.size());
    fixed.load(x, a);
    Limb divisor = 1;
    for (int i = 0; i < fifths; ++i)
        divisor *= 5;
    if (fifths > 0) fixed.divideSmall(x, x, divisor);
    fixed.multiply(square, x, x);
    fixed.sumSeries(sine, square, {sineDivisor, false, true});
    fixed.multiply(sine, sine, x);
    for (; fifths > 0; --fifths) {
        fixed.multiply(square, sine, sine);
        fixed.multiplySmall(factor, square, 16);
        fixed.subtractFrom(factor, 20, factor);
        fixed.multiply(factor, factor, square);
        fixed.subtractFrom(factor, 5, factor);
        fixed.multiply(sine, sine, factor);
    }
    fixed.store(r, a->sign, sine);
}

// v = 1 - cos x keeps its relative precision: 1 - cos 2x = 2 v (2 - v).
void M_cos_reduced(M_APM r, std::int64_t digits, M_APM_const a) {
    if (a->sign == 0 || M_is_negligible_square(digits, a)) {
        m_apm_copy(r, MM_One);
        return;
    }
    const double wanted =
        (reductionTarget(digits) + 0.8 + static_cast<double>(std::max<std::int64_t>(exponentOf(a), -100))) /
        0.30103;
    int doublings = std::clamp(static_cast<int>(std::lround(wanted)), 0, 58);
    const FixedPoint fixed(FixedPoint::limbsFor(digits + kGuardDigits + doublings * 6 / 10));
    Scratch scratch;
    Limb* x = scratch.take(fixed.size());
    Limb* square = scratch.take(fixed.size());
    Limb* versine = scratch.take(fixed.size());
    fixed.load(x, a);
    if (doublings > 0) fixed.divideSmall(x, x, Limb{1} << doublings);
    fixed.multiply(square, x, x);
    fixed.sumSeries(versine, square, {versineDivisor, false, true});
    fixed.multiply(versine, versine, square);
    fixed.divideSmall(versine, versine, 2);
    for (; doublings > 0; --doublings) {
        fixed.subtractFrom(square, 2, versine);
        fixed.multiply(versine, versine, square);
        fixed.multiplySmall(versine, versine, 2);
    }
    fixed.subtractFrom(versine, 1, versine);
    fixed.store(r, 1, versine);
}

void m_apm_sin(M_APM r, int places, M_APM_const a) {
    const FunctionWork work(places, a, digitsOfReduction(a));
    if (!work.isAllowed()) {
        M_set_to_zero(r);
        return;
    }
    const std::int64_t digits = M_digits_for(places);
    ScratchValue rest;
    ScratchValue result;
    const int quarter = reduceAngle(rest, digits, a);
    functionOfQuarter(result, digits, rest, quarter);
    m_apm_round(r, places, result);
}

void m_apm_cos(M_APM r, int places, M_APM_const a) {
    const FunctionWork work(places, a, digitsOfReduction(a));
    if (!work.isAllowed()) {
        M_set_to_zero(r);
        return;
    }
    const std::int64_t digits = M_digits_for(places);
    ScratchValue rest;
    ScratchValue result;
    const int quarter = reduceAngle(rest, digits, a);
    functionOfQuarter(result, digits, rest, quarter + 1);
    m_apm_round(r, places, result);
}

void m_apm_sin_cos(M_APM sinResult, M_APM cosResult, int places, M_APM_const a) {
    const FunctionWork work(places, a, digitsOfReduction(a));
    if (!work.isAllowed()) {
        M_set_to_zero(sinResult);
        M_set_to_zero(cosResult);
        return;
    }
    const std::int64_t digits = M_digits_for(places);
    ScratchValue rest;
    ScratchValue result;
    const int quarter = reduceAngle(rest, digits, a);
    functionOfQuarter(result, digits, rest, quarter);
    m_apm_round(sinResult, places, result);
    functionOfQuarter(result, digits, rest, quarter + 1);
    m_apm_round(cosResult, places, result);
}

void m_apm_tan(M_APM r, int places, M_APM_const a) {
    const FunctionWork work(places, a, digitsOfReduction(a));
    if (!work.isAllowed()) {
        M_set_to_zero(r);
        return;
    }
    const std::int64_t digits = M_digits_for(places);
    ScratchValue rest;
    ScratchValue sine;
    ScratchValue cosine;
    const int quarter = reduceAngle(rest, digits, a);
    functionOfQuarter(sine, digits, rest, quarter);
    functionOfQuarter(cosine, digits, rest, quarter + 1);
    if (cosine->sign == 0) {
        M_apm_log_error_msg(false, "'m_apm_divide', Divide by 0");
        M_set_to_zero(r);
        return;
    }
    M_quotient(r, digits + kGuardDigits, sine, cosine);
    m_apm_round(r, places, r);
}
