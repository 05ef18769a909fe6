#include "limbs.h"
#include "scratch.h"

#include <cmath>

namespace mapm {

namespace {

// From this divisor length on, division by halves with fast products is quicker than long division.
constexpr std::size_t kRecursiveLimbs = 64;

// Long division, a limb of the quotient at a time. The divisor's top limb is at least half the base, so that
// the trial limb is at most two too large; a holds na limbs, of which the top nb are below b. q gets na - nb
// limbs, the remainder stays in a.
void divideSchoolbook(Limb* q, Limb* a, std::size_t na, const Limb* b, std::size_t nb) {
    const Limb top = b[nb - 1];
    const Limb second = nb > 1 ? b[nb - 2] : 0;
    for (std::size_t j = na - nb; j-- > 0;) {
        Limb* window = a + j;
        const Limb high = window[nb];
        const Wide numerator = static_cast<Wide>(high) * kBase + window[nb - 1];
        Limb trial = kBase - 1;
        if (high < top) {
            const auto [quotient, remainder] = divideWide(numerator, top);
            trial = quotient;
            Wide rest = remainder;
            const Limb third = nb > 1 ? window[nb - 2] : 0;
            while (rest<kBase&& static_cast<Wide>(trial) * second> rest * kBase + third) {
                --trial;
                rest += top;
            }
        }
        const Limb taken = subtractProduct(window, b, nb, trial);
        if (high < taken) {
            // The carry of adding back cancels the missing limb above.
            Limb missing = taken - high;
            while (missing != 0) {
                --trial;
                missing -= add(window, window, nb, b, nb);
            }
        }
        window[nb] = 0;
        q[j] = trial;
    }
}

void divideTwoByOne(Limb* q, Limb* a, const Limb* b, std::size_t n);

// a of 3h limbs by b of 2h limbs: q of h limbs, the remainder in the low 2h limbs of a.
void divideThreeByTwo(Limb* q, Limb* a, const Limb* b, std::size_t h) {
    const Limb* high = b + h;
    if (compare(a + 2 * h, high, h) < 0) {
        divideTwoByOne(q, a + h, high, h);
    } else {
        // The quotient's limbs are all base - 1: a - (base^h - 1) high.
        for (std::size_t i = 0; i < h; ++i)
            q[i] = kBase - 1;
        clear(a + 2 * h, h);
        a[2 * h] = add(a + h, a + h, h, high, h);
    }
    Scratch scratch;
    Limb* product = scratch.take(2 * h);
    multiply(product, q, h, b, h);
    Limb missing = subtract(a, a, 3 * h, product, 2 * h);
    while (missing != 0) {
        decrement(q, h, 1);
        missing -= add(a, a, 3 * h, b, 2 * h);
    }
}

// a of 2n limbs, below b base^n: q of n limbs, the remainder in the low n limbs of a. Halves while n is even
// and long enough.
void divideTwoByOne(Limb* q, Limb* a, const Limb* b, std::size_t n) {
    if (n % 2 != 0 || n < kRecursiveLimbs) {
        divideSchoolbook(q, a, 2 * n, b, n);
        return;
    }
    const std::size_t h = n / 2;
    divideThreeByTwo(q + h, a + h, b, h);
    divideThreeByTwo(q, a, b, h);
}

// Both operands are lengthened by zero limbs below until the divisor's length halves down to long division's
// reach; the dividend is then taken in pieces of that length.
void divideRecursively(Limb* q, Limb* a, std::size_t na, const Limb* b, std::size_t nb) {
    std::size_t piece = nb;
    std::size_t factor = 1;
    while (piece >= kRecursiveLimbs) {
        piece = (piece + 1) / 2;
        factor *= 2;
    }
    const std::size_t n = piece * factor;
    const std::size_t padding = n - nb;
    const std::size_t pieces = (na + padding + n - 1) / n;

    Scratch scratch;
    Limb* divisor = scratch.takeZeroed(n);
    copy(divisor + padding, b, nb);
    Limb* dividend = scratch.takeZeroed((pieces + 1) * n);
    copy(dividend + padding, a, na);
    Limb* quotient = scratch.takeZeroed(pieces * n);
    for (std::size_t i = pieces; i-- > 0;)
        divideTwoByOne(quotient + i * n, dividend + i * n, divisor, n);

    copy(q, quotient, na - nb);
    clear(a, na);
    copy(a, dividend + padding, nb);
}

// A quotient much shorter than the divisor depends on the operands' top limbs: they give it or a little more,
// and the limbs below correct it.
void divideShortQuotient(Limb* q, Limb* a, std::size_t na, const Limb* b, std::size_t nb);

// The divisor's top limb is at least half the base and the top nb limbs of a are below b.
void divideNormalized(Limb* q, Limb* a, std::size_t na, const Limb* b, std::size_t nb) {
    const std::size_t nq = na - nb;
    if (nb < kRecursiveLimbs || nq < kRecursiveLimbs)
        divideSchoolbook(q, a, na, b, nb);
    else if (nq < nb)
        divideShortQuotient(q, a, na, b, nb);
    else
        divideRecursively(q, a, na, b, nb);
}

void divideShortQuotient(Limb* q, Limb* a, std::size_t na, const Limb* b, std::size_t nb) {
    const std::size_t nq = na - nb;
    const std::size_t dropped = nb - nq;
    if (compare(a + na - nq, b + dropped, nq) >= 0) {
        // Equal tops: the short division's quotient would not fit its limbs.
        divideRecursively(q, a, na, b, nb);
        return;
    }
    divideRecursively(q, a + dropped, 2 * nq, b + dropped, nq);
    Scratch scratch;
    Limb* product = scratch.take(nb);
    multiply(product, b, dropped, q, nq);
    Limb missing = subtract(a, a, na, product, nb);
    while (missing != 0) {
        decrement(q, nq, 1);
        missing -= add(a, a, na, b, nb);
    }
}

// A root of 128 bits by the machine's floating point, then made exact.
Limb wideRoot(Wide x) {
    Limb root = static_cast<Limb>(std::sqrt(static_cast<long double>(x)));
    while (static_cast<Wide>(root) * root > x)
        --root;
    while (static_cast<Wide>(root + 1) * (root + 1) <= x)
        ++root;
    return root;
}

// Two limbs: the remainder is up to twice the root, so that it may carry.
Limb rootOfTwoLimbs(Limb* root, Limb* a) {
    const Wide value = static_cast<Wide>(a[1]) * kBase + a[0];
    root[0] = wideRoot(value);
    const Limb remainder = static_cast<Limb>(value - static_cast<Wide>(root[0]) * root[0]);
    a[1] = 0;
    a[0] = remainder % kBase;
    return remainder / kBase;
}

// q = floor(q / 2), true when q was odd.
bool halve(Limb* q, std::size_t n) {
    return divideSmall(q, q, n, 2) != 0;
}

// Root with remainder: the root of the upper half, a division for the lower half, and at most one correction.
// a of 2n limbs with a top limb of at least a quarter of the base; the remainder stays in the low n limbs of
// a, its carry is returned.
Limb rootWithRemainder(Limb* root, Limb* a, std::size_t n) {
    if (n == 1) return rootOfTwoLimbs(root, a);
    const std::size_t low = n / 2;
    const std::size_t high = n - low;
    Limb* upper = root + low;
    Limb carry = rootWithRemainder(upper, a + 2 * low, high);

    // q = (remainder base^low + next limbs) / (2 upper), by the division by upper and a halving.
    Scratch scratch;
    Limb* q = scratch.takeZeroed(low + 2);
    if (carry != 0) {
        subtract(a + 2 * low, a + 2 * low, high, upper, high);
        q[low] = 1;
    }
    Limb* quotient = scratch.take(low + 1);
    divide(quotient, a + low, n, upper, high);
    add(q, q, low + 2, quotient, low + 1);
    const bool odd = halve(q, low + 2);
    std::int64_t sign = odd ? static_cast<std::int64_t>(add(a + low, a + low, high, upper, high)) : 0;

    // The remainder less q^2. q may be base^low itself.
    copy(root, q, low);
    // The root may reach base^n for a moment; the correction below takes it down again.
    Limb rootCarry = increment(upper, high, q[low]);
    Limb* square = scratch.take(2 * low + 2);
    multiply(square, q, low + 1, q, low + 1);
    const std::size_t squareLength = trimmed(square, 2 * low + 2);
    if (squareLength > n) {
        // q^2 = base^(2 low) with 2 low = n.
        sign -= static_cast<std::int64_t>(square[n]);
        sign -= static_cast<std::int64_t>(subtract(a, a, n, square, n));
    } else {
        sign -= static_cast<std::int64_t>(subtract(a, a, n, square, squareLength));
    }
    while (sign < 0) {
        // r + 2 root - 1 with the root before it goes down by one.
        sign += static_cast<std::int64_t>(add(a, a, n, root, n) + rootCarry);
        rootCarry -= decrement(root, n, 1);
        sign += static_cast<std::int64_t>(add(a, a, n, root, n));
    }
    return static_cast<Limb>(sign);
}

} // namespace

void divide(Limb* q, Limb* a, std::size_t na, const Limb* b, std::size_t nb, bool keepRemainder) {
    if (nb == 1) {
        const Limb remainder = divideSmall(q, a, na, b[0]);
        clear(a, na);
        a[0] = remainder;
        return;
    }
    const Limb scale = kBase / (b[nb - 1] + 1);
    if (scale == 1 && compare(a + na - nb, b, nb) < 0) {
        divideNormalized(q, a, na, b, nb);
        q[na - nb] = 0;
        return;
    }
    Scratch scratch;
    Limb* divisor = scratch.take(nb);
    Limb* dividend = scratch.take(na + 1);
    multiplySmall(divisor, b, nb, scale);
    dividend[na] = multiplySmall(dividend, a, na, scale);
    divideNormalized(q, dividend, na + 1, divisor, nb);
    if (!keepRemainder) return;
    clear(a, na);
    divideSmall(a, dividend, nb, scale);
}

void squareRoot(Limb* root, Limb* a, std::size_t n) {
    // The top must reach a quarter of the base: multiply by a square, divide the root by its side.
    const Wide top = static_cast<Wide>(a[2 * n - 1]) * kBase + a[2 * n - 2];
    const Wide limit = static_cast<Wide>(kBase) * kBase - 1;
    Limb side =
        static_cast<Limb>(std::sqrt(static_cast<long double>(limit) / static_cast<long double>(top + 1)));
    while (static_cast<Wide>(side) * side * (top + 1) > limit)
        --side;
    if (side > 1) {
        multiplySmall(a, a, 2 * n, side);
        multiplySmall(a, a, 2 * n, side);
    } else {
        side = 1;
    }
    rootWithRemainder(root, a, n);
    if (side > 1) divideSmall(root, root, n, side);
}

} // namespace mapm
