#pragma once

// Decimal floating point of unlimited length: the arithmetic kernel that everything else in the system
// computes with. A value is sign x 0.d1d2d3... x 10^exponent with as many digits as it needs; there is no
// binary rounding anywhere. Values are objects behind the handle M_APM, made by m_apm_init and freed by
// m_apm_free. The result parameter comes first; it may be the same object as an operand.
//
// Threads: one process-wide lock guards the kernel's scratch values and constants. Plain functions are called
// between m_apm_enter and m_apm_leave; the `_mt` twins take the lock themselves and must not be called there,
// because the lock is not recursive. Queries of one value (m_apm_sign, m_apm_compare, ...) touch nothing
// shared, and are safe without the lock on values that nobody changes meanwhile.
//
// `places` is the number of digits behind the first one, as in scientific notation, but in the plain text
// forms, where it counts decimals.
//
// Bad input (a zero divisor, a negative root, ...) prints one warning on standard error and gives 0. Only
// running out of memory ends the process, with exit code 100.

#include <cstdint>

struct M_APM_struct;
using M_APM = M_APM_struct*;
using M_APM_const = const M_APM_struct*;

// Exponents stay within +-MM_MAX_EXPONENT. A result beyond keeps its digits and gets the nearest exponent in
// range; m_apm_is_saturated tells. No operation on exponents overflows.
inline constexpr std::int64_t MM_MAX_EXPONENT = 2'147'483'520;

// Creates the lock; called once, before anything else. m_apm_free_semaphore ends its use.
void m_apm_init_semaphore();
void m_apm_free_semaphore();

// Takes and releases the lock, for a run of plain calls.
void m_apm_enter();
void m_apm_leave();

// Frees scratch values, constants and tables. Values of callers stay theirs. The next m_apm_init starts anew.
void m_apm_free_all_mem();
void m_apm_free_all_mem_mt();

// The one path of reports: `MAPM Warning: ...` on standard error while warnings are wanted, or, when fatal,
// `MAPM Error: ...` and the end of the process.
void M_apm_log_error_msg(bool fatal, const char* message);

// Whether warnings are wanted. They aren't from the start: every operation gives a defined value without
// them. Set before the kernel is used.
void m_apm_set_warnings_enabled(bool enabled);

// What a host wants to happen instead when there is no memory: it may throw, and must not return. Null, as at
// first, for the message and the end. Before other threads start.
void m_apm_set_out_of_memory_handler(void (*handler)());

// Constants, made by the first m_apm_init and read-only afterwards.
extern M_APM MM_Zero, MM_One, MM_Two, MM_Three, MM_Four, MM_Five, MM_Ten;
extern M_APM MM_0_5, MM_0_85;
extern M_APM MM_5x_125R, MM_5x_64R, MM_5x_256R, MM_5x_Eight, MM_5x_Sixteen, MM_5x_Twenty;
extern M_APM MM_PI, MM_HALF_PI, MM_2_PI, MM_E;
extern M_APM MM_LOG_2_BASE_E, MM_LOG_3_BASE_E, MM_LOG_10_BASE_E, MM_LOG_E_BASE_10;

// Working values that are recomputed when an operation needs more digits than the counts tell. MM_lc_log10R
// is 1 / ln 10.
extern M_APM MM_lc_PI, MM_lc_HALF_PI, MM_lc_2_PI, MM_lc_log2, MM_lc_log10, MM_lc_log10R;
extern int MM_lc_PI_digits, MM_lc_log_digits;

// Objects and conversion.

// A new value 0, owned by the caller. The first call also builds the constants.
M_APM m_apm_init();
M_APM m_apm_init_mt();

// Frees x. A handle that is not live gets a warning and nothing is freed; null is ignored.
void m_apm_free(M_APM x);
void m_apm_free_mt(M_APM x);

void m_apm_copy(M_APM r, M_APM_const a);
void m_apm_copy_mt(M_APM r, M_APM_const a);
void m_apm_set_long(M_APM r, long value);
void m_apm_set_long_mt(M_APM r, long value);
// Takes 15 significant digits. NaN and the infinities give a warning and 0.
void m_apm_set_double(M_APM r, double value);
void m_apm_set_double_mt(M_APM r, double value);

