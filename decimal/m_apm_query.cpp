// Queries: comparisons, sizes, parity, and the bounds that callers ask before an operation.

#include "m_apm_fields.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstdlib>

using namespace mapm;

namespace {

int clampToInt(std::int64_t value) {
    return static_cast<int>(std::clamp<std::int64_t>(value, INT_MIN, INT_MAX));
}

// Digits before `exponentOf` that the value's text would hold down to its last digit.
std::int64_t lastPositionOrZero(M_APM_const x) {
    return x->sign == 0 ? 0 : lastPosition(x);
}

} // namespace

int M_compare_magnitude(M_APM_const a, M_APM_const b) {
    if (a->sign == 0 || b->sign == 0) return std::abs(a->sign) - std::abs(b->sign);
    const std::int64_t topA = a->low + a->count;
    const std::int64_t topB = b->low + b->count;
    if (topA != topB) return topA < topB ? -1 : 1;
    const std::size_t common = std::min(limbCount(a), limbCount(b));
    const int order = compare(a->limbs + (limbCount(a) - common), b->limbs + (limbCount(b) - common), common);
    if (order != 0) return order;
    // The bottom limb isn't 0, so the longer one is greater.
    if (a->count == b->count) return 0;
    return a->count < b->count ? -1 : 1;
}

int m_apm_compare(M_APM_const a, M_APM_const b) {
    if (a->sign != b->sign) return a->sign < b->sign ? -1 : 1;
    const int order = M_compare_magnitude(a, b);
    return a->sign < 0 ? -order : order;
}

int m_apm_sign(M_APM_const x) {
    return x->sign;
}

int m_apm_exponent(M_APM_const x) {
    return x->sign == 0 ? 0 : clampToInt(exponentOf(x) - 1);
}

int m_apm_significant_digits(M_APM_const x) {
    return clampToInt(digitCountOf(x));
}

int m_apm_is_integer(M_APM_const x) {
    return x->sign == 0 || x->low >= 0 || lastPosition(x) >= 0 ? 1 : 0;
}

int m_apm_is_even(M_APM_const x) {
    if (m_apm_is_integer(x) == 0) {
        M_apm_log_error_msg(false, "'m_apm_is_even', Non-integer input");
        return 0;
    }
    // Limbs above position 0 are multiples of an even base.
    if (x->sign == 0 || x->low > 0) return 1;
    return x->limbs[-x->low] % 2 == 0 ? 1 : 0;
}

int m_apm_is_odd(M_APM_const x) {
    return m_apm_is_even(x) == 0 ? 1 : 0;
}

std::int64_t m_apm_digit_bound(M_APM_const x) {
    return x->sign == 0 ? 1 : x->count * kLimbDigits;
}

std::int64_t m_apm_sum_digit_bound(M_APM_const a, M_APM_const b) {
    if (a->sign == 0) return digitCountOf(b);
    if (b->sign == 0) return digitCountOf(a);
    return std::max(exponentOf(a), exponentOf(b)) - std::min(lastPosition(a), lastPosition(b)) + 1;
}

std::int64_t m_apm_product_digit_bound(M_APM_const a, M_APM_const b) {
    return digitCountOf(a) + digitCountOf(b);
}

std::int64_t m_apm_quotient_digit_bound(int places, M_APM_const a, M_APM_const b) {
    return std::max<std::int64_t>(places, 0) + 1 + std::max<std::int64_t>(0, exponentOf(a) - exponentOf(b));
}

std::int64_t m_apm_power_digit_bound(M_APM_const a, std::int64_t n) {
    if (a->sign == 0 || n <= 0) return 1;
    const std::int64_t digits = digitCountOf(a);
    if (digits == 1 && a->limbs[0] == kPowersOfTen[trailingZeros(a->limbs[0])]) return 1;
    return digits > INT64_MAX / n ? INT64_MAX : digits * n;
}

std::int64_t m_apm_factorial_digit_bound(M_APM_const a) {
    if (a->sign <= 0) return 1;
    if (exponentOf(a) > 17) return INT64_MAX;
    double significand = 0;
    const std::int64_t power = M_get_double(a, significand);
    const double n = significand * std::pow(10.0, static_cast<double>(power));
    if (n < 2) return 1;
    return static_cast<std::int64_t>(std::lgamma(n + 1.0) / std::log(10.0) * (1 + 1e-12)) + 3;
}

std::int64_t m_apm_fixpt_length(int places, M_APM_const x) {
    const std::int64_t whole = std::max<std::int64_t>(exponentOf(x), 1) + 1;
    const std::int64_t decimals = places >= 0 ? places : std::max<std::int64_t>(1, -lastPositionOrZero(x));
    return whole + decimals + 2;
}

int m_apm_is_saturated(M_APM_const x) {
    if (x->sign == 0) return 0;
    const std::int64_t top = x->low + x->count;
    return top >= kMaxTop || top <= -kMaxTop + 1 ? 1 : 0;
}

std::int64_t M_get_double(M_APM_const a, double& significand) {
    if (a->sign == 0) {
        significand = 0;
        return 0;
    }
    const std::int64_t top = a->count - 1;
    double value = static_cast<double>(a->limbs[top]);
    if (top > 0) value += static_cast<double>(a->limbs[top - 1]) * 1e-18;
    const int digits = limbDigits(a->limbs[top]);
    significand = value / static_cast<double>(kPowersOfTen[digits - 1]) * a->sign;
    return exponentOf(a) - 1;
}
