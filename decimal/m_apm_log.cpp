// Logarithms: the power of ten out, then y + 2 artanh((x - e^y) / (x + e^y)) from a double-precision y, which
// multiplies the right digits by the number of terms taken.

#include "fixed.h"
#include "transcendental.h"
#include "work.h"

#include <algorithm>
#include <cmath>

using namespace mapm;

namespace {

constexpr std::int64_t kGuessDigits = 15;
// A step may multiply the digits by this; more terms of the series cost less than another exponential.
constexpr std::int64_t kStepGain = 16;
// |x - 1| below 10^-2 goes by the series alone.
constexpr std::int64_t kSeriesExponent = -2;

Limb oddDivisor(Limb k) {
    return 2 * k + 1;
}

// r = 2 artanh((x - y) / (x + y)).
void logOfRatio(M_APM r, std::int64_t digits, M_APM_const x, M_APM_const y) {
    ScratchValue difference;
    ScratchValue sum;
    ScratchValue ratio;
    m_apm_subtract(difference, x, y);
    if (difference->sign == 0) {
        M_set_to_zero(r);
        return;
    }
    m_apm_add(sum, x, y);
    M_quotient(ratio, digits + kGuardDigits, difference, sum);
    M_arc_series(r, digits, ratio, false);
    M_multiply_small(r, r, 2);
}

// ln x for 0.3 < x < 3.2, right to `digits` digits behind the point.
void logNearOne(M_APM r, std::int64_t digits, M_APM_const x) {
    double significand = 0;
    const std::int64_t power = M_get_double(x, significand);
    M_set_guess(r, std::log(significand * std::pow(10.0, static_cast<double>(power))));
    const std::int64_t target = digits + 2;
    ScratchValue exponential;
    ScratchValue correction;
    ScratchValue argument;
    for (std::int64_t right = kGuessDigits; right < target;) {
        const std::int64_t next = std::min(target, right * kStepGain);
        M_round_at(r, r, -right - 2);
        M_round_at(argument, x, -next - kGuardDigits);
        if (!M_exp(exponential, next, r)) return;
        logOfRatio(correction, std::max<std::int64_t>(next - right, 0) + 4, argument, exponential);
        m_apm_add(r, r, correction);
        right = next;
    }
}

} // namespace

void M_arc_series(M_APM r, std::int64_t digits, M_APM_const z, bool alternating) {
    ScratchValue factor;
    M_round_digits(factor, z, digits + kGuardDigits);
    if (M_is_negligible_square(digits, z)) {
        m_apm_copy(r, factor);
        return;
    }
    ScratchValue square;
    m_apm_multiply(square, factor, factor);
    const FixedPoint fixed(FixedPoint::limbsFor(digits + kGuardDigits));
    Scratch scratch;
    Limb* x = scratch.take(fixed.size());
    Limb* sum = scratch.take(fixed.size());
    fixed.load(x, square);
    fixed.sumSeries(sum, x, {oddDivisor, true, alternating});
    fixed.store(square, 1, sum);
    m_apm_multiply(r, factor, square);
}

void M_add_significant(M_APM r, std::int64_t digits, M_APM_const a) {
    if (a->sign == 0) return;
    if (r->sign != 0 && exponentOf(a) < exponentOf(r) - digits - kGuardDigits) return;
    m_apm_add(r, r, a);
}

void M_round_guarded(M_APM r, int places, M_APM_const a) {
    M_round_digits(r, a, M_digits_for(places) + kGuardDigits - 2);
    m_apm_round(r, places, r);
}

void M_log(M_APM r, std::int64_t digits, M_APM_const a) {
    const std::int64_t exponent = exponentOf(a);
    ScratchValue fraction;
    if (exponent == 0 || exponent == 1) {
        m_apm_subtract(fraction, a, MM_One);
        if (fraction->sign == 0 || exponentOf(fraction) <= kSeriesExponent) {
            logOfRatio(r, digits, a, MM_One);
            return;
        }
    }
    // a = fraction x 10^tens with the fraction between 1 / sqrt 10 and sqrt 10.
    double significand = 0;
    std::int64_t tens = M_get_double(a, significand);
    if (significand > 3.1622776) ++tens;
    M_round_digits(fraction, a, digits + 2 * kGuardDigits);
    M_scale10(fraction, fraction, -tens);
    ScratchValue result;
    logNearOne(result, digits + kGuardDigits / 2, fraction);
    if (tens != 0) {
        const std::int64_t needed = digits + kGuardDigits;
        M_check_log_places(needed);
        ScratchValue multiple;
        M_round_at(multiple, MM_lc_log10, -needed - 2);
        M_multiply_small(multiple, multiple, static_cast<Limb>(std::abs(tens)));
        if (tens < 0)
            m_apm_subtract(result, result, multiple);
        else
            m_apm_add(result, result, multiple);
    }
    m_apm_copy(r, result);
}

void m_apm_log(M_APM r, int places, M_APM_const a) {
    const FunctionWork work(places, a);
    if (!work.isAllowed()) {
        M_set_to_zero(r);
        return;
    }
    if (a->sign <= 0) {
        M_apm_log_error_msg(false, "'m_apm_log', Negative argument");
        M_set_to_zero(r);
        return;
    }
    ScratchValue result;
    M_log(result, M_digits_for(places), a);
    m_apm_round(r, places, result);
}

void m_apm_log10(M_APM r, int places, M_APM_const a) {
    const FunctionWork work(places, a);
    if (!work.isAllowed()) {
        M_set_to_zero(r);
        return;
    }
    if (a->sign <= 0) {
        M_apm_log_error_msg(false, "'m_apm_log', Negative argument");
        M_set_to_zero(r);
        return;
    }
    const std::int64_t digits = M_digits_for(places);
    const std::int64_t working = digits + kGuardDigits;
    ScratchValue result;
    ScratchValue factor;
    M_log(result, digits + 2, a);
    M_round_digits(result, result, working + 2);
    M_check_log_places(working);
    M_round_digits(factor, MM_lc_log10R, working + 2);
    m_apm_multiply(result, result, factor);
    M_round_guarded(r, places, result);
}
