#pragma once

// The kernel's basic operations within the digit budget: each step first looks at what its result would
// take. Once a step was refused, `error()` says so, and this and all later steps leave their results as
// they are, so that a formula of several steps checks at its end. Made for one operation; the caller holds
// the kernel's lock throughout. A result may not be one of its operands.

#include "m_apm.h"
#include "numbers/MAPMContext.h"
#include "results/TBFEvaluationError.h"

#include <cstdint>

namespace TBF {

class BoundedArithmetic {
public:
    // Borrows the registers for its lifetime.
    explicit BoundedArithmetic(const MAPMContext& scratch) noexcept
        : registers(scratch) {}

    const MAPMContext& registers;

    int32_t precision() const noexcept { return registers.precision(); }
    TBFEvaluationError error() const noexcept { return refused; }
    bool isFine() const noexcept { return refused == TBFEvaluationErrorNone; }
    void fail(TBFEvaluationError error) noexcept { refused = error; }

    void add(M_APM result, M_APM a, M_APM b);
    void subtract(M_APM result, M_APM a, M_APM b);
    void multiply(M_APM result, M_APM a, M_APM b);

    // At the registers' precision. A divisor of 0 gives 0, without the kernel's warning.
    void divide(M_APM result, M_APM a, M_APM b);

    // The remainder with the sign of `a`. A divisor of 0 gives `a`.
    void modulo(M_APM quotient, M_APM remainder, M_APM a, M_APM b);

    // At the registers' precision. Fails as a division by zero for 0 to a negative power. The caller sorts
    // out powers of negative numbers that aren't whole.
    void power(M_APM result, M_APM base, M_APM exponent);

    // `n` is a whole number that isn't negative.
    void factorial(M_APM result, M_APM n);

private:
    bool allow(bool fits) noexcept {
        if (!fits && isFine()) refused = TBFEvaluationErrorExponentTooLarge;
        return isFine();
    }

    TBFEvaluationError refused = TBFEvaluationErrorNone;
};

} // namespace TBF
