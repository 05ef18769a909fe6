#include "process/OwnProcess.h"

#include "CommandFailure.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <new>
#include <string_view>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr rlim_t processorSeconds = 15;
constexpr unsigned wallSeconds = 30;
constexpr rlim_t memory = rlim_t{512} << 20;

// How a report begins that the worker could make.
constexpr char resultMark = 'R';
constexpr char failureMark = 'F';

// Bytes that two processes share, written by the one and read by the other when that has ended.
class SharedBytes {
public:
    SharedBytes()
        : descriptor(memfd_create("tabulon", MFD_CLOEXEC)) {
        if (descriptor < 0) throw std::bad_alloc();
    }
    ~SharedBytes() { close(descriptor); }
    SharedBytes(const SharedBytes&) = delete;
    SharedBytes& operator=(const SharedBytes&) = delete;

    bool write(std::string_view bytes) const {
        while (!bytes.empty()) {
            const ssize_t count = ::write(descriptor, bytes.data(), bytes.size());
            if (count < 0 && errno == EINTR) continue;
            if (count <= 0) return false;
            bytes.remove_prefix(static_cast<std::size_t>(count));
        }
        return true;
    }

    std::string read() const {
        std::string bytes;
        char buffer[65536];
        off_t place = 0;
        while (true) {
            const ssize_t count = pread(descriptor, buffer, sizeof buffer, place);
            if (count < 0 && errno == EINTR) continue;
            if (count <= 0) return bytes;
            bytes.append(buffer, static_cast<std::size_t>(count));
            place += count;
        }
    }

    const int descriptor;
};

void bound(int resource, rlim_t soft) {
    rlimit limit = {};
    if (getrlimit(static_cast<__rlimit_resource>(resource), &limit) != 0) return;
    limit.rlim_cur = std::min({limit.rlim_cur, limit.rlim_max, soft});
    setrlimit(static_cast<__rlimit_resource>(resource), &limit);
}

void setBounds(OwnProcessBounds bounds) {
    prctl(PR_SET_PDEATHSIG, SIGKILL); // nobody would take the result
    bound(RLIMIT_CORE, 0);
    bound(RLIMIT_CPU, processorSeconds);
    alarm(wallSeconds);
#if !defined(__SANITIZE_ADDRESS__) // whose shadow takes more than any bound
    bound(RLIMIT_AS, memory + bounds.fileSize);
#else
    static_cast<void>(bounds);
    static_cast<void>(memory);
#endif
}

// The worker's whole life. A report without its end is none, so that a failed write needs no other sign.
[[noreturn]] void workAndExit(const std::function<std::string()>& work, const SharedBytes& report) {
    bool isReported = false;
    try {
        isReported = report.write(resultMark + work());
    } catch (const CommandFailure& failure) {
        isReported = report.write(failureMark + failure.file + '\0' + failure.why);
    } catch (const std::exception&) {
        // Memory is all that fails in this way.
        std::signal(SIGABRT, SIG_DFL);
        std::abort();
    }
    _exit(isReported ? ExitCodeDone : ExitCodeFailed);
}

int waitFor(pid_t process) {
    int status = 0;
    while (waitpid(process, &status, 0) < 0 && errno == EINTR) {
    }
    return status;
}

std::string reasonOfEnd(int status) {
    if (!WIFSIGNALED(status)) return "can't be drawn: there is not enough memory";
    switch (WTERMSIG(status)) {
    case SIGXCPU:
    case SIGALRM:
        return "takes too long for a thumbnail";
    // Libraries that don't get their memory abort; the system kills.
    case SIGABRT:
    case SIGTRAP:
    case SIGKILL:
        return "takes too much memory for a thumbnail";
    default:
        return std::string("can't be drawn: ") + strsignal(WTERMSIG(status));
    }
}

} // namespace

std::string resultOfOwnProcess(const std::function<std::string()>& work, const std::string& file,
                               OwnProcessBounds bounds) {
    const SharedBytes report, messages;
    const pid_t process = fork();
    if (process < 0) throw std::bad_alloc();
    if (process == 0) {
#if !defined(__SANITIZE_ADDRESS__) // whose findings are for everybody
        dup2(messages.descriptor, STDERR_FILENO);
#endif
        setBounds(bounds);
        workAndExit(work, report);
    }
    const int status = waitFor(process);
    std::string bytes = report.read();
    const bool isReported = WIFEXITED(status) && WEXITSTATUS(status) == ExitCodeDone && !bytes.empty();
    if (!isReported) throw CommandFailure{ExitCodeFailed, file, reasonOfEnd(status)};
    const std::string said = messages.read();
    static_cast<void>(!write(STDERR_FILENO, said.data(), said.size()));
    if (bytes.front() == resultMark) return bytes.substr(1);
    const std::size_t end = bytes.find('\0');
    throw CommandFailure{ExitCodeFailed, bytes.substr(1, end - 1), bytes.substr(end + 1)};
}
