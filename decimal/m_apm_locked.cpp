#include "m_apm.h"

#include <mutex>

namespace {

// Shared for the life of the process; never destroyed, so that a late thread can still lock it.
std::mutex& kernelMutex() {
    static std::mutex& mutex = *new std::mutex;
    return mutex;
}

using Locked = std::lock_guard<std::mutex>;

} // namespace

void m_apm_init_semaphore() {
    kernelMutex();
}
void m_apm_free_semaphore() {}
void m_apm_enter() {
    kernelMutex().lock();
}
void m_apm_leave() {
    kernelMutex().unlock();
}

void m_apm_free_all_mem_mt() {
    const Locked lock(kernelMutex());
    m_apm_free_all_mem();
}

M_APM m_apm_init_mt() {
    const Locked lock(kernelMutex());
    return m_apm_init();
}

void m_apm_free_mt(M_APM x) {
    const Locked lock(kernelMutex());
    m_apm_free(x);
}

void m_apm_copy_mt(M_APM r, M_APM_const a) {
    const Locked lock(kernelMutex());
    m_apm_copy(r, a);
}

void m_apm_set_long_mt(M_APM r, long value) {
    const Locked lock(kernelMutex());
    m_apm_set_long(r, value);
}

void m_apm_set_double_mt(M_APM r, double value) {
    const Locked lock(kernelMutex());
    m_apm_set_double(r, value);
}

void m_apm_set_string_mt(M_APM r, const char* text) {
    const Locked lock(kernelMutex());
    m_apm_set_string(r, text);
}

void m_apm_to_string_mt(char* out, int places, M_APM_const x) {
    const Locked lock(kernelMutex());
    m_apm_to_string(out, places, x);
}

void m_apm_to_fixpt_string_mt(char* out, int places, M_APM_const x) {
    const Locked lock(kernelMutex());
    m_apm_to_fixpt_string(out, places, x);
}

void m_apm_to_fixpt_stringex_mt(char* out, int places, M_APM_const x, char radixChar, char separatorChar,
                                int groupCount) {
    const Locked lock(kernelMutex());
    m_apm_to_fixpt_stringex(out, places, x, radixChar, separatorChar, groupCount);
}

char* m_apm_to_fixpt_stringexp_mt(int places, M_APM_const x, char radixChar, char separatorChar,
                                  int groupCount) {
    const Locked lock(kernelMutex());
    return m_apm_to_fixpt_stringexp(places, x, radixChar, separatorChar, groupCount);
}

void m_apm_to_integer_string_mt(char* out, M_APM_const x) {
    const Locked lock(kernelMutex());
    m_apm_to_integer_string(out, x);
}

void m_apm_add_mt(M_APM r, M_APM_const a, M_APM_const b) {
    const Locked lock(kernelMutex());
    m_apm_add(r, a, b);
}

void m_apm_subtract_mt(M_APM r, M_APM_const a, M_APM_const b) {
    const Locked lock(kernelMutex());
    m_apm_subtract(r, a, b);
}

void m_apm_multiply_mt(M_APM r, M_APM_const a, M_APM_const b) {
    const Locked lock(kernelMutex());
    m_apm_multiply(r, a, b);
}

void m_apm_negate_mt(M_APM r, M_APM_const a) {
    const Locked lock(kernelMutex());
    m_apm_negate(r, a);
}

void m_apm_absolute_value_mt(M_APM r, M_APM_const a) {
    const Locked lock(kernelMutex());
    m_apm_absolute_value(r, a);
}

void m_apm_floor_mt(M_APM r, M_APM_const a) {
    const Locked lock(kernelMutex());
    m_apm_floor(r, a);
}

void m_apm_ceil_mt(M_APM r, M_APM_const a) {
    const Locked lock(kernelMutex());
    m_apm_ceil(r, a);
}

void m_apm_factorial_mt(M_APM r, M_APM_const a) {
    const Locked lock(kernelMutex());
    m_apm_factorial(r, a);
}

void m_apm_integer_divide_mt(M_APM r, M_APM_const a, M_APM_const b) {
    const Locked lock(kernelMutex());
    m_apm_integer_divide(r, a, b);
}

void m_apm_integer_div_rem_mt(M_APM quotient, M_APM remainder, M_APM_const a, M_APM_const b) {
    const Locked lock(kernelMutex());
    m_apm_integer_div_rem(quotient, remainder, a, b);
}

void m_apm_integer_pow_nr_mt(M_APM r, M_APM_const a, int n) {
    const Locked lock(kernelMutex());
    m_apm_integer_pow_nr(r, a, n);
}

int m_apm_compare_mt(M_APM_const a, M_APM_const b) {
    const Locked lock(kernelMutex());
    return m_apm_compare(a, b);
}

int m_apm_sign_mt(M_APM_const x) {
    const Locked lock(kernelMutex());
    return m_apm_sign(x);
}

int m_apm_exponent_mt(M_APM_const x) {
    const Locked lock(kernelMutex());
    return m_apm_exponent(x);
}

std::int64_t m_apm_digit_bound_mt(M_APM_const x) {
    const Locked lock(kernelMutex());
    return m_apm_digit_bound(x);
}

int m_apm_significant_digits_mt(M_APM_const x) {
    const Locked lock(kernelMutex());
    return m_apm_significant_digits(x);
}

int m_apm_is_integer_mt(M_APM_const x) {
    const Locked lock(kernelMutex());
    return m_apm_is_integer(x);
}

int m_apm_is_even_mt(M_APM_const x) {
    const Locked lock(kernelMutex());
    return m_apm_is_even(x);
}

