#include "limbs.h"

namespace mapm {

namespace {

// Takes `count` zeros off the end of x, if it has as many; answers how many it took.
template <int count>
int takenOff(Limb& x) {
    constexpr Limb power = kPowersOfTen[count];
    if (x % power != 0) return 0;
    x /= power;
    return count;
}

} // namespace

int trailingZeros(Limb x) {
    // Most whole numbers end in another digit: leave at the first test.
    if (x % 10 != 0) return 0;
    // The only limb of a short fraction ends in many zeros: halve the number of those that are left.
    int zeros = 0;
    zeros += takenOff<8>(x);
    zeros += takenOff<8>(x);
    zeros += takenOff<4>(x);
    zeros += takenOff<2>(x);
    return zeros + takenOff<1>(x);
}

int compare(const Limb* a, const Limb* b, std::size_t n) {
    while (n-- > 0) {
        if (a[n] != b[n]) return a[n] < b[n] ? -1 : 1;
    }
    return 0;
}

Limb add(Limb* r, const Limb* a, std::size_t na, const Limb* b, std::size_t nb) {
    Limb carry = 0;
    std::size_t i = 0;
    for (; i < nb; ++i) {
        const Limb sum = a[i] + b[i] + carry;
        carry = sum >= kBase ? 1 : 0;
        r[i] = sum - (carry != 0 ? kBase : 0);
    }
    for (; i < na && carry != 0; ++i) {
        const Limb sum = a[i] + 1;
        carry = sum == kBase ? 1 : 0;
        r[i] = carry != 0 ? 0 : sum;
    }
    if (r != a && i < na) copy(r + i, a + i, na - i);
    return carry;
}

Limb subtract(Limb* r, const Limb* a, std::size_t na, const Limb* b, std::size_t nb) {
    Limb borrow = 0;
    std::size_t i = 0;
    for (; i < nb; ++i) {
        const Limb difference = a[i] - b[i] - borrow;
        // A negative difference wraps to the top of the word's range.
        borrow = difference >> 63;
        r[i] = difference + (borrow != 0 ? kBase : 0);
    }
    for (; i < na && borrow != 0; ++i) {
        borrow = a[i] == 0 ? 1 : 0;
        r[i] = borrow != 0 ? kBase - 1 : a[i] - 1;
    }
    if (r != a && i < na) copy(r + i, a + i, na - i);
    return borrow;
}

Limb increment(Limb* r, std::size_t n, Limb value) {
    for (std::size_t i = 0; i < n && value != 0; ++i) {
        const Limb sum = r[i] + value;
        value = sum >= kBase ? 1 : 0;
        r[i] = sum - (value != 0 ? kBase : 0);
    }
    return value;
}

Limb decrement(Limb* r, std::size_t n, Limb value) {
    for (std::size_t i = 0; i < n && value != 0; ++i) {
        const Limb difference = r[i] - value;
        value = difference >> 63;
        r[i] = difference + (value != 0 ? kBase : 0);
    }
    return value;
}

// The products are divided by the base on their own, so that these divisions overlap: only a compare and a
// subtraction chain from limb to limb.
Limb multiplySmall(Limb* r, const Limb* a, std::size_t n, Limb factor, Limb carry) {
    Limb fromBelow = carry;
    Limb overflow = 0;
    for (std::size_t i = 0; i < n; ++i) {
        const auto [quotient, remainder] = divideProductByBase(static_cast<Wide>(a[i]) * factor);
        const Limb sum = remainder + fromBelow + overflow;
        overflow = sum >= kBase ? 1 : 0;
        r[i] = sum - (overflow != 0 ? kBase : 0);
        fromBelow = quotient;
    }
    return fromBelow + overflow;
}

Limb subtractProduct(Limb* r, const Limb* a, std::size_t n, Limb factor) {
    constexpr auto base = static_cast<std::int64_t>(kBase);
    std::int64_t fromBelow = 0;
    for (std::size_t i = 0; i < n; ++i) {
        const auto [quotient, remainder] = divideProductByBase(static_cast<Wide>(a[i]) * factor);
        std::int64_t difference =
            static_cast<std::int64_t>(r[i]) - static_cast<std::int64_t>(remainder) - fromBelow;
        fromBelow = static_cast<std::int64_t>(quotient);
        for (int correction = 0; correction < 2; ++correction) {
            const std::int64_t missing = difference >> 63;
            difference += missing & base;
            fromBelow -= missing;
        }
        r[i] = static_cast<Limb>(difference);
    }
    return static_cast<Limb>(fromBelow);
}

Limb divideSmall(Limb* r, const Limb* a, std::size_t n, Limb d, Limb remainder) {
    for (std::size_t i = n; i-- > 0;) {
        const WideQuotient step = divideWide(static_cast<Wide>(remainder) * kBase + a[i], d);
        r[i] = step.quotient;
        remainder = step.remainder;
    }
    return remainder;
}

} // namespace mapm
