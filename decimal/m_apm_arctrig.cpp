// Inverse trigonometric functions, all by the arctangent: z = (x cos y - sin y) / (cos y + x sin y) is the
// tangent of what is missing from a first guess y, and small enough for the series.

#include "fixed.h"
#include "transcendental.h"
#include "work.h"

#include <algorithm>
#include <cmath>

using namespace mapm;

namespace {

constexpr std::int64_t kGuessDigits = 14;
constexpr std::int64_t kStepGain = 16;
// Arguments below 10^-4 go by the series alone.
constexpr std::int64_t kSeriesExponent = -3;

// r = pi x `halves` / 2 to `digits` digits and some more.
void multipleOfHalfPi(M_APM r, std::int64_t digits, Limb halves) {
    M_check_PI_places(digits + kGuardDigits);
    M_round_at(r, MM_lc_HALF_PI, -digits - kGuardDigits - 1);
    M_multiply_small(r, r, halves);
}

// arctan of 10^-4 < x <= 1.
void arctanByGuess(M_APM r, std::int64_t digits, M_APM_const x) {
    double significand = 0;
    const std::int64_t power = M_get_double(x, significand);
    M_set_guess(r, std::atan(significand * std::pow(10.0, static_cast<double>(power))));
    // Digits are counted behind the point here; the argument is not far below 1.
    const std::int64_t target = digits - kSeriesExponent + 2;
    ScratchValue sine;
    ScratchValue cosine;
    ScratchValue argument;
    ScratchValue above;
    ScratchValue below;
    for (std::int64_t right = kGuessDigits; right < target;) {
        const std::int64_t next = std::min(target, right * kStepGain);
        M_round_at(r, r, -right - 3);
        M_round_at(argument, x, -next - kGuardDigits);
        M_sin_reduced(sine, next, r);
        M_cos_reduced(cosine, next, r);
        m_apm_multiply(above, argument, cosine);
        m_apm_subtract(above, above, sine);
        m_apm_multiply(below, argument, sine);
        m_apm_add(below, below, cosine);
        M_quotient(argument, next, above, below);
        if (above->sign == 0) return;
        M_arc_series(above, std::max<std::int64_t>(next - right, 0) + 4, argument, true);
        m_apm_add(r, r, above);
        right = next;
    }
}

// Argument checks of arcsine and arccosine: true when the caller is done, with r set.
bool isOutOfRange(M_APM r, M_APM_const a, const char* message) {
    if (M_compare_magnitude(a, MM_One) <= 0) return false;
    M_apm_log_error_msg(false, message);
    M_set_to_zero(r);
    return true;
}

// r = sqrt((1 - a) x (1 + a)) or sqrt((1 - a) / (1 + a)) for |a| < 1.
void complementProduct(M_APM r, std::int64_t digits, M_APM_const a) {
    ScratchValue minus;
    ScratchValue plus;
    m_apm_subtract(minus, MM_One, a);
    m_apm_add(plus, MM_One, a);
    m_apm_multiply(r, minus, plus);
    M_root(r, digits, r);
}

void complementQuotient(M_APM r, std::int64_t digits, M_APM_const a) {
    ScratchValue minus;
    ScratchValue plus;
    m_apm_subtract(minus, MM_One, a);
    m_apm_add(plus, MM_One, a);
    M_quotient(r, digits, minus, plus);
    M_root(r, digits, r);
}

} // namespace

void M_arctan(M_APM r, std::int64_t digits, M_APM_const a) {
    if (a->sign == 0) {
        M_set_to_zero(r);
        return;
    }
    const int sign = a->sign;
    ScratchValue magnitude;
    ScratchValue result;
    M_round_digits(magnitude, a, digits + 2 * kGuardDigits);
    magnitude->sign = 1;
    const bool inverted = M_compare_magnitude(magnitude, MM_One) > 0;
    if (inverted) {
        M_quotient(result, digits + kGuardDigits, MM_One, magnitude);
        m_apm_copy(magnitude, result);
    }
    if (exponentOf(magnitude) < kSeriesExponent)
        M_arc_series(result, digits, magnitude, true);
    else
        arctanByGuess(result, digits, magnitude);
    if (inverted) {
        multipleOfHalfPi(magnitude, digits, 1);
        result->sign = -result->sign;
        M_add_significant(magnitude, digits, result);
        m_apm_copy(result, magnitude);
    }
    m_apm_copy(r, result);
    r->sign = sign;
}

