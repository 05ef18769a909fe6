#pragma once

// The working forms of the functions, used by each other and rounded by the public ones. Each takes a count
// of significant digits and delivers at least that many right ones and some guard digits behind them,
// unrounded. Results are scratch or public values that are no operand. Under the kernel's lock.

#include "m_apm_fields.h"

// Wrong units at the end of a working result are fewer than these digits can hold.
inline constexpr std::int64_t kGuardDigits = 12;

// Significant digits of a result at `places`; negative places count as 0.
inline std::int64_t M_digits_for(int places) {
    return (places < 0 ? 0 : std::int64_t{places}) + 1;
}

// r = z (1 +- z^2 / 3 + z^4 / 5 +- ...): arctan when alternating, artanh otherwise; |z| below 0.2.
void M_arc_series(M_APM r, std::int64_t digits, M_APM_const z, bool alternating);

// False, with no result, when the exponent's range is left; the caller warns.
[[nodiscard]] bool M_exp(M_APM r, std::int64_t digits, M_APM_const a);

// a > 0.
void M_log(M_APM r, std::int64_t digits, M_APM_const a);

// Sine and cosine of |a| <= 0.8.
void M_sin_reduced(M_APM r, std::int64_t digits, M_APM_const a);
void M_cos_reduced(M_APM r, std::int64_t digits, M_APM_const a);

void M_arctan(M_APM r, std::int64_t digits, M_APM_const a);

// True when a is so small that f(a) = a (1 + c a^2 + ...) is a to `digits` digits.
inline bool M_is_negligible_square(std::int64_t digits, M_APM_const a) {
    return -2 * mapm::exponentOf(a) > digits + kGuardDigits;
}

// r += a where a may be too small to matter for `digits` digits: no alignment over great gaps.
void M_add_significant(M_APM r, std::int64_t digits, M_APM_const a);

// Rounds a working result that may be an exact value a hair off: once at the guard digits, then at the digits
// wanted, so that halves go the right way.
void M_round_guarded(M_APM r, int places, M_APM_const a);