// Reads `[spaces][+|-]digits[.digits][e[+|-]digits]`, in time linear in the text. A text that is not a
// number gives three warnings and 0; an empty text gives 0. Exponents saturate (see MM_MAX_EXPONENT).
void m_apm_set_string(M_APM r, const char* text);
void m_apm_set_string_mt(M_APM r, const char* text);

// Scientific text, `d.dddE+n`, rounded to `places`; negative `places` writes all digits. `out` needs
// max(places, significant digits) + 20 bytes.
void m_apm_to_string(char* out, int places, M_APM_const x);
void m_apm_to_string_mt(char* out, int places, M_APM_const x);

// Plain text with exactly `places` decimals (here: digits behind the point), halves away from zero; negative
// `places` writes all digits and at least one decimal. `out` needs m_apm_fixpt_length(places, x) + 1 bytes.
void m_apm_to_fixpt_string(char* out, int places, M_APM_const x);
void m_apm_to_fixpt_string_mt(char* out, int places, M_APM_const x);

// The same with `radixChar` for the point and `separatorChar` between groups of `groupCount` integer digits;
// 0 for either means no groups. Never writes a minus sign before a text whose digits are all 0. `out` needs
// 2 * m_apm_fixpt_length(places, x) + 1 bytes at most.
void m_apm_to_fixpt_stringex(char* out, int places, M_APM_const x, char radixChar, char separatorChar,
                             int groupCount);
void m_apm_to_fixpt_stringex_mt(char* out, int places, M_APM_const x, char radixChar, char separatorChar,
                                int groupCount);

// The same into a new buffer, which the caller gives to `free`.
char* m_apm_to_fixpt_stringexp(int places, M_APM_const x, char radixChar, char separatorChar, int groupCount);
char* m_apm_to_fixpt_stringexp_mt(int places, M_APM_const x, char radixChar, char separatorChar,
                                  int groupCount);

// The integer part, cut toward zero. `out` needs max(m_apm_exponent(x), 0) + 3 bytes.
void m_apm_to_integer_string(char* out, M_APM_const x);
void m_apm_to_integer_string_mt(char* out, M_APM_const x);

// Exact operations: the result has as many digits as it needs. Digits are aligned exactly, so that
// 10^1000000 + 1 has a million of them: a caller who must bound memory asks the ..._digit_bound queries
// first.

void m_apm_add(M_APM r, M_APM_const a, M_APM_const b);
void m_apm_add_mt(M_APM r, M_APM_const a, M_APM_const b);
void m_apm_subtract(M_APM r, M_APM_const a, M_APM_const b);
void m_apm_subtract_mt(M_APM r, M_APM_const a, M_APM_const b);
void m_apm_multiply(M_APM r, M_APM_const a, M_APM_const b);
void m_apm_multiply_mt(M_APM r, M_APM_const a, M_APM_const b);
void m_apm_negate(M_APM r, M_APM_const a);
void m_apm_negate_mt(M_APM r, M_APM_const a);
void m_apm_absolute_value(M_APM r, M_APM_const a);
void m_apm_absolute_value_mt(M_APM r, M_APM_const a);
void m_apm_floor(M_APM r, M_APM_const a);
void m_apm_floor_mt(M_APM r, M_APM_const a);
void m_apm_ceil(M_APM r, M_APM_const a);
void m_apm_ceil_mt(M_APM r, M_APM_const a);
// 1 for any a <= 1. The caller checks that a is an integer.
void m_apm_factorial(M_APM r, M_APM_const a);
void m_apm_factorial_mt(M_APM r, M_APM_const a);

// a / b cut toward zero. A zero divisor warns and gives 0.
void m_apm_integer_divide(M_APM r, M_APM_const a, M_APM_const b);
void m_apm_integer_divide_mt(M_APM r, M_APM_const a, M_APM_const b);

// quotient as above; remainder = a - quotient * b, with the sign of a. The two results differ from each
// other.
void m_apm_integer_div_rem(M_APM quotient, M_APM remainder, M_APM_const a, M_APM_const b);
void m_apm_integer_div_rem_mt(M_APM quotient, M_APM remainder, M_APM_const a, M_APM_const b);

// a to the power n, exact. A negative n warns and gives 0.
void m_apm_integer_pow_nr(M_APM r, M_APM_const a, int n);
void m_apm_integer_pow_nr_mt(M_APM r, M_APM_const a, int n);

