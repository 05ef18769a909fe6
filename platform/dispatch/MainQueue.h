#pragma once

// The queue whose jobs run one after the other in GLib's default main context, that is on the thread that
// runs the application's loop. While nobody runs a loop, jobs wait. Never destroyed.

#include "dispatch/DispatchQueue.h"

#include <cstdint>
#include <deque>
#include <map>
#include <mutex>

namespace platform {

class MainQueue final : public DispatchQueue {
public:
    static MainQueue& shared();

    void async(Job job) override;

    // Runs the job when so many seconds have gone by.
    void asyncAfter(double seconds, Job job);

    // Whether the calling thread runs the loop: it is inside of a job or another callback of it, or owns the
    // context.
    bool isCurrent() const;

    // For hosts that run no loop: runs what is due and returns. Nothing happens while another thread runs the
    // loop.
    void runPending();

    MainQueue(const MainQueue&) = delete;
    MainQueue& operator=(const MainQueue&) = delete;

private:
    MainQueue() = default;

    void runJobs();
    void runDelayed(uint32_t id);

    // Jobs wait here and not in GLib, which gets told only that there are some.
    std::mutex mutex; // never held while a job runs
    std::deque<Job> jobs;
    std::map<uint32_t, Job> delayedJobs;
    uint32_t lastID = 0;
};

} // namespace platform
