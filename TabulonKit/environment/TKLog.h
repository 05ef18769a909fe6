#pragma once

// What a user has to know of the kit's files: content that is missing, saved values that can't be read or
// written. One line on standard error, however the logs for developers are set. Any thread.

// Takes a printf format. Control characters come out as '?'.
[[gnu::format(printf, 1, 2)]] void TKLog(const char* format, ...);
