#include "fixed.h"

#include <algorithm>
#include <cmath>

namespace mapm {

void FixedPoint::setInteger(Limb* r, Limb value) const {
    clear(r, n_);
    r[n_] = value;
}

void FixedPoint::load(Limb* r, M_APM_const x) const {
    clear(r, size());
    if (x->sign == 0) return;
    const std::int64_t offset = x->low + signedSize();
    const std::int64_t skipped = offset < 0 ? -offset : 0;
    if (skipped >= x->count) return;
    copy(r + offset + skipped, x->limbs + skipped, limbCount(x) - static_cast<std::size_t>(skipped));
}

void FixedPoint::multiply(Limb* r, const Limb* a, const Limb* b) const {
    const std::size_t na = trimmed(a, size());
    const std::size_t nb = trimmed(b, size());
    // One guard column below the last limb takes the carries that matter.
    const std::size_t skip = n_ - 1;
    if (na + nb <= skip + 1) {
        clear(r, size());
        return;
    }
    Scratch scratch;
    Limb* product = scratch.take(na + nb);
    const std::size_t length = na + nb - skip;
    multiplyHigh(product, a, na, b, nb, skip);
    copy(r, product + 1, std::min(length - 1, size()));
    if (length - 1 < size()) clear(r + length - 1, size() - (length - 1));
}

void FixedPoint::divideSmall(Limb* r, const Limb* a, Limb d) const {
    const std::size_t length = trimmed(a, size());
    clear(r + length, size() - length);
    mapm::divideSmall(r, a, length, d);
}

void FixedPoint::subtract(Limb* r, const Limb* a, const Limb* b) const {
    if (mapm::subtract(r, a, size(), b, size()) != 0) clear(r, size());
}

void FixedPoint::subtractFrom(Limb* r, Limb integer, const Limb* a) const {
    const bool hasFraction = trimmed(a, n_) != 0;
    const Limb whole = a[n_];
    if (integer < whole + (hasFraction ? 1 : 0)) {
        clear(r, size());
        return;
    }
    Limb borrow = 0;
    for (std::size_t i = 0; i < n_; ++i) {
        const Limb taken = a[i] + borrow;
        borrow = taken != 0 ? 1 : 0;
        r[i] = borrow != 0 ? kBase - taken : 0;
    }
    r[n_] = integer - whole - borrow;
}

std::size_t FixedPoint::columnsFor(const Limb* x) const {
    // The number of terms from the size of x; its square root balances columns and powers. Columns come in
    // even numbers, so that the terms of a column have one sign.
    const std::size_t length = trimmed(x, size());
    if (length == 0) return 2;
    const double digits = static_cast<double>(kLimbDigits * n_);
    const double zeros =
        static_cast<double>(kLimbDigits * (size() - length)) - std::log10(static_cast<double>(x[length - 1]));
    const double terms = digits / std::max(1.0, zeros);
    const auto columns = static_cast<std::size_t>(std::sqrt(terms) * 0.8);
    return std::clamp<std::size_t>(columns & ~std::size_t{1}, 2, 64);
}

void FixedPoint::sumSeries(Limb* r, const Limb* x, const Series& series) const {
    const std::size_t columns = columnsFor(x);
    Scratch scratch;
    Limb* sums = scratch.takeZeroed(columns * size());
    Limb* step = scratch.take(size());
    Limb* term = scratch.take(size());
    Limb* quotient = scratch.take(size());

    // step = x^columns, by products from the top bit of the count down.
    copy(step, x, size());
    for (std::size_t power = 1; power < columns; ++power)
        multiply(step, step, x);

    setInteger(term, 1);
    std::size_t column = 0;
    for (Limb k = 0; !isZero(term); ++k) {
        Limb* sum = sums + column * size();
        if (series.harmonic) {
            divideSmall(quotient, term, series.divisor(k));
            add(sum, sum, quotient);
        } else {
            if (k > 0) divideSmall(term, term, series.divisor(k));
            add(sum, sum, term);
        }
        if (++column == columns) {
            column = 0;
            multiply(term, term, step);
        }
    }
    copy(r, sums + (columns - 1) * size(), size());
    for (column = columns - 1; column-- > 0;) {
        multiply(r, r, x);
        if (series.alternating)
            subtract(r, sums + column * size(), r);
        else
            add(r, r, sums + column * size());
    }
}

} // namespace mapm
