// Quotients, reciprocals and integer division. All of them come from one exact division of limbs: its floor
// is taken far enough down that cutting or rounding it gives the digits of the true quotient.

#include "m_apm_fields.h"
#include "scratch.h"
#include "work.h"

#include <algorithm>

using namespace mapm;

namespace {

// Up to here quotients are cut, beyond they are rounded.
constexpr int kMaxCutPlaces = 249;

enum class Remainder : std::int32_t { Ignored = 0, Tested = 1 };

// r = floor(|a| / |b|) at limb `low` of the quotient. With the remainder tested, returns true when the
// division ended there exactly.
bool divideDownTo(M_APM r, M_APM_const a, M_APM_const b, std::int64_t low, Remainder remainder) {
    // The quotient's bottom limb has weight a.low - shift - b.low.
    const std::int64_t shift = a->low - b->low - low;
    const std::int64_t dividendLimbs = a->count + shift;
    const int sign = a->sign * b->sign;
    if (dividendLimbs < b->count) {
        M_set_to_zero(r);
        return false;
    }
    const auto na = static_cast<std::size_t>(dividendLimbs);
    const std::size_t nb = limbCount(b);
    if (!chargeQuotient(na - nb + 1, nb)) {
        M_set_to_zero(r);
        return false;
    }
    const bool tested = remainder == Remainder::Tested;
    Scratch scratch;
    Limb* dividend = scratch.take(na);
    if (shift >= 0) {
        clear(dividend, static_cast<std::size_t>(shift));
        copy(dividend + shift, a->limbs, limbCount(a));
    } else {
        copy(dividend, a->limbs - shift, na);
    }
    Limb* quotient = scratch.take(na - nb + 1);
    divide(quotient, dividend, na, b->limbs, nb, tested);
    M_set_limbs(r, sign, quotient, na - nb + 1, low);
    return tested && shift >= 0 && trimmed(dividend, nb) == 0;
}

// Long results often end early, as 10^1000000 / 4 does: looks before their memory is taken. `top` is the
// index of the limb above the quotient, `low` the lowest one wanted.
void divideLookingAhead(M_APM r, M_APM_const a, M_APM_const b, std::int64_t top, std::int64_t low) {
    const std::int64_t brief = a->count + 2 * b->count + 8;
    if (top - low > 4 * brief) {
        ScratchValue early;
        if (divideDownTo(early, a, b, top - brief, Remainder::Tested)) {
            m_apm_copy(r, early);
            return;
        }
    }
    divideDownTo(r, a, b, low, Remainder::Ignored);
}

std::int64_t topOf(M_APM_const x) {
    return x->low + x->count;
}

std::int64_t quotientDigits(int places, M_APM_const a, M_APM_const b) {
    return std::max<std::int64_t>(places, 0) + 1 + std::max<std::int64_t>(0, exponentOf(a) - exponentOf(b));
}

} // namespace

void M_quotient(M_APM r, std::int64_t digits, M_APM_const a, M_APM_const b) {
    // The quotient's exponent is the difference of the exponents or one more; one digit more decides a
    // rounding.
    const std::int64_t last = exponentOf(a) - exponentOf(b) - digits - 1;
    divideLookingAhead(r, a, b, topOf(a) - topOf(b) + 1, floorDivide(last, kLimbDigits));
}

void m_apm_divide(M_APM r, int places, M_APM_const a, M_APM_const b) {
    if (b->sign == 0) {
        M_apm_log_error_msg(false, "'m_apm_divide', Divide by 0");
        M_set_to_zero(r);
        return;
    }
    if (a->sign == 0) {
        M_set_to_zero(r);
        return;
    }
    const std::int64_t digits = quotientDigits(places, a, b);
    M_quotient(r, digits, a, b);
    if (places <= kMaxCutPlaces)
        M_cut_digits(r, r, digits);
    else
        M_round_digits(r, r, digits);
}

void m_apm_reciprocal(M_APM r, int places, M_APM_const a) {
    if (a->sign == 0) {
        M_apm_log_error_msg(false, "'m_apm_reciprocal', Input = 0");
        M_set_to_zero(r);
        return;
    }
    const std::int64_t digits = std::max<std::int64_t>(places, 0) + 1;
    M_quotient(r, digits, MM_One, a);
    M_round_digits(r, r, digits);
}

void m_apm_integer_divide(M_APM r, M_APM_const a, M_APM_const b) {
    if (b->sign == 0) {
        M_apm_log_error_msg(false, "'M_apm_sdivide', Divide by 0");
        M_set_to_zero(r);
        return;
    }
    if (a->sign == 0 || M_compare_magnitude(a, b) < 0) {
        M_set_to_zero(r);
        return;
    }
    divideLookingAhead(r, a, b, topOf(a) - topOf(b) + 1, 0);
}

void m_apm_integer_div_rem(M_APM quotient, M_APM remainder, M_APM_const a, M_APM_const b) {
    ScratchValue dividend;
    ScratchValue result;
    ScratchValue product;
    m_apm_copy(dividend, a);
    m_apm_integer_divide(result, a, b);
    m_apm_multiply(product, result, b);
    m_apm_subtract(remainder, dividend, product);
    m_apm_copy(quotient, result);
}
