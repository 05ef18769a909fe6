#include "runtime/TBFLog.h"

#include "m_apm.h"

#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

int32_t TBFErrorLogEnabled = 0;

namespace {

const char* lastPathComponent(const char* path) {
    const char* const slash = std::strrchr(path, '/');
    return slash ? slash + 1 : path;
}

[[gnu::format(printf, 1, 0)]] void printMessage(const char* format, std::va_list arguments) {
    std::va_list measured;
    va_copy(measured, arguments);
    const int length = std::vsnprintf(nullptr, 0, format, measured);
    va_end(measured);
    if (length <= 0) return;
    std::string message(static_cast<std::size_t>(length), '\0');
    std::vsnprintf(message.data(), message.size() + 1, format, arguments);
    std::fprintf(stderr, "%s\n", message.c_str());
}

} // namespace

void TBFErrorLogSetEnabled(int enabled) {
    TBFErrorLogEnabled = enabled;
    m_apm_set_warnings_enabled(enabled != 0);
}

// `recordForCrash` asks for the message to be kept in a crash report. No host of ours offers a place
// for it, so standard error is where it ends.
void BW_logErr(bool, const char* kind, const char* expression, const char* function, const char* file,
               int line, const char* format, ...) {
    std::fprintf(stderr, "%s failed: (%s) in function %s, %s:%d\n", kind, expression, function,
                 lastPathComponent(file), line);
    std::va_list arguments;
    va_start(arguments, format);
    printMessage(format, arguments);
    va_end(arguments);
}

void BW_logErr_bigHeader(bool, const char* title, const char* function, const char* file, int line,
                         const char* format, ...) {
    std::fprintf(stderr, "\n\n%s @ %s, %s:%d\n------\n", title, function, lastPathComponent(file), line);
    std::va_list arguments;
    va_start(arguments, format);
    printMessage(format, arguments);
    va_end(arguments);
}

void TBF::stopAfterFailedVerify() {
    std::abort();
}
