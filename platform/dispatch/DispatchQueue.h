#pragma once

// Where jobs run that their maker doesn't wait for. Any thread may hand over jobs; a job must not throw.

#include <functional>

namespace platform {

class DispatchQueue {
public:
    using Job = std::function<void()>;

    virtual ~DispatchQueue() = default;

    // Returns at once; the job runs later on the queue.
    virtual void async(Job job) = 0;
};

} // namespace platform