int m_apm_is_odd_mt(M_APM_const x) {
    const Locked lock(kernelMutex());
    return m_apm_is_odd(x);
}

void m_apm_round_mt(M_APM r, int places, M_APM_const a) {
    const Locked lock(kernelMutex());
    m_apm_round(r, places, a);
}

void m_apm_divide_mt(M_APM r, int places, M_APM_const a, M_APM_const b) {
    const Locked lock(kernelMutex());
    m_apm_divide(r, places, a, b);
}

void m_apm_reciprocal_mt(M_APM r, int places, M_APM_const a) {
    const Locked lock(kernelMutex());
    m_apm_reciprocal(r, places, a);
}

void m_apm_sqrt_mt(M_APM r, int places, M_APM_const a) {
    const Locked lock(kernelMutex());
    m_apm_sqrt(r, places, a);
}

void m_apm_cbrt_mt(M_APM r, int places, M_APM_const a) {
    const Locked lock(kernelMutex());
    m_apm_cbrt(r, places, a);
}

void m_apm_exp_mt(M_APM r, int places, M_APM_const a) {
    const Locked lock(kernelMutex());
    m_apm_exp(r, places, a);
}

void m_apm_log_mt(M_APM r, int places, M_APM_const a) {
    const Locked lock(kernelMutex());
    m_apm_log(r, places, a);
}

void m_apm_log10_mt(M_APM r, int places, M_APM_const a) {
    const Locked lock(kernelMutex());
    m_apm_log10(r, places, a);
}

void m_apm_pow_mt(M_APM r, int places, M_APM_const a, M_APM_const b) {
    const Locked lock(kernelMutex());
    m_apm_pow(r, places, a, b);
}

void m_apm_integer_pow_mt(M_APM r, int places, M_APM_const a, int n) {
    const Locked lock(kernelMutex());
    m_apm_integer_pow(r, places, a, n);
}

void m_apm_sin_mt(M_APM r, int places, M_APM_const a) {
    const Locked lock(kernelMutex());
    m_apm_sin(r, places, a);
}

void m_apm_cos_mt(M_APM r, int places, M_APM_const a) {
    const Locked lock(kernelMutex());
    m_apm_cos(r, places, a);
}

void m_apm_tan_mt(M_APM r, int places, M_APM_const a) {
    const Locked lock(kernelMutex());
    m_apm_tan(r, places, a);
}

void m_apm_sin_cos_mt(M_APM sinResult, M_APM cosResult, int places, M_APM_const a) {
    const Locked lock(kernelMutex());
    m_apm_sin_cos(sinResult, cosResult, places, a);
}

void m_apm_arcsin_mt(M_APM r, int places, M_APM_const a) {
    const Locked lock(kernelMutex());
    m_apm_arcsin(r, places, a);
}

void m_apm_arccos_mt(M_APM r, int places, M_APM_const a) {
    const Locked lock(kernelMutex());
    m_apm_arccos(r, places, a);
}

void m_apm_arctan_mt(M_APM r, int places, M_APM_const a) {
    const Locked lock(kernelMutex());
    m_apm_arctan(r, places, a);
}

void m_apm_arctan2_mt(M_APM r, int places, M_APM_const y, M_APM_const x) {
    const Locked lock(kernelMutex());
    m_apm_arctan2(r, places, y, x);
}

void m_apm_sinh_mt(M_APM r, int places, M_APM_const a) {
    const Locked lock(kernelMutex());
    m_apm_sinh(r, places, a);
}

void m_apm_cosh_mt(M_APM r, int places, M_APM_const a) {
    const Locked lock(kernelMutex());
    m_apm_cosh(r, places, a);
}

void m_apm_tanh_mt(M_APM r, int places, M_APM_const a) {
    const Locked lock(kernelMutex());
    m_apm_tanh(r, places, a);
}

void m_apm_arcsinh_mt(M_APM r, int places, M_APM_const a) {
    const Locked lock(kernelMutex());
    m_apm_arcsinh(r, places, a);
}

void m_apm_arccosh_mt(M_APM r, int places, M_APM_const a) {
    const Locked lock(kernelMutex());
    m_apm_arccosh(r, places, a);
}

void m_apm_arctanh_mt(M_APM r, int places, M_APM_const a) {
    const Locked lock(kernelMutex());
    m_apm_arctanh(r, places, a);
}

std::int64_t m_apm_sum_digit_bound_mt(M_APM_const a, M_APM_const b) {
    const Locked lock(kernelMutex());
    return m_apm_sum_digit_bound(a, b);
}

std::int64_t m_apm_product_digit_bound_mt(M_APM_const a, M_APM_const b) {
    const Locked lock(kernelMutex());
    return m_apm_product_digit_bound(a, b);
}

std::int64_t m_apm_quotient_digit_bound_mt(int places, M_APM_const a, M_APM_const b) {
    const Locked lock(kernelMutex());
    return m_apm_quotient_digit_bound(places, a, b);
}

std::int64_t m_apm_power_digit_bound_mt(M_APM_const a, std::int64_t n) {
    const Locked lock(kernelMutex());
    return m_apm_power_digit_bound(a, n);
}

std::int64_t m_apm_factorial_digit_bound_mt(M_APM_const a) {
    const Locked lock(kernelMutex());
    return m_apm_factorial_digit_bound(a);
}

std::int64_t m_apm_fixpt_length_mt(int places, M_APM_const x) {
    const Locked lock(kernelMutex());
    return m_apm_fixpt_length(places, x);
}

int m_apm_is_saturated_mt(M_APM_const x) {
    const Locked lock(kernelMutex());
    return m_apm_is_saturated(x);
}
