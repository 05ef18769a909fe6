// Rounding and cutting at a decimal position; floor and ceiling.

#include "m_apm_fields.h"

using namespace mapm;

namespace {

enum class Direction : std::int32_t { ToNearest = 0, TowardZero = 1 };

// Where a position falls: limb index (may lie outside) and digits below it in that limb.
struct Cut {
    std::int64_t index;
    Limb unit;
    bool onLimb;
};

Cut cutOf(M_APM_const a, std::int64_t position) {
    const std::int64_t limb = floorDivide(position, kLimbDigits);
    const std::int64_t digit = position - limb * kLimbDigits;
    return {limb - a->low, kPowersOfTen[digit], digit == 0};
}

// True when the dropped part is at least half a unit of the cut.
bool dropsHalf(M_APM_const a, const Cut& cut) {
    const std::int64_t index = cut.onLimb ? cut.index - 1 : cut.index;
    if (index >= a->count || index < 0) return false;
    const Limb limb = a->limbs[index];
    if (cut.onLimb) return limb >= kBase / 2;
    return limb % cut.unit >= cut.unit / 2;
}

void setToUnit(M_APM r, int sign, std::int64_t position) {
    const std::int64_t limb = floorDivide(position, kLimbDigits);
    r->limbs[0] = kPowersOfTen[position - limb * kLimbDigits];
    r->count = 1;
    r->low = limb;
    r->sign = sign;
    M_apm_normalize(r);
}

void shorten(M_APM r, M_APM_const a, std::int64_t position, Direction direction) {
    const Cut cut = cutOf(a, position);
    if (a->sign == 0 || cut.index < 0 || (cut.index == 0 && cut.onLimb)) {
        m_apm_copy(r, a);
        return;
    }
    const bool up = direction == Direction::ToNearest && dropsHalf(a, cut);
    if (cut.index >= a->count) {
        if (up)
            setToUnit(r, a->sign, position);
        else
            M_set_to_zero(r);
        return;
    }
    const auto first = static_cast<std::size_t>(cut.index);
    const std::size_t kept = limbCount(a) - first;
    const std::int64_t low = a->low + cut.index;
    const int sign = a->sign;
    Limb* target = r->limbs;
    if (r == a) {
        copy(target, target + first, kept);
    } else {
        target = M_prepare(r, kept + 1, "'m_apm_round', Out of memory");
        copy(target, a->limbs + first, kept);
    }
    if (!cut.onLimb) target[0] -= target[0] % cut.unit;
    r->count = static_cast<std::int64_t>(kept);
    r->low = low;
    r->sign = sign;
    if (up && increment(target, kept, cut.onLimb ? 1 : cut.unit) != 0) {
        // Every kept digit was 9: what is left is one unit above the top.
        target[0] = 1;
        r->low += r->count;
        r->count = 1;
    }
    M_apm_normalize(r);
}

// Moves a cut integer one away from zero.
void stepAwayFromZero(M_APM r, int sign) {
    if (sign > 0)
        m_apm_add(r, r, MM_One);
    else
        m_apm_subtract(r, r, MM_One);
}

} // namespace

void M_round_at(M_APM r, M_APM_const a, std::int64_t position) {
    shorten(r, a, position, Direction::ToNearest);
}

void M_cut_at(M_APM r, M_APM_const a, std::int64_t position) {
    shorten(r, a, position, Direction::TowardZero);
}

void M_round_digits(M_APM r, M_APM_const a, std::int64_t digits) {
    M_round_at(r, a, exponentOf(a) - digits);
}

void M_cut_digits(M_APM r, M_APM_const a, std::int64_t digits) {
    M_cut_at(r, a, exponentOf(a) - digits);
}

void m_apm_round(M_APM r, int places, M_APM_const a) {
    M_round_digits(r, a, static_cast<std::int64_t>(places) + 1);
}

void m_apm_floor(M_APM r, M_APM_const a) {
    const bool step = a->sign < 0 && m_apm_is_integer(a) == 0;
    M_cut_at(r, a, 0);
    if (step) stepAwayFromZero(r, -1);
}

void m_apm_ceil(M_APM r, M_APM_const a) {
    const bool step = a->sign > 0 && m_apm_is_integer(a) == 0;
    M_cut_at(r, a, 0);
    if (step) stepAwayFromZero(r, 1);
}
