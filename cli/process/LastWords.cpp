#include "process/LastWords.h"

#include "CommandFailure.h"

#include <algorithm>
#include <atomic>
#include <csignal>
#include <cstddef>
#include <exception>
#include <execinfo.h>
#include <new>
#include <unistd.h>

namespace {

constexpr std::string_view noMemory = "there is not enough memory";

// Long enough for a path and a sentence.
constexpr std::size_t maxLength = 8192;

// Exceptions don't reach whoever calls a thread or a destructor, and memory is the one thing to run out
// there.
[[noreturn]] void endWithWords() {
    try {
        if (const std::exception_ptr current = std::current_exception()) std::rethrow_exception(current);
        printLastLine({"stopped by a fault of its own"});
    } catch (const std::bad_alloc&) {
        printLastLine({noMemory});
    } catch (const std::exception& error) {
        printLastLine({error.what()});
    } catch (...) {
        printLastLine({"stopped by a fault of its own"});
    }
    _exit(ExitCodeFailed);
}

} // namespace

void printLastLine(std::initializer_list<std::string_view> parts) {
    static std::atomic_flag isSaid;
    if (isSaid.test_and_set()) return;
    char line[maxLength];
    constexpr std::string_view start = "tabulon: ";
    std::size_t length = start.copy(line, maxLength);
    for (const std::string_view part : parts) {
        char* const end = line + length + part.copy(line + length, maxLength - 1 - length);
        std::replace_if(
            line + length, end, [](unsigned char c) { return c < 0x20 || c == 0x7F; }, '?');
        length = static_cast<std::size_t>(end - line);
    }
    line[length++] = '\n';
    // Whether it can be printed or not, there is no more to be done.
    static_cast<void>(!write(STDERR_FILENO, line, length));
}

void endWithoutMemory() {
    printLastLine({noMemory});
    _exit(ExitCodeFailed);
}

void prepareForTheWorst() {
    // The first call loads what the C library needs for an exception that passes through it, as out of
    // std::call_once. When memory is gone it couldn't any more, and would end the process.
    void* frame = nullptr;
    backtrace(&frame, 1);
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
    std::set_terminate(endWithWords);
}
