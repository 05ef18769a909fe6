#include "environment/TCWarnLog.h"

#include <cstdarg>
#include <cstdio>

int32_t TCWarnLogLevel = 2;

void TCWarnLog(const char* format, ...) {
    if (TCWarnLogLevel < TCWarnLogLevelWarnings) return;
    std::va_list arguments;
    va_start(arguments, format);
    std::vfprintf(stderr, format, arguments);
    va_end(arguments);
    std::fputc('\n', stderr);
}
