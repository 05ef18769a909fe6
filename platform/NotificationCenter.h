#pragma once

// Named broadcasts between parts of the system that don't know each other. Who posts gives a name, the
// object that the news is about and free details; who observes is called back in the order in which the
// observers were added, on the poster's thread or on the main queue. Any thread may post, add observers and
// end observations.

#include <any>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace platform {

using UserInfo = std::map<std::string, std::any>;

struct Notification {
    std::string name;
    std::shared_ptr<void> object; // null if there is none; `objectAs` gives it its type back
    UserInfo userInfo;

    // The type must be the one that the notification's name stands for.
    template <typename T>
    std::shared_ptr<T> objectAs() const {
        return std::static_pointer_cast<T>(object);
    }
};

class NotificationCenter {
    struct Observer;
    struct Registry;

public:
    using Callback = std::function<void(const Notification&)>;

    // Observes until it is destroyed or reset. A call that has already begun on another thread may still
    // be running then. A token may outlive its centre.
    class Observation {
    public:
        Observation() noexcept;
        Observation(Observation&& other) noexcept;
        Observation& operator=(Observation&& other) noexcept;
        ~Observation();

        void reset();
        explicit operator bool() const { return observer != nullptr; }

    private:
        friend class NotificationCenter;
        std::weak_ptr<Registry> registry;
        std::shared_ptr<Observer> observer;
    };

    NotificationCenter();
    ~NotificationCenter();
    NotificationCenter(const NotificationCenter&) = delete;
    NotificationCenter& operator=(const NotificationCenter&) = delete;

    // The centre of the process; never destroyed.
    static NotificationCenter& shared();

    // An empty name observes every name, a null object the news about any object. The object is compared
    // by address and not kept alive. A null callback observes nothing.
    [[nodiscard]] Observation addObserver(std::string_view name, const void* object, Callback callback);

    // The same with the callback on the main queue: at once for news that are posted there, and otherwise as
    // a job of that queue, for which `post` doesn't wait.
    [[nodiscard]] Observation addMainQueueObserver(std::string_view name, const void* object,
                                                   Callback callback);

    // Returns when all observers on this thread have been called. Those added meanwhile hear the next
    // notification; those that end meanwhile are left out.
    void post(std::string_view name, std::shared_ptr<void> object = nullptr, UserInfo userInfo = {});

private:
    Observation add(std::string_view name, const void* object, Callback callback, bool onMainQueue);

    std::shared_ptr<Registry> registry;
};

} // namespace platform
