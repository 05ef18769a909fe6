// The exponential: powers of ten out by ln 10, the rest divided by a power of two, a Taylor series,
// squarings.

#include "fixed.h"
#include "transcendental.h"
#include "work.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

using namespace mapm;

namespace {

constexpr double kLog10E = 0.43429448190325182765;

Limb exponentialDivisor(Limb k) {
    return k;
}

// Halvings that balance squarings against terms of the series, by the estimate of their costs.
int halvingsFor(std::int64_t digits) {
    return 12 + static_cast<int>(1.2 * std::sqrt(static_cast<double>(digits) / kLimbDigits));
}

// |a| / ln 2, to the nearest integer, fits 32 bits.
bool isInRange(M_APM_const a) {
    if (exponentOf(a) < 10) return true;
    if (exponentOf(a) > 10) return false;
    ScratchValue factor;
    ScratchValue product;
    ScratchValue limit;
    m_apm_set_string(factor, "1.44269504089");
    m_apm_multiply(product, a, factor);
    M_round_at(product, product, 0);
    m_apm_set_long(limit, a->sign > 0 ? 2147483647L : -2147483648L);
    return M_compare_magnitude(product, limit) <= 0;
}

// rest = a - tens x ln 10, in [0, 2.4).
std::int64_t takeOutTens(M_APM rest, std::int64_t digits, M_APM_const a) {
    double significand = 0;
    const std::int64_t power = M_get_double(a, significand);
    const double value = power < -20 ? 0 : significand * std::pow(10.0, static_cast<double>(power));
    auto tens = static_cast<std::int64_t>(std::floor(value * kLog10E));
    if (tens == 0 && a->sign < 0) tens = -1;
    if (tens == 0) {
        M_round_at(rest, a, -digits - kGuardDigits);
        return 0;
    }
    const std::int64_t needed = digits + kGuardDigits + std::max<std::int64_t>(exponentOf(a), 0);
    M_check_log_places(needed);
    ScratchValue multiple;
    ScratchValue argument;
    M_round_at(multiple, MM_lc_log10, -needed - 2);
    M_multiply_small(multiple, multiple, static_cast<Limb>(std::abs(tens)));
    if (tens < 0) multiple->sign = -multiple->sign;
    M_round_at(argument, a, -digits - kGuardDigits);
    m_apm_subtract(rest, argument, multiple);
    if (rest->sign < 0) {
        m_apm_add(rest, rest, MM_lc_log10);
        --tens;
    }
    return tens;
}

} // namespace

bool M_exp(M_APM r, std::int64_t digits, M_APM_const a) {
    if (a->sign == 0) {
        m_apm_copy(r, MM_One);
        return true;
    }
    if (!isInRange(a)) return false;
    ScratchValue rest;
    const std::int64_t tens = takeOutTens(rest, digits, a);

    int halvings = halvingsFor(digits);
    const std::int64_t lost = halvings * 3 / 10 + 4;
    const FixedPoint fixed(FixedPoint::limbsFor(digits + kGuardDigits + lost));
    Scratch scratch;
    Limb* x = scratch.take(fixed.size());
    Limb* sum = scratch.take(fixed.size());
    fixed.load(x, rest);
    for (int left = halvings; left > 0; left -= 50)
        fixed.divideSmall(x, x, Limb{1} << std::min(left, 50));
    fixed.sumSeries(sum, x, {exponentialDivisor, false, false});
    for (; halvings > 0; --halvings)
        fixed.multiply(sum, sum, sum);
    fixed.store(r, 1, sum);
    M_scale10(r, r, tens);
    return true;
}

void m_apm_exp(M_APM r, int places, M_APM_const a) {
    const FunctionWork work(places, a);
    if (!work.isAllowed()) {
        M_set_to_zero(r);
        return;
    }
    ScratchValue result;
    if (!M_exp(result, M_digits_for(places), a)) {
        M_apm_log_error_msg(false, "'m_apm_exp', Input too large, Overflow");
        M_set_to_zero(r);
        return;
    }
    m_apm_round(r, places, result);
}
