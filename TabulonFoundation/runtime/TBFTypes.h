#pragma once

// The small records which every layer passes by value: a code unit, a range of characters and the
// locale of the engine. No state, usable on any thread.

#include <algorithm>
#include <cstdint>

// One UTF-16 code unit.
using TBFChar = char16_t;

// What accessors give when they have no character.
inline constexpr TBFChar TBFCharNULL = 0;

inline constexpr int32_t TBFRangeLocationMax = 2147483647;
inline constexpr int32_t TBFRangeLengthMax = 2147483647;
inline constexpr int32_t TBFRangeLocationInvalid = 2147483647;

// A run of `length` items (mostly UTF-16 code units, or lines) from the zero-based `location` on. A
// length of TBFRangeLengthMax runs to the end, whatever the end is; a negative one is none.
struct TBFRange {
    int32_t location = 0;
    int32_t length = 0;

    // The range from `start` up to, not including, `end`; empty at `start` if `end` lies before it.
    static constexpr TBFRange between(int32_t start, int32_t end) {
        const int64_t span = static_cast<int64_t>(end) - start;
        return {start, static_cast<int32_t>(std::clamp<int64_t>(span, 0, TBFRangeLengthMax))};
    }

    constexpr bool operator==(const TBFRange&) const = default;

    constexpr bool isEmpty() const { return length <= 0; }

    // True if the range has no end of its own, or one that can't be written in 32 bits.
    constexpr bool runsToEnd() const {
        return length > 0 && (length == TBFRangeLengthMax || location > TBFRangeLocationMax - length);
    }

    // The first index behind the range; TBFRangeLocationMax if it runs to the end.
    constexpr int32_t end() const {
        return runsToEnd() ? TBFRangeLocationMax : location + std::max(length, 0);
    }

    constexpr bool contains(int32_t index) const {
        return index >= location && (runsToEnd() || index < end());
    }
    constexpr bool contains(TBFRange other) const {
        return other.location >= location && other.end() <= end();
    }
    constexpr bool intersects(TBFRange other) const {
        return location < other.end() && other.location < end();
    }
};

inline constexpr TBFRange TBFRangeZero = {0, 0};

// All that the engine knows of a locale. By value, with no lifetime of its own.
struct TBFLocale {
    TBFChar decimalPoint = u'.';
    TBFChar thousandsSeparator = u',';

    static constexpr TBFLocale standardLocale() { return {u'.', u','}; }
    static constexpr TBFLocale europeanLocale() { return {u',', u'.'}; }

    constexpr bool operator==(const TBFLocale&) const = default;
};

// For foundation code that has no locale of its own to hand.
inline constexpr TBFLocale kTBFLocaleDefault = TBFLocale::standardLocale();
