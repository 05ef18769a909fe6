#pragma once

// The queue for work in the background: jobs begin in the order in which they came and run side by side on
// threads of their own. A job may wait for another one, since waiting threads make room for new ones, up to
// 64. Threads that have had nothing to do for a while end by themselves.

#include "dispatch/DispatchQueue.h"

namespace platform {

class WorkerQueue final : public DispatchQueue {
public:
    // The queue of the process at the usual priority; never destroyed, so that jobs may outlive `main`.
    static WorkerQueue& global();

    void async(Job job) override;

    WorkerQueue(const WorkerQueue&) = delete;
    WorkerQueue& operator=(const WorkerQueue&) = delete;

private:
    struct Pool;

    WorkerQueue();

    Pool& pool; // never freed: idle threads look at it
};

} // namespace platform
