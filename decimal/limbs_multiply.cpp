#include "limbs.h"
#include "scratch.h"

namespace mapm {

namespace {

// Products of columns are summed in 128 bits before they are reduced: 16 of them and a carry stay below
// 2^124.
constexpr std::size_t kColumnTerms = 16;
// Lengths where the next algorithm overtakes, by measurement. No digit depends on them.
constexpr std::size_t kKaratsubaLimbs = 40;
constexpr std::size_t kTransformLimbs = 512;

Wide columnSum(const Limb* a, std::size_t na, const Limb* b, std::size_t nb, std::size_t column) {
    std::size_t i = column < nb ? 0 : column - nb + 1;
    const std::size_t end = column < na ? column + 1 : na;
    Wide sum = 0;
    for (; i < end; ++i)
        sum += static_cast<Wide>(a[i]) * b[column - i];
    return sum;
}

// Columns `first` to na + nb - 1 of a * b for nb <= kColumnTerms, written to r or added to what stands there.
// Each column is divided by the base on its own, so that the divisions overlap; only small carries chain.
template <bool accumulate>
Limb productColumns(Limb* r, const Limb* a, std::size_t na, const Limb* b, std::size_t nb,
                    std::size_t first) {
    Limb fromColumn = 0;
    Limb carry = 0;
    const std::size_t last = na + nb - 1;
    for (std::size_t column = first; column < last; ++column) {
        const auto [quotient, remainder] = divideByBase(columnSum(a, na, b, nb, column));
        Limb sum = remainder + fromColumn + carry;
        if constexpr (accumulate) sum += *r;
        carry = sum / kBase;
        *r++ = sum - carry * kBase;
        fromColumn = quotient;
    }
    Limb sum = fromColumn + carry;
    if constexpr (accumulate) sum += *r;
    carry = sum / kBase;
    *r = sum - carry * kBase;
    return carry;
}

void multiplySchoolbook(Limb* r, const Limb* a, std::size_t na, const Limb* b, std::size_t nb) {
    if (nb <= kColumnTerms) {
        productColumns<false>(r, a, na, b, nb, 0);
        return;
    }
    productColumns<false>(r, a, na, b, kColumnTerms, 0);
    clear(r + na + kColumnTerms, nb - kColumnTerms);
    for (std::size_t offset = kColumnTerms; offset < nb; offset += kColumnTerms) {
        const std::size_t length = nb - offset < kColumnTerms ? nb - offset : kColumnTerms;
        productColumns<true>(r + offset, a, na, b + offset, length, 0);
    }
}

// r = |a - b|, n limbs each; true when a < b.
bool subtractAbsolute(Limb* r, const Limb* a, const Limb* b, std::size_t n) {
    const bool negative = compare(a, b, n) < 0;
    if (negative)
        subtract(r, b, n, a, n);
    else
        subtract(r, a, n, b, n);
    return negative;
}

void multiplyBalanced(Limb* r, const Limb* a, const Limb* b, std::size_t n);

// Three products of half the length: the middle one is z0 + z2 - (a1 - a0)(b1 - b0).
void multiplyKaratsuba(Limb* r, const Limb* a, const Limb* b, std::size_t n) {
    const std::size_t low = n / 2;
    const std::size_t high = n - low;
    Scratch scratch;
    Limb* lowA = scratch.takeZeroed(high);
    Limb* lowB = scratch.takeZeroed(high);
    Limb* differenceA = scratch.take(high);
    Limb* differenceB = scratch.take(high);
    Limb* middle = scratch.take(2 * high + 1);
    copy(lowA, a, low);
    copy(lowB, b, low);
    const bool negative = subtractAbsolute(differenceA, a + low, lowA, high) !=
                          subtractAbsolute(differenceB, b + low, lowB, high);
    multiplyBalanced(middle, differenceA, differenceB, high);
    middle[2 * high] = 0;
    multiplyBalanced(r, a, b, low);
    multiplyBalanced(r + 2 * low, a + low, b + low, high);

    Limb* sum = scratch.take(2 * high + 1);
    sum[2 * high] = add(sum, r + 2 * low, 2 * high, r, 2 * low);
    if (negative)
        add(sum, sum, 2 * high + 1, middle, 2 * high + 1);
    else
        subtract(sum, sum, 2 * high + 1, middle, 2 * high + 1);
    const std::size_t sumLength = trimmed(sum, 2 * high + 1);
    add(r + low, r + low, 2 * n - low, sum, sumLength);
}

void multiplyBalanced(Limb* r, const Limb* a, const Limb* b, std::size_t n) {
    if (n < kKaratsubaLimbs)
        multiplySchoolbook(r, a, n, b, n);
    else if (n < kTransformLimbs)
        multiplyKaratsuba(r, a, b, n);
    else
        multiplyByTransform(r, a, n, b, n);
}

// a is cut into pieces as long as b.
void multiplyPieces(Limb* r, const Limb* a, std::size_t na, const Limb* b, std::size_t nb) {
    Scratch scratch;
    Limb* product = scratch.take(2 * nb);
    clear(r, na + nb);
    for (std::size_t offset = 0; offset < na; offset += nb) {
        const std::size_t length = na - offset < nb ? na - offset : nb;
        multiply(product, a + offset, length, b, nb);
        add(r + offset, r + offset, na + nb - offset, product, length + nb);
    }
}

} // namespace

void multiply(Limb* r, const Limb* a, std::size_t na, const Limb* b, std::size_t nb) {
    if (na < nb) {
        multiply(r, b, nb, a, na);
        return;
    }
    if (nb < kKaratsubaLimbs)
        multiplySchoolbook(r, a, na, b, nb);
    else if (na == nb)
        multiplyBalanced(r, a, b, na);
    else if (nb >= kTransformLimbs && na <= 4 * nb)
        multiplyByTransform(r, a, na, b, nb);
    else
        multiplyPieces(r, a, na, b, nb);
}

void multiplyHigh(Limb* r, const Limb* a, std::size_t na, const Limb* b, std::size_t nb, std::size_t skip) {
    if (na < nb) {
        multiplyHigh(r, b, nb, a, na, skip);
        return;
    }
    if (nb <= kColumnTerms) {
        productColumns<false>(r, a, na, b, nb, skip);
        return;
    }
    Scratch scratch;
    Limb* product = scratch.take(na + nb);
    multiply(product, a, na, b, nb);
    copy(r, product + skip, na + nb - skip);
}

} // namespace mapm