// Queries.

// -1, 0 or 1, in the order of the values.
int m_apm_compare(M_APM_const a, M_APM_const b);
int m_apm_compare_mt(M_APM_const a, M_APM_const b);

// -1, 0 or 1.
int m_apm_sign(M_APM_const x);
int m_apm_sign_mt(M_APM_const x);

// The scientific exponent (1 has 0, 0.05 has -2); 0 for zero.
int m_apm_exponent(M_APM_const x);
int m_apm_exponent_mt(M_APM_const x);

// Digits from the first one that isn't 0 to the last one that isn't; 1 for zero.
int m_apm_significant_digits(M_APM_const x);
int m_apm_significant_digits_mt(M_APM_const x);

// 1 or 0.
int m_apm_is_integer(M_APM_const x);
int m_apm_is_integer_mt(M_APM_const x);

// 1 or 0. A value that isn't an integer warns and gives 0.
int m_apm_is_even(M_APM_const x);
int m_apm_is_even_mt(M_APM_const x);

// The opposite of m_apm_is_even, also for a value that isn't an integer.
int m_apm_is_odd(M_APM_const x);
int m_apm_is_odd_mt(M_APM_const x);

// Operations with a precision. A result has at most `places` + 1 significant digits, rounded half away from
// zero; m_apm_divide tells where it differs. Angles are in radians; beyond
// 10^100000 an angle counts as a number of whole turns. Negative `places` count as 0 but in m_apm_round.

void m_apm_round(M_APM r, int places, M_APM_const a);
void m_apm_round_mt(M_APM r, int places, M_APM_const a);
// Keeps `places` + 1 digits, and as many more as a's exponent exceeds b's. Up to 249 places the quotient is
// cut, beyond that it is rounded. A zero divisor warns and gives 0.
void m_apm_divide(M_APM r, int places, M_APM_const a, M_APM_const b);
void m_apm_divide_mt(M_APM r, int places, M_APM_const a, M_APM_const b);

// Rounded at every number of places. Zero warns and gives 0.
void m_apm_reciprocal(M_APM r, int places, M_APM_const a);
void m_apm_reciprocal_mt(M_APM r, int places, M_APM_const a);

// A negative argument warns and gives 0.
void m_apm_sqrt(M_APM r, int places, M_APM_const a);
void m_apm_sqrt_mt(M_APM r, int places, M_APM_const a);

// Takes the sign of a.
void m_apm_cbrt(M_APM r, int places, M_APM_const a);
void m_apm_cbrt_mt(M_APM r, int places, M_APM_const a);

// Warns and gives 0 when a / ln 2 doesn't fit 32 bits.
void m_apm_exp(M_APM r, int places, M_APM_const a);
void m_apm_exp_mt(M_APM r, int places, M_APM_const a);

// Natural logarithm. Zero and negative arguments warn and give 0.
void m_apm_log(M_APM r, int places, M_APM_const a);
void m_apm_log_mt(M_APM r, int places, M_APM_const a);

void m_apm_log10(M_APM r, int places, M_APM_const a);
void m_apm_log10_mt(M_APM r, int places, M_APM_const a);
// a to the power b; anything to the power 0 is 1. Integer powers of under 8 digits go by repeated squaring,
// all others by e^(b ln a), so that a negative a must be kept away by the caller.
void m_apm_pow(M_APM r, int places, M_APM_const a, M_APM_const b);
void m_apm_pow_mt(M_APM r, int places, M_APM_const a, M_APM_const b);

// Repeated squaring, each step rounded to `places` + 8; a negative n takes the reciprocal last.
void m_apm_integer_pow(M_APM r, int places, M_APM_const a, int n);
void m_apm_integer_pow_mt(M_APM r, int places, M_APM_const a, int n);

void m_apm_sin(M_APM r, int places, M_APM_const a);
void m_apm_sin_mt(M_APM r, int places, M_APM_const a);
void m_apm_cos(M_APM r, int places, M_APM_const a);
void m_apm_cos_mt(M_APM r, int places, M_APM_const a);
void m_apm_tan(M_APM r, int places, M_APM_const a);
void m_apm_tan_mt(M_APM r, int places, M_APM_const a);
void m_apm_sin_cos(M_APM sinResult, M_APM cosResult, int places, M_APM_const a);
void m_apm_sin_cos_mt(M_APM sinResult, M_APM cosResult, int places, M_APM_const a);
// |a| > 1 warns and gives 0.
void m_apm_arcsin(M_APM r, int places, M_APM_const a);
void m_apm_arcsin_mt(M_APM r, int places, M_APM_const a);

