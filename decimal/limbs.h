#pragma once

// Natural numbers as arrays of limbs of the base 10^18, least significant limb first: the digit storage of
// the kernel and the arithmetic on it. Used by the kernel's sources alone, under the kernel's lock where
// scratch memory or transform tables are needed (multiply, divide, squareRoot). Lengths count limbs; an
// operand may have zero limbs at its top. Results don't overlap operands but where stated.

#include <cstddef>
#include <cstdint>

namespace mapm {

using Limb = std::uint64_t;
__extension__ typedef unsigned __int128 Wide;

inline constexpr int kLimbDigits = 18;
inline constexpr Limb kBase = 1'000'000'000'000'000'000U;

inline constexpr Limb kPowersOfTen[] = {1U,
                                        10U,
                                        100U,
                                        1'000U,
                                        10'000U,
                                        100'000U,
                                        1'000'000U,
                                        10'000'000U,
                                        100'000'000U,
                                        1'000'000'000U,
                                        10'000'000'000U,
                                        100'000'000'000U,
                                        1'000'000'000'000U,
                                        10'000'000'000'000U,
                                        100'000'000'000'000U,
                                        1'000'000'000'000'000U,
                                        10'000'000'000'000'000U,
                                        100'000'000'000'000'000U,
                                        kBase};

struct WideQuotient {
    Limb quotient;
    Limb remainder;
};

// floor(2^123 / 10^18): a division by the base is a multiplication, a shift and a correction.
inline constexpr Limb kBaseReciprocal = 10'633'823'966'279'326'983U;

// x / 10^18 for x below 2^124.
inline WideQuotient divideByBase(Wide x) {
    const Limb high = static_cast<Limb>(x >> 60);
    Limb quotient = static_cast<Limb>((static_cast<Wide>(high) * kBaseReciprocal) >> 63);
    Limb remainder = static_cast<Limb>(x) - quotient * kBase;
    while (remainder >= kBase) {
        remainder -= kBase;
        ++quotient;
    }
    return {quotient, remainder};
}

// x / 10^18 for x below 2^120, as a product of two limbs plus two limbs is: at most one correction.
inline WideQuotient divideProductByBase(Wide x) {
    const Limb high = static_cast<Limb>(x >> 56);
    Limb quotient = static_cast<Limb>((static_cast<Wide>(high) * kBaseReciprocal) >> 67);
    Limb remainder = static_cast<Limb>(x) - quotient * kBase;
    if (remainder >= kBase) {
        remainder -= kBase;
        ++quotient;
    }
    return {quotient, remainder};
}

// x / d where the quotient fits one word (the high word of x is below d). The machine's own division beats
// the library's 128-bit one by far.
inline WideQuotient divideWide(Wide x, Limb d) {
#if defined(__x86_64__)
    Limb quotient;
    Limb remainder;
    __asm__("divq %4"
            : "=a"(quotient), "=d"(remainder)
            : "0"(static_cast<Limb>(x)), "1"(static_cast<Limb>(x >> 64)), "rm"(d)
            : "cc");
    return {quotient, remainder};
#else
    return {static_cast<Limb>(x / d), static_cast<Limb>(x % d)};
#endif
}

// Number of decimal digits of a limb: 0 for 0, 1 to 18 below the base.
inline int limbDigits(Limb x) {
    if (x == 0) return 0;
    // 1233 / 4096 is log10(2): the bit length gives the digit count or one less.
    const int estimate = ((64 - __builtin_clzll(x)) * 1233) >> 12;
    return estimate + (x >= kPowersOfTen[estimate] ? 1 : 0);
}

// Zeros at the end of a limb that isn't 0.
int trailingZeros(Limb x);

// Length without zero limbs at the top.
inline std::size_t trimmed(const Limb* a, std::size_t n) {
    while (n > 0 && a[n - 1] == 0)
        --n;
    return n;
}

inline void clear(Limb* r, std::size_t n) {
    for (std::size_t i = 0; i < n; ++i)
        r[i] = 0;
}

inline void copy(Limb* r, const Limb* a, std::size_t n) {
    if (n > 0) __builtin_memmove(r, a, n * sizeof(Limb));
}

// -1, 0 or 1.
int compare(const Limb* a, const Limb* b, std::size_t n);

// r = a + b for na >= nb; the carry is returned. r may be a or b.
Limb add(Limb* r, const Limb* a, std::size_t na, const Limb* b, std::size_t nb);

// r = a - b for na >= nb; the borrow is returned. r may be a or b.
Limb subtract(Limb* r, const Limb* a, std::size_t na, const Limb* b, std::size_t nb);

// r += value at its lowest limb; the carry is returned.
Limb increment(Limb* r, std::size_t n, Limb value);

// r -= value at its lowest limb; the borrow is returned.
Limb decrement(Limb* r, std::size_t n, Limb value);

// r = a * factor + carry for a factor and carry below the base; the top limb is returned. r may be a.
Limb multiplySmall(Limb* r, const Limb* a, std::size_t n, Limb factor, Limb carry = 0);

// r -= a * factor; returns what is to be taken from the limb above.
Limb subtractProduct(Limb* r, const Limb* a, std::size_t n, Limb factor);

// r = a / d for 0 < d < 2^64, with the remainder of the limbs above given and the last one returned. r may be
// a.
Limb divideSmall(Limb* r, const Limb* a, std::size_t n, Limb d, Limb remainder = 0);

// r = a * b, na + nb limbs; lengths from 1. A product of an operand with itself costs less at great lengths.
void multiply(Limb* r, const Limb* a, std::size_t na, const Limb* b, std::size_t nb);

// The product from limb `skip` of a * b upwards, na + nb - skip limbs, without the carries from below:
// at most min(na, nb) too small at its lowest limb. For fixed-point values, which drop those limbs.
void multiplyHigh(Limb* r, const Limb* a, std::size_t na, const Limb* b, std::size_t nb, std::size_t skip);

// Product by number-theoretic transforms modulo three primes: exact at every length.
void multiplyByTransform(Limb* r, const Limb* a, std::size_t na, const Limb* b, std::size_t nb);

// Frees the tables of the transforms.
void freeTransformTables();

// q = a / b, a = remainder. a has na limbs, b has nb with a top limb that isn't 0, na >= nb; q gets
// na - nb + 1 limbs, the remainder stands in the low nb limbs of a, the others become 0; without
// `keepRemainder` a is left undefined.
void divide(Limb* q, Limb* a, std::size_t na, const Limb* b, std::size_t nb, bool keepRemainder = true);

// root = floor(sqrt(a)) of 2n limbs, n limbs. a is destroyed; one of its two top limbs isn't 0.
void squareRoot(Limb* root, Limb* a, std::size_t n);

} // namespace mapm
