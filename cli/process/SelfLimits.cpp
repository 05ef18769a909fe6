#include "process/SelfLimits.h"

#include "CommandFailure.h"

#include <algorithm>
#include <csignal>
#include <cstring>
#include <sys/resource.h>
#include <unistd.h>

namespace {

constexpr rlim_t processorSeconds = 15;
constexpr unsigned wallSeconds = 30;
constexpr rlim_t memory = rlim_t{512} << 20;

// What a signal handler may print, made beforehand.
struct Message {
    char text[512];
    std::size_t length = 0;

    void set(const std::string& file, const char* why) {
        std::string line = "tabulon: " + file;
        std::replace_if(
            line.begin(), line.end(), [](unsigned char c) { return c < 0x20 || c == 0x7F; }, '?');
        line.resize(std::min(line.size(), sizeof text - 100));
        line += std::string(": ") + why + '\n';
        length = line.copy(text, sizeof text);
    }
};

Message outOfTime;
Message outOfMemory;

void endWith(const Message& message) {
    // Whether it can be printed or not, there is no more to be done.
    static_cast<void>(!write(STDERR_FILENO, message.text, message.length));
    _exit(ExitCodeFailed);
}

void onTimeout(int) {
    endWith(outOfTime);
}

// Libraries that don't get their memory abort.
void onAbort(int) {
    endWith(outOfMemory);
}

// Never raises a bound that somebody else has set.
void bound(int resource, rlim_t soft) {
    rlimit limit = {};
    if (getrlimit(static_cast<__rlimit_resource>(resource), &limit) != 0) return;
    limit.rlim_cur = std::min({limit.rlim_cur, limit.rlim_max, soft});
    setrlimit(static_cast<__rlimit_resource>(resource), &limit);
}

void unbound(int resource) {
    rlimit limit = {};
    if (getrlimit(static_cast<__rlimit_resource>(resource), &limit) != 0) return;
    limit.rlim_cur = limit.rlim_max;
    setrlimit(static_cast<__rlimit_resource>(resource), &limit);
}

} // namespace

SelfLimits::SelfLimits(const std::string& file, std::size_t fileSize) {
    outOfTime.set(file, "takes too long for a thumbnail");
    outOfMemory.set(file, "takes too much memory for a thumbnail");
    std::signal(SIGXCPU, onTimeout);
    std::signal(SIGALRM, onTimeout);
    std::signal(SIGABRT, onAbort);
    std::signal(SIGTRAP, onAbort);
    bound(RLIMIT_CPU, processorSeconds);
    alarm(wallSeconds);
#if !defined(__SANITIZE_ADDRESS__) // whose shadow takes more than any bound
    bound(RLIMIT_AS, memory + fileSize);
#else
    static_cast<void>(fileSize);
    static_cast<void>(memory);
#endif
}

SelfLimits::~SelfLimits() {
    alarm(0);
    unbound(RLIMIT_CPU);
    for (const int signal : {SIGXCPU, SIGALRM, SIGABRT, SIGTRAP})
        std::signal(signal, SIG_DFL);
}