// |a| > 1 warns and gives 0.
void m_apm_arccos(M_APM r, int places, M_APM_const a);
void m_apm_arccos_mt(M_APM r, int places, M_APM_const a);

void m_apm_arctan(M_APM r, int places, M_APM_const a);
void m_apm_arctan_mt(M_APM r, int places, M_APM_const a);
// The angle of the point (x, y), in (-pi, pi]. Both 0 warns and gives 0.
void m_apm_arctan2(M_APM r, int places, M_APM_const y, M_APM_const x);
void m_apm_arctan2_mt(M_APM r, int places, M_APM_const y, M_APM_const x);

void m_apm_sinh(M_APM r, int places, M_APM_const a);
void m_apm_sinh_mt(M_APM r, int places, M_APM_const a);
void m_apm_cosh(M_APM r, int places, M_APM_const a);
void m_apm_cosh_mt(M_APM r, int places, M_APM_const a);
void m_apm_tanh(M_APM r, int places, M_APM_const a);
void m_apm_tanh_mt(M_APM r, int places, M_APM_const a);
void m_apm_arcsinh(M_APM r, int places, M_APM_const a);
void m_apm_arcsinh_mt(M_APM r, int places, M_APM_const a);
// a < 1 warns and gives 0.
void m_apm_arccosh(M_APM r, int places, M_APM_const a);
void m_apm_arccosh_mt(M_APM r, int places, M_APM_const a);

// |a| >= 1 warns and gives 0.
void m_apm_arctanh(M_APM r, int places, M_APM_const a);
void m_apm_arctanh_mt(M_APM r, int places, M_APM_const a);

// Bounds, in digits, that cost next to nothing: a caller refuses an operation whose result would be too long
// before it is made. Each is at least the true figure and exceeds it by a few digits at most, but where
// noted.

// The significant digits of x; exceeds them by less than 36.
std::int64_t m_apm_digit_bound(M_APM_const x);
std::int64_t m_apm_digit_bound_mt(M_APM_const x);

// For m_apm_add and m_apm_subtract: grows with the gap between the exponents.
std::int64_t m_apm_sum_digit_bound(M_APM_const a, M_APM_const b);
std::int64_t m_apm_sum_digit_bound_mt(M_APM_const a, M_APM_const b);

std::int64_t m_apm_product_digit_bound(M_APM_const a, M_APM_const b);
std::int64_t m_apm_product_digit_bound_mt(M_APM_const a, M_APM_const b);
// For m_apm_divide at `places`. m_apm_integer_divide and m_apm_integer_div_rem stay below
// max(0, m_apm_exponent(a) - m_apm_exponent(b)) + 2 digits, the remainder below m_apm_sum_digit_bound(a, b).
std::int64_t m_apm_quotient_digit_bound(int places, M_APM_const a, M_APM_const b);
std::int64_t m_apm_quotient_digit_bound_mt(int places, M_APM_const a, M_APM_const b);

// For m_apm_integer_pow_nr, n >= 0. Exact for powers of ten, else at most one digit in n too many.
std::int64_t m_apm_power_digit_bound(M_APM_const a, std::int64_t n);
std::int64_t m_apm_power_digit_bound_mt(M_APM_const a, std::int64_t n);

// Digits of a! with its trailing zeros. INT64_MAX when a is out of all measure.
std::int64_t m_apm_factorial_digit_bound(M_APM_const a);
std::int64_t m_apm_factorial_digit_bound_mt(M_APM_const a);

// Characters of m_apm_to_fixpt_string, with sign and point, without the final 0.
std::int64_t m_apm_fixpt_length(int places, M_APM_const x);
std::int64_t m_apm_fixpt_length_mt(int places, M_APM_const x);

// 1 when the exponent of x met MM_MAX_EXPONENT or its negative, so that the value is not the true result.
int m_apm_is_saturated(M_APM_const x);
int m_apm_is_saturated_mt(M_APM_const x);
