// Factorials by balanced products: the factors are halved into ranges until a range fits few limbs, so that
// the great multiplications are between numbers of like size.

#include "m_apm_fields.h"
#include "scratch.h"
#include "work.h"

using namespace mapm;

namespace {

// A range of this many factors is multiplied up one by one.
constexpr Limb kLeafFactors = 32;
// What a factor with a fraction counts at least.
constexpr std::int64_t kStepsOfAFactor = 200;
// Factors up to here fit a limb in pairs.
constexpr Limb kPairLimit = 900'000'000;

// r = first x (first + 1) x ... x last.
void productOfRange(M_APM r, Limb first, Limb last) {
    if (m_apm_work_is_spent()) {
        M_set_to_zero(r);
        return;
    }
    if (last - first < kLeafFactors) {
        Limb limbs[kLeafFactors + 2] = {1};
        std::size_t n = 1;
        for (Limb factor = first; factor <= last; ++factor) {
            Limb step = factor;
            if (last <= kPairLimit && factor < last) step *= ++factor;
            const Limb top = multiplySmall(limbs, limbs, n, step);
            if (top != 0) limbs[n++] = top;
        }
        M_set_limbs(r, 1, limbs, n, 0);
        return;
    }
    const Limb middle = first + (last - first) / 2;
    ScratchValue upper;
    ScratchValue lower;
    productOfRange(lower, first, middle);
    productOfRange(upper, middle + 1, last);
    m_apm_multiply(r, lower, upper);
}

// Arguments with a fraction, or beyond a limb: factor by factor, down to one that is 2 or less.
void productDownward(M_APM r, M_APM_const a) {
    ScratchValue factor;
    ScratchValue product;
    m_apm_copy(factor, a);
    m_apm_copy(product, a);
    while (m_apm_compare(factor, MM_Two) > 0 && m_apm_charge(kStepsOfAFactor)) {
        m_apm_subtract(factor, factor, MM_One);
        m_apm_multiply(product, product, factor);
    }
    m_apm_copy(r, product);
}

} // namespace

void m_apm_factorial(M_APM r, M_APM_const a) {
    if (m_apm_compare(a, MM_One) <= 0) {
        m_apm_copy(r, MM_One);
        return;
    }
    if (a->low == 0 && a->count == 1) {
        if (!m_apm_charge(stepsOfFactorial(a->limbs[0]))) {
            M_set_to_zero(r);
            return;
        }
        ScratchValue product;
        productOfRange(product, 2, a->limbs[0]);
        m_apm_copy(r, product);
        return;
    }
    productDownward(r, a);
}
