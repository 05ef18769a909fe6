// Square and cube roots.

#include "fixed.h"
#include "transcendental.h"
#include "work.h"

#include <algorithm>
#include <cmath>

using namespace mapm;

void M_root(M_APM r, std::int64_t digits, M_APM_const a) {
    // 2n limbs of the radicand, its bottom on an even limb, give n limbs of the root.
    const std::int64_t limbs = digits / kLimbDigits + 3;
    const std::int64_t top = a->low + a->count;
    const std::int64_t rootTop = floorDivide(top + 1, 2);
    const std::int64_t low = 2 * (rootTop - limbs);
    Scratch scratch;
    const auto n = static_cast<std::size_t>(limbs);
    Limb* radicand = scratch.takeZeroed(2 * n);
    const std::int64_t offset = a->low - low;
    const std::int64_t skipped = offset < 0 ? -offset : 0;
    copy(radicand + offset + skipped, a->limbs + skipped, static_cast<std::size_t>(a->count - skipped));
    Limb* root = scratch.take(n);
    squareRoot(root, radicand, n);
    M_set_limbs(r, 1, root, n, low / 2);
}

void m_apm_sqrt(M_APM r, int places, M_APM_const a) {
    const FunctionWork work(places, a);
    if (!work.isAllowed()) {
        M_set_to_zero(r);
        return;
    }
    if (a->sign <= 0) {
        if (a->sign < 0) M_apm_log_error_msg(false, "'m_apm_sqrt', Negative argument");
        M_set_to_zero(r);
        return;
    }
    M_root(r, M_digits_for(places), a);
    m_apm_round(r, places, r);
}

namespace {

// y = x^(-1/3) by y' = (4 y - x y^4) / 3, the working precision doubling from a double's 14 digits; x in
// [0.1, 100).
void inverseCubeRoot(M_APM y, std::int64_t digits, M_APM_const x) {
    double significand = 0;
    const std::int64_t power = M_get_double(x, significand);
    M_set_guess(y, 1.0 / std::cbrt(significand * std::pow(10.0, static_cast<double>(power))));
    ScratchValue square;
    ScratchValue fourth;
    ScratchValue argument;
    for (std::int64_t right = 14; right < digits;) {
        right = std::min(digits, 2 * right - 2);
        const std::int64_t working = right + kGuardDigits;
        M_round_digits(argument, x, working);
        m_apm_multiply(square, y, y);
        M_round_digits(square, square, working);
        m_apm_multiply(fourth, square, square);
        M_round_digits(fourth, fourth, working);
        m_apm_multiply(square, argument, fourth);
        M_multiply_small(fourth, y, 4);
        m_apm_subtract(fourth, fourth, square);
        M_quotient(y, working, fourth, MM_Three);
        M_round_digits(y, y, working);
    }
}

} // namespace

void m_apm_cbrt(M_APM r, int places, M_APM_const a) {
    const FunctionWork work(places, a);
    if (!work.isAllowed()) {
        M_set_to_zero(r);
        return;
    }
    if (a->sign == 0) {
        M_set_to_zero(r);
        return;
    }
    const std::int64_t digits = M_digits_for(places) + kGuardDigits;
    const int sign = a->sign;
    const std::int64_t thirds = floorDivide(exponentOf(a), 3);
    ScratchValue radicand;
    ScratchValue inverse;
    ScratchValue root;
    M_round_digits(radicand, a, digits + kGuardDigits);
    radicand->sign = 1;
    M_scale10(radicand, radicand, -3 * thirds);
    inverseCubeRoot(inverse, digits, radicand);
    m_apm_multiply(root, inverse, inverse);
    M_round_digits(root, root, digits + kGuardDigits);
    m_apm_multiply(root, root, radicand);
    root->sign = sign;
    M_scale10(root, root, thirds);
    M_round_guarded(r, places, root);
}
