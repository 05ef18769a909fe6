#pragma once

// Calls back once after a delay, from the loop of the thread that started it: GLib's context that is the
// default of that thread. Belongs to that thread. Ending the timer takes back a call that hasn't come yet,
// and a call may end its own timer.

#include <functional>

using GSource = struct _GSource;

namespace platform {

class RunLoopTimer {
public:
    RunLoopTimer() = default;
    ~RunLoopTimer() { stop(); }
    RunLoopTimer(const RunLoopTimer&) = delete;
    RunLoopTimer& operator=(const RunLoopTimer&) = delete;

    // In so many seconds. A call that still waits is taken back.
    void start(double seconds, std::function<void()> callback);
    void stop();

private:
    void fire();

    GSource* source = nullptr; // a reference of its own, while a call waits
    std::function<void()> pending;
};

} // namespace platform
