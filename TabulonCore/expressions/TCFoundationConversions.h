#pragma once

// A host's ranges and characters, and the foundation's. By value, on any thread.

#include "runtime/TBFTypes.h"

#include <algorithm>
#include <cstdint>
#include <limits>

// A range as a host's text views have it, in machine words. A length of the largest word runs to the end.
struct TCNSRange {
    std::uintptr_t location = 0;
    std::uintptr_t length = 0;

    constexpr bool operator==(const TCNSRange&) const = default;
};

constexpr TCNSRange TCNSRangeFromTBFRange(TBFRange range) {
    const auto word = [](int32_t number) { return static_cast<std::uintptr_t>(std::intptr_t{number}); };
    const bool runsToEnd = range.length == TBFRangeLengthMax;
    return {word(range.location),
            runsToEnd ? std::numeric_limits<std::uintptr_t>::max() : word(range.length)};
}

// What the foundation can't hold of the location is cut off, and of the length left out.
constexpr TBFRange TCNSRangeToTBFRange(std::uintptr_t location, std::uintptr_t length) {
    return {static_cast<int32_t>(static_cast<uint32_t>(location)),
            static_cast<int32_t>(std::min<std::uintptr_t>(length, TBFRangeLengthMax))};
}

// Code units are the same on both sides.
constexpr TBFChar TCTBFCharFromUniChar(char16_t character) {
    return character;
}
constexpr char16_t TCTBFCharToUniChar(TBFChar character) {
    return character;
}
