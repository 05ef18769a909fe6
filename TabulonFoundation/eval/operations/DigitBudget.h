#pragma once

// How many digits a value may have. Everything here looks at operands only, so that an operation whose
// result would be too big is refused before any work is done. A result that fits may take its time; memory
// stays bounded. Used by the operations, the node evaluator and the results, on values that no other thread
// changes.

#include "m_apm.h"

#include <cstdint>

namespace TBF {

// The most decimal digits of one value: significant ones, and those in front of the decimal point.
inline constexpr int64_t maximumDigits = 10'000'000;

// The most digits of all values that wait in a tree's slots at one time.
inline constexpr int64_t maximumWaitingDigits = 10 * maximumDigits;

// Small values are only bound by the kernel's 32-bit exponents.
inline constexpr int64_t minimumExponent = -2'000'000'000;

bool digitsFit(M_APM value);
bool sumFits(M_APM a, M_APM b); // or the difference
bool productFits(M_APM a, M_APM b);

// A quotient gets `places` digits behind the first one, and as many more as the operands' exponents lie
// apart.
bool quotientFits(M_APM a, M_APM b, int32_t places);

// The whole quotient, and the remainder with it.
bool remainderFits(M_APM a, M_APM b);

// `base` is not zero. The size is estimated from logarithms, close enough for the bounds.
bool powerFits(M_APM base, M_APM power);

// `n` is a whole number that isn't negative.
bool factorialFits(M_APM n);

} // namespace TBF
