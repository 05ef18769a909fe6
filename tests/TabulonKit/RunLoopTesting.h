#pragma once

// Turns the main loop from a test.

#include "dispatch/MainQueue.h"

#include <chrono>
#include <functional>
#include <thread>

namespace RunLoopTesting {

inline void runFor(double seconds) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::duration<double>(seconds);
    do {
        platform::MainQueue::shared().runPending();
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    } while (std::chrono::steady_clock::now() < end);
}

// Until something has become true; false after a long wait.
inline bool runUntil(const std::function<bool()>& isDone) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (!isDone() && std::chrono::steady_clock::now() < deadline)
        runFor(0);
    return isDone();
}

} // namespace RunLoopTesting
