#pragma once

// The warnings of the core layer: misuse that is survived as a no-op. They go to standard error, and only
// when the level asks for them. Any thread may warn; the level is set at start-up.

#include <cstdint>

inline constexpr int32_t TCWarnLogLevelWarnings = 3;

// 2 from the start, so that warnings stay silent.
extern int32_t TCWarnLogLevel;

// Takes a printf format, and writes one line.
[[gnu::format(printf, 1, 2)]] void TCWarnLog(const char* format, ...);
