#pragma once

// A counter that never falls below 0: who takes from it waits until there is something. Any thread.

#include <condition_variable>
#include <cstdint>
#include <mutex>

namespace platform {

class Semaphore {
public:
    explicit Semaphore(uint32_t initialCount = 0)
        : count(initialCount) {}

    void signal() {
        const std::lock_guard lock(mutex);
        ++count;
        counted.notify_one();
    }

    void wait() {
        std::unique_lock lock(mutex);
        counted.wait(lock, [this] { return count > 0; });
        --count;
    }

private:
    std::mutex mutex;
    std::condition_variable counted;
    uint32_t count;
};

} // namespace platform
