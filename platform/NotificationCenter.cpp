#include "NotificationCenter.h"

#include "dispatch/MainQueue.h"

#include <algorithm>
#include <atomic>
#include <iterator>
#include <mutex>
#include <utility>
#include <vector>

namespace platform {

struct NotificationCenter::Observer {
    std::string name;
    const void* object;
    Callback callback;
    bool onMainQueue = false;
    std::atomic<bool> ended{false};

    bool wants(const Notification& notification) const {
        return (name.empty() || name == notification.name) &&
               (!object || object == notification.object.get());
    }

    void tell(const Notification& notification) const {
        if (!ended) callback(notification);
    }
};

struct NotificationCenter::Registry {
    std::mutex mutex; // never held while a callback runs, so that callbacks may post and observe
    std::vector<std::shared_ptr<Observer>> observers;
};

NotificationCenter::Observation::Observation() noexcept = default;

NotificationCenter::Observation::Observation(Observation&& other) noexcept
    : registry(std::move(other.registry))
    , observer(std::move(other.observer)) {}

NotificationCenter::Observation& NotificationCenter::Observation::operator=(Observation&& other) noexcept {
    if (this != &other) {
        reset();
        registry = std::move(other.registry);
        observer = std::move(other.observer);
    }
    return *this;
}

NotificationCenter::Observation::~Observation() {
    reset();
}

void NotificationCenter::Observation::reset() {
    if (!observer) return;
    observer->ended = true;
    if (const auto living = registry.lock()) {
        const std::lock_guard lock(living->mutex);
        std::erase(living->observers, observer);
    }
    observer.reset();
    registry.reset();
}

NotificationCenter::NotificationCenter()
    : registry(std::make_shared<Registry>()) {}

NotificationCenter::~NotificationCenter() = default;

NotificationCenter& NotificationCenter::shared() {
    static NotificationCenter& center = *new NotificationCenter;
    return center;
}

NotificationCenter::Observation NotificationCenter::addObserver(std::string_view name, const void* object,
                                                                Callback callback) {
    return add(name, object, std::move(callback), false);
}

NotificationCenter::Observation
NotificationCenter::addMainQueueObserver(std::string_view name, const void* object, Callback callback) {
    return add(name, object, std::move(callback), true);
}

NotificationCenter::Observation NotificationCenter::add(std::string_view name, const void* object,
                                                        Callback callback, bool onMainQueue) {
    Observation observation;
    if (!callback) return observation;
    observation.registry = registry;
    observation.observer = std::make_shared<Observer>();
    observation.observer->name = name;
    observation.observer->object = object;
    observation.observer->callback = std::move(callback);
    observation.observer->onMainQueue = onMainQueue;
    const std::lock_guard lock(registry->mutex);
    registry->observers.push_back(observation.observer);
    return observation;
}

void NotificationCenter::post(std::string_view name, std::shared_ptr<void> object, UserInfo userInfo) {
    const Notification notification{std::string(name), std::move(object), std::move(userInfo)};
    std::vector<std::shared_ptr<Observer>> addressees;
    {
        const std::lock_guard lock(registry->mutex);
        std::copy_if(registry->observers.begin(), registry->observers.end(), std::back_inserter(addressees),
                     [&](const auto& observer) { return observer->wants(notification); });
    }
    for (const auto& observer : addressees) {
        if (observer->onMainQueue && !MainQueue::shared().isCurrent())
            MainQueue::shared().async([observer, notification] { observer->tell(notification); });
        else
            observer->tell(notification);
    }
}

} // namespace platform
