#pragma once

// How the system reports what should not happen, on standard error. `TBFErrorLog` is for a failure
// which the function survives by its failure path. `VerifyTrue` is for errors in the system's own
// set-up and invariants, never for input: it ends the process. No locks are taken, so concurrent messages
// may interleave.
//
// The log speaks to developers, and what it says is no part of any answer. So it is off until a host turns it
// on.

#include <cstdint>

// 0 from the start. Set before anything is evaluated. The function is the one switch for the whole log: it
// turns the decimal kernel's warnings on and off too.
extern int32_t TBFErrorLogEnabled;
void TBFErrorLogSetEnabled(int enabled);

// Reports a failed condition: "kind failed: (expression) in function F, file:line", then the message.
[[gnu::format(printf, 7, 8)]] void BW_logErr(bool recordForCrash, const char* kind, const char* expression,
                                             const char* function, const char* file, int line,
                                             const char* format, ...);

// Reports under a header of its own: "title @ F, file:line", a rule, then the message.
[[gnu::format(printf, 6, 7)]] void BW_logErr_bigHeader(bool recordForCrash, const char* title,
                                                       const char* function, const char* file, int line,
                                                       const char* format, ...);

namespace TBF {
[[noreturn]] void stopAfterFailedVerify();
}

// The text of a message may be empty, which is no mistake of the format.
#define VerifyTrue(condition, ...)                                                                           \
    do {                                                                                                     \
        if (!(condition)) {                                                                                  \
            _Pragma("GCC diagnostic push") _Pragma("GCC diagnostic ignored \"-Wformat-zero-length\"")        \
                BW_logErr(true, "VerifyTrue", #condition, __PRETTY_FUNCTION__, __FILE__, __LINE__,           \
                          __VA_ARGS__);                                                                      \
            _Pragma("GCC diagnostic pop") TBF::stopAfterFailedVerify();                                      \
        }                                                                                                    \
    } while (false)

#define TBFErrorLog(...)                                                                                     \
    do {                                                                                                     \
        if (TBFErrorLogEnabled) {                                                                            \
            _Pragma("GCC diagnostic push") _Pragma("GCC diagnostic ignored \"-Wformat-zero-length\"")        \
                BW_logErr_bigHeader(false, "Error!", __PRETTY_FUNCTION__, __FILE__, __LINE__, __VA_ARGS__);  \
            _Pragma("GCC diagnostic pop")                                                                    \
        }                                                                                                    \
    } while (false)