void m_apm_arctan(M_APM r, int places, M_APM_const a) {
    const FunctionWork work(places, a);
    if (!work.isAllowed()) {
        M_set_to_zero(r);
        return;
    }
    ScratchValue result;
    M_arctan(result, M_digits_for(places), a);
    m_apm_round(r, places, result);
}

void m_apm_arcsin(M_APM r, int places, M_APM_const a) {
    const FunctionWork work(places, a);
    if (!work.isAllowed()) {
        M_set_to_zero(r);
        return;
    }
    if (isOutOfRange(r, a, "'m_apm_arcsin', |Argument| > 1")) return;
    const std::int64_t digits = M_digits_for(places);
    const int sign = a->sign;
    ScratchValue result;
    ScratchValue ratio;
    if (M_compare_magnitude(a, MM_One) == 0) {
        multipleOfHalfPi(result, digits, 1);
        result->sign = sign;
    } else if (sign == 0 || M_is_negligible_square(digits, a)) {
        m_apm_copy(result, a);
    } else {
        complementProduct(ratio, digits + kGuardDigits, a);
        M_quotient(result, digits + kGuardDigits, a, ratio);
        M_arctan(ratio, digits, result);
        m_apm_copy(result, ratio);
    }
    M_round_guarded(r, places, result);
}

void m_apm_arccos(M_APM r, int places, M_APM_const a) {
    const FunctionWork work(places, a);
    if (!work.isAllowed()) {
        M_set_to_zero(r);
        return;
    }
    if (isOutOfRange(r, a, "'m_apm_arccos', |Argument| > 1")) return;
    const std::int64_t digits = M_digits_for(places);
    ScratchValue result;
    ScratchValue ratio;
    if (M_compare_magnitude(a, MM_One) == 0) {
        if (a->sign > 0)
            M_set_to_zero(result);
        else
            multipleOfHalfPi(result, digits, 2);
    } else if (-exponentOf(a) > digits + kGuardDigits || a->sign == 0) {
        multipleOfHalfPi(result, digits, 1);
    } else {
        complementQuotient(ratio, digits + kGuardDigits, a);
        M_arctan(result, digits, ratio);
        M_multiply_small(result, result, 2);
    }
    M_round_guarded(r, places, result);
}

void m_apm_arctan2(M_APM r, int places, M_APM_const y, M_APM_const x) {
    const FunctionWork work(places, limbCount(y) > limbCount(x) ? y : x);
    if (!work.isAllowed()) {
        M_set_to_zero(r);
        return;
    }
    const std::int64_t digits = M_digits_for(places);
    if (x->sign == 0 && y->sign == 0) {
        M_apm_log_error_msg(false, "'m_apm_arctan2', Both Inputs = 0");
        M_set_to_zero(r);
        return;
    }
    const int signX = x->sign;
    const int signY = y->sign < 0 ? -1 : 1;
    ScratchValue result;
    ScratchValue ratio;
    if (signX == 0) {
        multipleOfHalfPi(result, digits, 1);
        result->sign = signY;
        m_apm_round(r, places, result);
        return;
    }
    M_set_to_zero(result);
    if (y->sign != 0) {
        M_quotient(ratio, digits + kGuardDigits, y, x);
        M_arctan(result, digits, ratio);
    }
    if (signX < 0) {
        multipleOfHalfPi(ratio, digits, 2);
        ratio->sign = signY;
        M_add_significant(ratio, digits, result);
        m_apm_copy(result, ratio);
    }
    m_apm_round(r, places, result);
}
