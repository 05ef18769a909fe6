#include "NotificationCenter.h"

#include <gmock/gmock.h>

#include <atomic>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <vector>

using platform::Notification;
using platform::NotificationCenter;
using testing::ElementsAre;

namespace {

TEST(NotificationCenter, DeliversByNameAndObjectInTheOrderOfObservers) {
    NotificationCenter center;
    const auto rent = std::make_shared<int>(1);
    const auto food = std::make_shared<int>(2);
    std::vector<std::string> heard;
    const auto hears = [&](std::string who) {
        return [&heard, who = std::move(who)](const Notification& n) { heard.push_back(who + " " + n.name); };
    };
    const auto anyAdded = center.addObserver("added", nullptr, hears("any"));
    const auto rentOnly = center.addObserver("added", rent.get(), hears("rent"));
    const auto everything = center.addObserver("", nullptr, hears("all"));

    center.post("added", food);
    center.post("added", rent);
    center.post("removed", rent);
    EXPECT_THAT(heard,
                ElementsAre("any added", "all added", "any added", "rent added", "all added", "all removed"));
}

TEST(NotificationCenter, HandsOverObjectAndDetails) {
    NotificationCenter center;
    std::string code;
    int count = 0;
    const auto token = center.addObserver("rates", nullptr, [&](const Notification& n) {
        code = *n.objectAs<std::string>();
        count = std::any_cast<int>(n.userInfo.at("count"));
    });
    center.post("rates", std::make_shared<std::string>("EUR"), {{"count", 3}});
    EXPECT_EQ(code, "EUR");
    EXPECT_EQ(count, 3);
}

TEST(NotificationCenter, ObservationsEndWithTheirToken) {
    std::optional<NotificationCenter> center(std::in_place);
    int calls = 0;
    const auto count = [&](const Notification&) { ++calls; };
    auto token = center->addObserver("n", nullptr, count);
    {
        const auto shortLived = center->addObserver("n", nullptr, count);
        center->post("n");
    }
    EXPECT_EQ(calls, 2);
    auto moved = std::move(token);
    center->post("n");
    EXPECT_EQ(calls, 3);
    moved = {};
    center->post("n");
    EXPECT_EQ(calls, 3);

    auto survivor = center->addObserver("n", nullptr, count);
    center.reset();
    survivor.reset(); // the centre is gone: nothing to do, nothing to touch
}

TEST(NotificationCenter, CallbacksMayPostAddAndEndObservations) {
    NotificationCenter center;
    std::vector<std::string> heard;
    NotificationCenter::Observation second, late;
    const auto first = center.addObserver("outer", nullptr, [&](const Notification&) {
        heard.push_back("first");
        second.reset();
        late = center.addObserver("outer", nullptr, [&](const Notification&) { heard.push_back("late"); });
        center.post("inner");
    });
    second = center.addObserver("outer", nullptr, [&](const Notification&) { heard.push_back("second"); });
    const auto inner =
        center.addObserver("inner", nullptr, [&](const Notification&) { heard.push_back("inner"); });
    center.post("outer");
    EXPECT_THAT(heard, ElementsAre("first", "inner"));
}

TEST(NotificationCenter, ThreadsMayPostWhileObserversComeAndGo) {
    NotificationCenter center;
    std::atomic<int> calls{0};
    const auto steady = center.addObserver("n", nullptr, [&](const Notification&) { ++calls; });
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i)
        threads.emplace_back([&] {
            for (int j = 0; j < 200; ++j) {
                const auto passing = center.addObserver("other", nullptr, [](const Notification&) {});
                center.post("n");
            }
        });
    for (auto& thread : threads)
        thread.join();
    EXPECT_EQ(calls, 800);
}

} // namespace
