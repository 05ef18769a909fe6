#pragma once

// The object behind the handle M_APM, and the kernel's inner functions on it. Included by the kernel's
// sources alone. All but the plain readers work under the kernel's lock.

#include "limbs.h"
#include "m_apm.h"

inline constexpr int kInlineLimbs = 14;

// value = sign x (sum of limbs[i] x 10^(18 (low + i))). Limbs stand on multiples of 18 decimal positions, so
// that sums and products need no digit shifts. Normal form: the top and the bottom limb aren't 0; zero has
// sign 0, no limbs and low 0. Position p below means the digit of weight 10^p.
struct M_APM_struct {
    mapm::Limb* limbs;
    std::uint64_t ident;
    std::int64_t low;
    std::int64_t count;
    std::int64_t capacity;
    int sign;
    // 14 limbs hold any product of two values of 101 digits without an allocation.
    mapm::Limb inlineLimbs[kInlineLimbs];
};

namespace mapm {

inline constexpr std::uint64_t kLiveIdent = 0x6BCC9AE5;
inline constexpr std::uint64_t kFreedIdent = 0x0FFFFFF0;

// The limb above a value's top stays within these bounds, and its decimal exponent within MM_MAX_EXPONENT.
inline constexpr std::int64_t kMaxTop = MM_MAX_EXPONENT / kLimbDigits;

inline std::size_t limbCount(M_APM_const x) {
    return static_cast<std::size_t>(x->count);
}

// Exponent e of 0.d1d2... x 10^e; 0 for zero.
inline std::int64_t exponentOf(M_APM_const x) {
    if (x->sign == 0) return 0;
    return (x->low + x->count - 1) * kLimbDigits + limbDigits(x->limbs[x->count - 1]);
}

// Position of the last digit that isn't 0, for a value that isn't zero.
inline std::int64_t lastPosition(M_APM_const x) {
    return x->low * kLimbDigits + trailingZeros(x->limbs[0]);
}

inline std::int64_t digitCountOf(M_APM_const x) {
    return x->sign == 0 ? 1 : exponentOf(x) - lastPosition(x);
}

// floor(a / b) for b > 0.
inline std::int64_t floorDivide(std::int64_t a, std::int64_t b) {
    return a >= 0 ? a / b : -((-a + b - 1) / b);
}

} // namespace mapm

// Makes one value, with no tables built.
M_APM M_new_value();

// Gives back the limbs of x, which becomes 0.
void M_shrink(M_APM x);

// Room for n limbs, contents undefined; `message` is the fatal one when there is no memory.
mapm::Limb* M_prepare(M_APM x, std::size_t n, const char* message);

// Sets x to zero.
void M_set_to_zero(M_APM x);

// Restores the normal form from limbs, count, low and sign, and brings the exponent back into its range.
void M_apm_normalize(M_APM x);

// x = sign x limbs x 10^(18 low), copied and normalised.
void M_set_limbs(M_APM x, int sign, const mapm::Limb* limbs, std::size_t n, std::int64_t low);

// r = a with its exponent increased by `shift` whole limbs, or by any number of digits.
void M_shift_limbs(M_APM r, std::int64_t shift);
void M_scale10(M_APM r, M_APM_const a, std::int64_t shift);

// |a| against |b|: -1, 0 or 1.
int M_compare_magnitude(M_APM_const a, M_APM_const b);

// r = a to a multiple of 10^position, halves away from zero, or cut toward zero. r may be a.
void M_round_at(M_APM r, M_APM_const a, std::int64_t position);
void M_cut_at(M_APM r, M_APM_const a, std::int64_t position);

// r = a with `digits` significant digits, rounded or cut.
void M_round_digits(M_APM r, M_APM_const a, std::int64_t digits);
void M_cut_digits(M_APM r, M_APM_const a, std::int64_t digits);

// r = a / b, floor of the magnitude at a limb that lies below at least `digits` + 1 significant digits:
// cutting or rounding it to `digits` gives what the true quotient would. b isn't zero.
void M_quotient(M_APM r, std::int64_t digits, M_APM_const a, M_APM_const b);

// floor of the root's magnitude, likewise; a is positive.
void M_root(M_APM r, std::int64_t digits, M_APM_const a);

// Exact small cases: r = a x factor for 0 <= factor < 10^18; r = a / divisor cut below `digits` digits.
void M_multiply_small(M_APM r, M_APM_const a, mapm::Limb factor);

// The value as a double, for first guesses: magnitude in [1, 10) in `significand`, power of ten returned.
std::int64_t M_get_double(M_APM_const a, double& significand);

// A double as an exact decimal fraction of 10^-17 units, for |value| below 90.
void M_set_guess(M_APM r, double value);

// -1, beside the public constants.
extern M_APM MM_Minus_One;

// The working constants to at least `digits` digits behind the point.
void M_check_PI_places(std::int64_t digits);
void M_check_log_places(std::int64_t digits);

// Builds and frees the constants.
void M_init_constants();
void M_free_constants();

// Frees what pow keeps of its last base.
void M_free_power_cache();
