// Hyperbolic functions by e^x and 1 / e^x, their inverses by logarithms. Arguments near 0 get as many more
// digits as the differences lose.

#include "scratch.h"
#include "transcendental.h"
#include "work.h"

#include <algorithm>

using namespace mapm;

namespace {

// Digits lost when a value of a's size is what is left of values near 1.
std::int64_t digitsLost(M_APM_const a) {
    return std::max<std::int64_t>(0, -exponentOf(a)) + 2;
}

// up = e^|a|, down = e^-|a| or 0 where it doesn't matter beside up. False after the warning about overflow.
bool exponentials(M_APM up, M_APM down, std::int64_t digits, M_APM_const a) {
    ScratchValue magnitude;
    m_apm_absolute_value(magnitude, a);
    if (!M_exp(up, digits, magnitude)) {
        M_apm_log_error_msg(false, "'m_apm_exp', Input too large, Overflow");
        return false;
    }
    if (2 * exponentOf(up) > digits + 2 * kGuardDigits)
        M_set_to_zero(down);
    else
        M_quotient(down, digits + kGuardDigits, MM_One, up);
    return true;
}

// r = a or one where a is negligible beside 1: a^2 + `offset` for the roots below, offset 1 or -1.
void squarePlus(M_APM r, M_APM_const a, M_APM_const offset) {
    ScratchValue square;
    m_apm_multiply(square, a, a);
    m_apm_add(r, square, offset);
}

// ln(a + sqrt(a^2 + offset)) for a > 0 to `digits` digits behind those that are lost.
void logOfSum(M_APM r, std::int64_t digits, M_APM_const a, M_APM_const offset) {
    ScratchValue sum;
    ScratchValue argument;
    M_round_digits(argument, a, std::max(digitCountOf(a), digits) + kGuardDigits);
    if (exponentOf(argument) > digits + kGuardDigits) {
        M_multiply_small(sum, argument, 2);
    } else {
        squarePlus(sum, argument, offset);
        if (sum->sign > 0) M_root(sum, digits + kGuardDigits, sum);
        m_apm_add(sum, sum, argument);
    }
    M_log(r, digits, sum);
}

// An argument of many digits may lie so near to 1 that as many are lost.
std::int64_t digitsNearOne(M_APM_const a) {
    return limbCount(a) > kFreeLimbs && exponentOf(a) <= 1 ? a->count * kLimbDigits : 0;
}

} // namespace

void m_apm_sinh(M_APM r, int places, M_APM_const a) {
    const FunctionWork work(places, a);
    if (!work.isAllowed()) {
        M_set_to_zero(r);
        return;
    }
    const std::int64_t digits = M_digits_for(places);
    if (a->sign == 0 || M_is_negligible_square(digits, a)) {
        m_apm_round(r, places, a);
        return;
    }
    const int sign = a->sign;
    ScratchValue up;
    ScratchValue down;
    if (!exponentials(up, down, digits + digitsLost(a), a)) {
        M_set_to_zero(r);
        return;
    }
    m_apm_subtract(up, up, down);
    m_apm_multiply(down, up, MM_0_5);
    down->sign = sign;
    m_apm_round(r, places, down);
}

void m_apm_cosh(M_APM r, int places, M_APM_const a) {
    const FunctionWork work(places, a);
    if (!work.isAllowed()) {
        M_set_to_zero(r);
        return;
    }
    const std::int64_t digits = M_digits_for(places);
    if (M_is_negligible_square(digits, a)) {
        m_apm_copy(r, MM_One);
        return;
    }
    ScratchValue up;
    ScratchValue down;
    if (!exponentials(up, down, digits, a)) {
        M_set_to_zero(r);
        return;
    }
    m_apm_add(up, up, down);
    m_apm_multiply(down, up, MM_0_5);
    m_apm_round(r, places, down);
}

void m_apm_tanh(M_APM r, int places, M_APM_const a) {
    const FunctionWork work(places, a);
    if (!work.isAllowed()) {
        M_set_to_zero(r);
        return;
    }
    const std::int64_t digits = M_digits_for(places);
    if (a->sign == 0 || M_is_negligible_square(digits, a)) {
        m_apm_round(r, places, a);
        return;
    }
    const int sign = a->sign;
    // 1 - tanh a is below e^-a: past 7 digits of exponent it is nothing at any length there is memory for.
    if (exponentOf(a) > 8) {
        m_apm_copy(r, MM_One);
        r->sign = sign;
        return;
    }
    ScratchValue up;
    ScratchValue down;
    ScratchValue difference;
    if (!exponentials(up, down, digits + digitsLost(a), a)) {
        M_set_to_zero(r);
        return;
    }
    m_apm_subtract(difference, up, down);
    m_apm_add(up, up, down);
    M_quotient(down, digits + kGuardDigits, difference, up);
    down->sign = sign;
    m_apm_round(r, places, down);
}

void m_apm_arcsinh(M_APM r, int places, M_APM_const a) {
    const FunctionWork work(places, a);
    if (!work.isAllowed()) {
        M_set_to_zero(r);
        return;
    }
    const std::int64_t digits = M_digits_for(places);
    if (a->sign == 0 || M_is_negligible_square(digits, a)) {
        m_apm_round(r, places, a);
        return;
    }
    const int sign = a->sign;
    ScratchValue magnitude;
    ScratchValue result;
    m_apm_absolute_value(magnitude, a);
    logOfSum(result, digits + digitsLost(a), magnitude, MM_One);
    result->sign = result->sign * sign;
    m_apm_round(r, places, result);
}

void m_apm_arccosh(M_APM r, int places, M_APM_const a) {
    const FunctionWork work(places, a, digitsNearOne(a));
    if (!work.isAllowed()) {
        M_set_to_zero(r);
        return;
    }
    if (m_apm_compare(a, MM_One) < 0) {
        M_apm_log_error_msg(false, "'m_apm_arccosh', Argument < 1");
        M_set_to_zero(r);
        return;
    }
    const std::int64_t digits = M_digits_for(places);
    ScratchValue minusOne;
    ScratchValue result;
    std::int64_t lost = 2;
    if (exponentOf(a) <= 1) {
        m_apm_subtract(minusOne, a, MM_One);
        lost = digitsLost(minusOne);
    }
    logOfSum(result, digits + lost, a, MM_Minus_One);
    m_apm_round(r, places, result);
}

void m_apm_arctanh(M_APM r, int places, M_APM_const a) {
    const FunctionWork work(places, a, digitsNearOne(a));
    if (!work.isAllowed()) {
        M_set_to_zero(r);
        return;
    }
    if (M_compare_magnitude(a, MM_One) >= 0) {
        M_apm_log_error_msg(false, "'m_apm_arctanh', |Argument| >= 1");
        M_set_to_zero(r);
        return;
    }
    const std::int64_t digits = M_digits_for(places);
    ScratchValue result;
    if (a->sign == 0 || exponentOf(a) <= -1) {
        M_arc_series(result, digits, a, false);
        m_apm_round(r, places, result);
        return;
    }
    ScratchValue above;
    ScratchValue below;
    m_apm_add(above, MM_One, a);
    m_apm_subtract(below, MM_One, a);
    M_quotient(result, digits + digitsLost(a) + kGuardDigits, above, below);
    M_log(above, digits + digitsLost(a), result);
    m_apm_multiply(result, above, MM_0_5);
    m_apm_round(r, places, result);
}
