// Powers.

#include "fixed.h"
#include "transcendental.h"
#include "work.h"

#include <algorithm>
#include <cmath>

using namespace mapm;

namespace {

// Integer exponents of fewer digits than this go by squaring.
constexpr std::int64_t kSquaringExponent = 8;
constexpr int kSquaringGuard = 8;

// The last base and its logarithm: a run of powers of one base takes one logarithm.
struct PowerCache {
    M_APM base = nullptr;
    M_APM logarithm = nullptr;
    std::int64_t digits = 0;
};

PowerCache cache;

// The logarithm of a to `digits` digits, borrowed until the next call.
M_APM_const cachedLogarithm(std::int64_t digits, M_APM_const a) {
    if (cache.base == nullptr) {
        cache.base = M_new_value();
        cache.logarithm = M_new_value();
    }
    if (cache.digits < digits || m_apm_compare(cache.base, a) != 0) {
        M_log(cache.logarithm, digits, a);
        m_apm_copy(cache.base, a);
        cache.digits = digits;
    }
    return cache.logarithm;
}

// An integer of 18 digits at most as a machine number.
std::int64_t toInteger(M_APM_const a) {
    if (a->sign == 0) return 0;
    const auto magnitude = static_cast<std::int64_t>(a->limbs[0]);
    return a->sign < 0 ? -magnitude : magnitude;
}

} // namespace

void M_free_power_cache() {
    m_apm_free(cache.base);
    m_apm_free(cache.logarithm);
    cache = PowerCache{};
}

void m_apm_integer_pow(M_APM r, int places, M_APM_const a, int n) {
    if (n == 0) {
        m_apm_copy(r, MM_One);
        return;
    }
    if (a->sign == 0) {
        M_set_to_zero(r);
        return;
    }
    const int working = places + kSquaringGuard;
    ScratchValue square;
    ScratchValue product;
    ScratchValue step;
    m_apm_copy(square, a);
    m_apm_copy(product, MM_One);
    for (std::int64_t left = std::abs(std::int64_t{n}); left != 0;) {
        if (left % 2 != 0) {
            m_apm_multiply(step, product, square);
            m_apm_round(product, working, step);
        }
        left /= 2;
        if (left != 0) {
            m_apm_multiply(step, square, square);
            m_apm_round(square, working, step);
        }
    }
    if (n < 0)
        m_apm_reciprocal(r, places, product);
    else
        m_apm_round(r, places, product);
}

void m_apm_integer_pow_nr(M_APM r, M_APM_const a, int n) {
    if (n < 0) {
        M_apm_log_error_msg(false, "'m_apm_integer_pow_nr', Negative exponent");
        M_set_to_zero(r);
        return;
    }
    ScratchValue square;
    ScratchValue product;
    ScratchValue step;
    m_apm_copy(square, a);
    m_apm_copy(product, MM_One);
    for (int left = n; left != 0;) {
        if (left % 2 != 0) {
            m_apm_multiply(step, product, square);
            m_apm_copy(product, step);
        }
        left /= 2;
        if (left != 0) {
            m_apm_multiply(step, square, square);
            m_apm_copy(square, step);
        }
    }
    m_apm_copy(r, product);
}

void m_apm_pow(M_APM r, int places, M_APM_const a, M_APM_const b) {
    if (b->sign == 0) {
        m_apm_copy(r, MM_One);
        return;
    }
    if (a->sign == 0) {
        M_set_to_zero(r);
        return;
    }
    if (exponentOf(b) < kSquaringExponent && m_apm_is_integer(b) != 0) {
        m_apm_integer_pow(r, places, a, static_cast<int>(toInteger(b)));
        return;
    }
    if (a->sign < 0) {
        M_apm_log_error_msg(false, "'m_apm_log', Negative argument");
        m_apm_copy(r, MM_One);
        return;
    }
    const FunctionWork work(places, limbCount(b) > limbCount(a) ? b : a);
    if (!work.isAllowed()) {
        M_set_to_zero(r);
        return;
    }
    // The digits before the point of b ln a come on top of those wanted; past a dozen the result overflows.
    const std::int64_t digits = M_digits_for(places) + kGuardDigits / 2;
    const std::int64_t extra = std::clamp<std::int64_t>(exponentOf(b) + 10, 0, 24);
    ScratchValue product;
    ScratchValue result;
    ScratchValue exponent;
    M_round_digits(exponent, b, digits + extra);
    m_apm_multiply(product, exponent, cachedLogarithm(digits + extra, a));
    if (!M_exp(result, digits, product)) {
        M_apm_log_error_msg(false, "'m_apm_exp', Input too large, Overflow");
        M_set_to_zero(r);
        return;
    }
    M_round_guarded(r, places, result);
}
