#include "environment/NYDispatchFuture.h"

NYDispatchFuture::Future NYDispatchFuture::futureOnQueue(platform::DispatchQueue& queue, Private::Work work) {
    return std::make_shared<NYDispatchFuture>(Private::dispatch_create(queue, std::move(work)));
}

NYDispatchFuture::Future NYDispatchFuture::all(std::span<const Future> futures) {
    if (futures.empty()) return nullptr;
    std::vector<Future> awaited(futures.begin(), futures.end());
    platform::DispatchQueue& queue = awaited.front()->queue();
    return futureOnQueue(queue, [awaited = std::move(awaited)] {
        for (const Future& each : awaited)
            each->get();
        return std::any();
    });
}

std::shared_ptr<NYDispatchFuture>
NYDispatchFutureTransform(const std::shared_ptr<NYDispatchFuture>& source,
                          std::function<std::any(const std::any&)> transform) {
    return NYDispatchFuture::futureOnQueue(
        source->queue(), [source, transform = std::move(transform)] { return transform(source->get()); });
}

std::shared_ptr<NYDispatchFuture>
NYDispatchFutureTransform2(const std::shared_ptr<NYDispatchFuture>& first,
                           const std::shared_ptr<NYDispatchFuture>& second,
                           std::function<std::any(const std::any&, const std::any&)> transform) {
    return NYDispatchFuture::futureOnQueue(first->queue(), [first, second, transform = std::move(transform)] {
        return transform(first->get(), second->get());
    });
}
