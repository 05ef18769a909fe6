#pragma once

// Fixed-point values for the series behind the transcendental functions: one limb before the point and n
// limbs behind it, never negative, low limb first, n + 1 limbs in all. Every operation cuts: it may be a few
// units of the last limb too small, which the guard digits of the callers cover. Under the kernel's lock.

#include "m_apm_fields.h"
#include "scratch.h"

namespace mapm {

// The arithmetic of one precision. Values are plain limb arrays that the caller takes from a Scratch.
class FixedPoint {
public:
    explicit FixedPoint(std::size_t fractionLimbs)
        : n_(fractionLimbs) {}

    // Limbs for `digits` digits behind the point.
    static std::size_t limbsFor(std::int64_t digits) {
        return static_cast<std::size_t>((digits + kLimbDigits - 1) / kLimbDigits);
    }

    std::size_t fractionLimbs() const { return n_; }
    std::size_t size() const { return n_ + 1; }

    void setInteger(Limb* r, Limb value) const;
    // |x| below 10^18.
    void load(Limb* r, M_APM_const x) const;
    void store(M_APM r, int sign, const Limb* a) const { M_set_limbs(r, sign, a, size(), -signedSize()); }

    // r = a * b. r may be an operand.
    void multiply(Limb* r, const Limb* a, const Limb* b) const;
    void divideSmall(Limb* r, const Limb* a, Limb d) const;
    void multiplySmall(Limb* r, const Limb* a, Limb d) const { mapm::multiplySmall(r, a, size(), d); }
    void add(Limb* r, const Limb* a, const Limb* b) const { mapm::add(r, a, size(), b, size()); }
    // a >= b, but for the last units, where the result is 0.
    void subtract(Limb* r, const Limb* a, const Limb* b) const;
    // r = integer - a, r may be a.
    void subtractFrom(Limb* r, Limb integer, const Limb* a) const;
    bool isZero(const Limb* a) const { return trimmed(a, size()) == 0; }

    // How the denominators of a series go on from term k - 1 to term k.
    struct Series {
        // Term k is the term before it times x / divisor(k), or, with `harmonic`, the power x^k / divisor(k).
        Limb (*divisor)(Limb k);
        bool harmonic;
        bool alternating;
    };

    // r = 1 / divisor(0) + x / ... + x^2 / ... ; x below 1, so that terms vanish in the end. Terms are summed
    // in columns by their index, so that only every m-th step is a full product.
    void sumSeries(Limb* r, const Limb* x, const Series& series) const;

private:
    std::int64_t signedSize() const { return static_cast<std::int64_t>(n_); }
    std::size_t columnsFor(const Limb* x) const;

    std::size_t n_;
};

} // namespace mapm
