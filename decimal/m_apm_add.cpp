// Sums and differences, exact.

#include "m_apm_fields.h"
#include "scratch.h"
#include "work.h"

#include <algorithm>

using namespace mapm;

namespace {

// Both magnitudes laid over one another: `low` is the common bottom limb.
struct Overlay {
    std::int64_t low;
    std::size_t count;
};

Overlay overlayOf(M_APM_const a, M_APM_const b) {
    const std::int64_t low = std::min(a->low, b->low);
    const std::int64_t top = std::max(a->low + a->count, b->low + b->count);
    return {low, static_cast<std::size_t>(top - low)};
}

std::size_t offsetIn(const Overlay& overlay, M_APM_const x) {
    return static_cast<std::size_t>(x->low - overlay.low);
}

// target = larger +- smaller over the overlay; returns its length. The larger one reaches the overlay's top.
std::size_t combine(Limb* target, const Overlay& overlay, M_APM_const larger, M_APM_const smaller,
                    bool same) {
    const std::size_t offset = offsetIn(overlay, larger);
    clear(target, offset);
    copy(target + offset, larger->limbs, limbCount(larger));
    const std::size_t at = offsetIn(overlay, smaller);
    Limb* part = target + at;
    const std::size_t rest = overlay.count - at;
    if (same) {
        target[overlay.count] = add(part, part, rest, smaller->limbs, limbCount(smaller));
        return overlay.count + 1;
    }
    subtract(part, part, rest, smaller->limbs, limbCount(smaller));
    return overlay.count;
}

void addWithSign(M_APM r, M_APM_const a, M_APM_const b, int signB) {
    if (signB == 0) {
        m_apm_copy(r, a);
        return;
    }
    if (a->sign == 0) {
        m_apm_copy(r, b);
        r->sign = signB;
        return;
    }
    const bool same = a->sign == signB;
    const int order = M_compare_magnitude(a, b);
    if (!same && order == 0) {
        M_set_to_zero(r);
        return;
    }
    M_APM_const larger = order >= 0 ? a : b;
    M_APM_const smaller = order >= 0 ? b : a;
    const int sign = order >= 0 ? a->sign : signB;
    const Overlay overlay = overlayOf(a, b);
    if (!chargeLinear(overlay.count)) {
        M_set_to_zero(r);
        return;
    }
    if (r == a || r == b) {
        Scratch scratch;
        Limb* target = scratch.take(overlay.count + 1);
        const std::size_t n = combine(target, overlay, larger, smaller, same);
        M_set_limbs(r, sign, target, n, overlay.low);
        return;
    }
    Limb* target = M_prepare(r, overlay.count + 1, "'m_apm_add', Out of memory");
    r->count = static_cast<std::int64_t>(combine(target, overlay, larger, smaller, same));
    r->low = overlay.low;
    r->sign = sign;
    M_apm_normalize(r);
}

} // namespace

void m_apm_add(M_APM r, M_APM_const a, M_APM_const b) {
    addWithSign(r, a, b, b->sign);
}

void m_apm_subtract(M_APM r, M_APM_const a, M_APM_const b) {
    addWithSign(r, a, b, -b->sign);
}
