#include "environment/TKLog.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <string>

void TKLog(const char* format, ...) {
    std::va_list arguments, measured;
    va_start(arguments, format);
    va_copy(measured, arguments);
    const int length = std::vsnprintf(nullptr, 0, format, measured);
    va_end(measured);
    std::string line(length > 0 ? static_cast<std::size_t>(length) : 0, '\0');
    std::vsnprintf(line.data(), line.size() + 1, format, arguments);
    va_end(arguments);
    std::replace_if(
        line.begin(), line.end(), [](unsigned char c) { return c < 0x20 || c == 0x7F; }, '?');
    std::fprintf(stderr, "%s\n", line.c_str());
}
