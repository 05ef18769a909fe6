// Products, exact.

#include "m_apm_fields.h"
#include "scratch.h"
#include "work.h"

using namespace mapm;

void m_apm_multiply(M_APM r, M_APM_const a, M_APM_const b) {
    if (a->sign == 0 || b->sign == 0 || !chargeProduct(limbCount(a), limbCount(b))) {
        M_set_to_zero(r);
        return;
    }
    const std::size_t n = limbCount(a) + limbCount(b);
    const int sign = a->sign * b->sign;
    const std::int64_t low = a->low + b->low;
    if (r == a || r == b) {
        Scratch scratch;
        Limb* target = scratch.take(n);
        multiply(target, a->limbs, limbCount(a), b->limbs, limbCount(b));
        M_set_limbs(r, sign, target, n, low);
        return;
    }
    Limb* target = M_prepare(r, n, "'m_apm_multiply', Out of memory");
    multiply(target, a->limbs, limbCount(a), b->limbs, limbCount(b));
    r->count = static_cast<std::int64_t>(n);
    r->low = low;
    r->sign = sign;
    M_apm_normalize(r);
}

void M_multiply_small(M_APM r, M_APM_const a, Limb factor) {
    const std::size_t n = limbCount(a);
    if (!chargeLinear(n)) {
        M_set_to_zero(r);
        return;
    }
    if (r == a) {
        Scratch scratch;
        Limb* target = scratch.take(n + 1);
        target[n] = multiplySmall(target, a->limbs, n, factor);
        M_set_limbs(r, a->sign, target, n + 1, a->low);
        return;
    }
    Limb* target = M_prepare(r, n + 1, "'m_apm_multiply', Out of memory");
    target[n] = multiplySmall(target, a->limbs, n, factor);
    r->count = static_cast<std::int64_t>(n + 1);
    r->low = a->low;
    r->sign = a->sign;
    M_apm_normalize(r);
}
