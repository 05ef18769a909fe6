#pragma once

// Values that work on a queue will bring. Any thread may wait for one, and so may several at once. What the
// work throws comes out of `get`.

#include "dispatch/DispatchQueue.h"
#include "dispatch/Semaphore.h"

#include <any>
#include <atomic>
#include <exception>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <utility>
#include <vector>

namespace NY {

template <typename T>
class DispatchFuture {
public:
    using Work = std::function<T()>;

    // Starts the work on the queue, which has to outlive the future.
    static std::shared_ptr<DispatchFuture> dispatch_create(platform::DispatchQueue& queue, Work work) {
        auto future = std::make_shared<DispatchFuture>(queue);
        queue.async([future, work = std::move(work)]() mutable { future->resolveWith(std::move(work)); });
        return future;
    }

    explicit DispatchFuture(platform::DispatchQueue& workQueue)
        : ownQueue(workQueue) {}
    DispatchFuture(const DispatchFuture&) = delete;
    DispatchFuture& operator=(const DispatchFuture&) = delete;

    platform::DispatchQueue& queue() const { return ownQueue; }

    // Blocks until the value is there.
    const T& get() {
        if (!resolved) {
            semaphore.wait();
            semaphore.signal(); // for whoever waits as well
        }
        if (failure) std::rethrow_exception(failure);
        return *value;
    }

private:
    // What the work holds is let go of before the value is there, so that nothing ends behind the back of
    // whoever waits for it.
    void resolveWith(Work work) {
        try {
            value = work();
        } catch (...) {
            failure = std::current_exception();
        }
        work = nullptr;
        semaphore.signal();
        resolved = true;
    }

    platform::DispatchQueue& ownQueue;
    platform::Semaphore semaphore;
    std::optional<T> value;
    std::exception_ptr failure;
    std::atomic<bool> resolved{false};
};

} // namespace NY

// A future whose value can be of any type, also none.
class NYDispatchFuture {
public:
    using Future = std::shared_ptr<NYDispatchFuture>;
    using Private = NY::DispatchFuture<std::any>;

    static Future futureOnQueue(platform::DispatchQueue& queue, Private::Work work);

    // Waits for each of them in turn, on the queue of the first one, and brings no value. Null for no
    // futures.
    static Future all(std::span<const Future> futures);

    explicit NYDispatchFuture(std::shared_ptr<Private> future)
        : wrapped(std::move(future)) {}

    platform::DispatchQueue& queue() const { return wrapped->queue(); }
    const std::any& get() const { return wrapped->get(); }

private:
    std::shared_ptr<Private> wrapped;
};

// What a function makes of the values of one or two futures, on the queue of the first one.
std::shared_ptr<NYDispatchFuture>
NYDispatchFutureTransform(const std::shared_ptr<NYDispatchFuture>& source,
                          std::function<std::any(const std::any&)> transform);
std::shared_ptr<NYDispatchFuture>
NYDispatchFutureTransform2(const std::shared_ptr<NYDispatchFuture>& first,
                           const std::shared_ptr<NYDispatchFuture>& second,
                           std::function<std::any(const std::any&, const std::any&)> transform);
