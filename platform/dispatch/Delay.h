#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace platform {

// A delay in seconds as GLib counts it: whole milliseconds, never less than was asked for. Nothing below 0,
// and at most some 49 days.
inline uint32_t millisecondsOfDelay(double seconds) {
    constexpr double longest = std::numeric_limits<uint32_t>::max();
    const double milliseconds = std::ceil(seconds * 1000.0);
    return milliseconds > 0 ? static_cast<uint32_t>(std::min(milliseconds, longest)) : 0;
}

} // namespace platform
