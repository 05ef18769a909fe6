#pragma once

// A result's value taken apart for display: as degrees, minutes and seconds, and as a fraction. All texts are
// plain, with '.' and ','. Take the kernel's lock.

#include <cstdint>
#include <optional>
#include <string>

namespace TBF {

class Result;

struct DegreesMinutesSeconds {
    std::string degrees; // with the sign; a value between -1 and 0 has none
    std::string minutes;
    std::string seconds;
};

// The value, in degrees. Seconds are rounded to `secondsPlaces` decimals without a carry. The degrees are
// grouped for a `groupSize` above 0. None without a value, for texts of over 1024 characters, and from 10^10
// degrees on.
std::optional<DegreesMinutesSeconds> degreesMinutesSeconds(Result& result, int32_t secondsPlaces,
                                                           bool trailingZeros, int32_t groupSize);

struct Fraction {
    std::optional<std::string> whole; // of a mixed number, unless it is 0
    std::string numerator;
    std::string denominator;
};

// The first convergent of the value's continued fraction within 1E-23 of it. None for integers, for texts of
// over 256 characters, and when 30 rounds find none.
std::optional<Fraction> fractionOf(Result& result, bool mixed);

} // namespace TBF
