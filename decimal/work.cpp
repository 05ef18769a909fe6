#include "work.h"

#include <bit>
#include <cmath>

constinit thread_local M_APM_work m_apm_work;

namespace mapm {

namespace {

// Where products go from squares of the length to Karatsuba's growth, and from there to transforms, as the
// limbs' own thresholds do.
constexpr std::size_t kSquareLimbs = 40;
constexpr std::size_t kTransformLimbs = 512;

// Measured: steps a limb of a transform, and with each doubling of the length.
constexpr std::int64_t kTransformSteps = 60;
constexpr std::int64_t kTransformLevelSteps = 14;

std::int64_t levelsOf(std::size_t n) {
    return static_cast<std::int64_t>(std::bit_width(n));
}

// A product of two operands of n limbs.
std::int64_t stepsOfBalanced(std::size_t n) {
    if (n >= kTransformLimbs) {
        return static_cast<std::int64_t>(n) * (kTransformSteps + kTransformLevelSteps * levelsOf(n));
    }
    std::int64_t threefold = 1;
    for (; n > kSquareLimbs; n = (n + 1) / 2)
        threefold *= 3;
    const auto length = static_cast<std::int64_t>(n);
    return threefold * length * length;
}

} // namespace

std::int64_t stepsOfProduct(std::size_t na, std::size_t nb) {
    const std::size_t shorter = std::min(na, nb);
    const std::size_t longer = std::max(na, nb);
    if (shorter <= kSquareLimbs) {
        constexpr std::int64_t stepsOfALimb = 8; // to carry, to bring in order, to copy
        return static_cast<std::int64_t>(longer) * (static_cast<std::int64_t>(shorter) + stepsOfALimb);
    }
    return stepsOfBalanced(shorter) * static_cast<std::int64_t>((longer + shorter - 1) / shorter);
}

// Long division costs a step and a half for each limb of the divisor and the quotient. By halves it costs a
// product at each level, until the lengths are short.
std::int64_t stepsOfQuotient(std::size_t nq, std::size_t nb) {
    const std::size_t shorter = std::min(nq, nb);
    const std::size_t longer = std::max(nq, nb);
    constexpr std::int64_t stepsOfALimb = 12; // a division by one limb isn't a product
    if (shorter <= kFreeLimbs)
        return static_cast<std::int64_t>(longer) * (2 * static_cast<std::int64_t>(shorter) + stepsOfALimb);
    const std::int64_t levels = levelsOf(shorter / kFreeLimbs);
    return stepsOfProduct(shorter, shorter) * static_cast<std::int64_t>((longer + shorter - 1) / shorter) *
           (1 + levels);
}

std::int64_t stepsOfFactorial(Limb n) {
    constexpr Limb stepsOfAFactor = 10;
    return static_cast<std::int64_t>(std::min<Limb>(n, INT64_MAX / stepsOfAFactor) * stepsOfAFactor);
}

std::int64_t stepsOfSeries(std::int64_t digits) {
    const auto n = static_cast<std::size_t>(digits / kLimbDigits + 1);
    const std::int64_t product = stepsOfBalanced(n);
    // As many products as the square root of the digits; constants need fewer.
    const auto terms = static_cast<std::int64_t>(std::sqrt(static_cast<double>(digits)));
    return product > INT64_MAX / (terms + 1) ? INT64_MAX : product * terms;
}

void FunctionWork::begin(std::int64_t digits, std::size_t argumentLimbs) {
    allowed_ = m_apm_charge(stepsOfProduct(argumentLimbs, argumentLimbs));
    if (digits > kFreeDigits) allowed_ = m_apm_charge(stepsOfSeries(digits)) && allowed_;
    counts_ = true;
    saved_ = m_apm_work;
    m_apm_work = {};
}

} // namespace mapm
