#pragma once

// A run of UTF-16 code units in one of a line's texts. By value, on any thread.

#include <cstdint>

// The location of what isn't there.
inline constexpr int64_t TCNotFound = 0x7FFFFFFFFFFFFFFF;

struct TCRange {
    int64_t location = 0;
    int64_t length = 0;

    constexpr bool operator==(const TCRange&) const = default;

    // The first index behind the range.
    constexpr int64_t end() const { return location + length; }
    constexpr bool contains(int64_t index) const { return index >= location && index < end(); }
    constexpr bool intersects(TCRange other) const {
        return location < other.end() && other.location < end();
    }
};
