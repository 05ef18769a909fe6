#pragma once

// The owner of one decimal of the kernel, for scratch values and for what `TBF::Number` keeps. Converts to
// `M_APM`, so it is passed to kernel functions as it stands:
//
//     const KernelLock lock;
//     Decimal sum;
//     m_apm_add(sum, a, b);
//     return Number::create(std::move(sum), TBFNumberTypeDecimal);
//
// Moving hands over the digits and leaves an empty Decimal, whose handle is null. Making and freeing take
// the kernel's lock. A Decimal is used by one thread at a time.

#include "m_apm.h"

#include <utility>

namespace TBF {

class Decimal {
public:
    Decimal();                          // the value 0
    explicit Decimal(int value);        // exact
    explicit Decimal(const char* text); // by the kernel's grammar, `.` as decimal point; 0 for a bad text

    // A copy of all digits of `value`.
    static Decimal copyOf(M_APM_const value);

    Decimal(Decimal&& other) noexcept
        : digits(std::exchange(other.digits, nullptr)) {}
    Decimal& operator=(Decimal&& other) noexcept {
        std::swap(digits, other.digits);
        return *this;
    }
    Decimal(const Decimal&) = delete;
    Decimal& operator=(const Decimal&) = delete;
    ~Decimal();

    // Borrowed; valid as long as this object holds it.
    M_APM get() const noexcept { return digits; }
    operator M_APM() const noexcept { return digits; }

    void swap(Decimal& other) noexcept { std::swap(digits, other.digits); }

private:
    friend class Number;
    explicit Decimal(std::nullptr_t) noexcept
        : digits(nullptr) {}

    M_APM digits;
};

} // namespace TBF
