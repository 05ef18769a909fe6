#include "NotificationCenter.h"
#include "dispatch/Delay.h"
#include "dispatch/MainQueue.h"
#include "dispatch/RunLoopTimer.h"
#include "dispatch/Semaphore.h"
#include "dispatch/WorkerQueue.h"

#include <gmock/gmock.h>

#include <atomic>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <functional>
#include <memory>
#include <thread>
#include <vector>

namespace platform {
namespace {

using testing::ElementsAre;

// Turns the loop until something has become true; false after a long wait.
bool runUntil(const std::function<bool()>& isDone) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (!isDone() && std::chrono::steady_clock::now() < deadline) {
        MainQueue::shared().runPending();
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return isDone();
}

TEST(WorkerQueueTests, JobsRunOnOtherThreadsAndAreLetGoAfterwards) {
    const auto held = std::make_shared<int>(0);
    Semaphore done;
    std::thread::id worker;
    WorkerQueue::global().async([&, copy = held] {
        worker = std::this_thread::get_id();
        done.signal();
    });
    done.wait();
    EXPECT_NE(worker, std::this_thread::get_id());
    EXPECT_TRUE(runUntil([&] { return held.use_count() == 1; }));
}

// Each job waits for the next one: with a fixed small number of threads, this would stand still.
TEST(WorkerQueueTests, AJobMayWaitForALaterJob) {
    constexpr int count = 20;
    Semaphore reached[count];
    Semaphore done;
    for (int i = 0; i < count; ++i) {
        WorkerQueue::global().async([&, i] {
            if (i + 1 < count) reached[i + 1].wait();
            (i == 0 ? done : reached[i]).signal();
        });
    }
    done.wait();
}

TEST(MainQueueTests, JobsWaitForALoopAndRunInOrderOnItsThread) {
    std::vector<int> order;
    MainQueue& queue = MainQueue::shared();
    queue.async([&] {
        EXPECT_TRUE(queue.isCurrent());
        order.push_back(1);
        queue.async([&] { order.push_back(3); });
    });
    std::thread([&] { queue.async([&] { order.push_back(2); }); }).join();
    EXPECT_FALSE(queue.isCurrent());
    EXPECT_THAT(order, ElementsAre());
    queue.runPending();
    EXPECT_THAT(order, ElementsAre(1, 2, 3));
}

TEST(MainQueueTests, DelayedJobsComeInTheOrderOfTheirTime) {
    std::vector<int> order;
    MainQueue::shared().asyncAfter(0.03, [&] { order.push_back(2); });
    MainQueue::shared().asyncAfter(0.0, [&] { order.push_back(1); });
    EXPECT_TRUE(runUntil([&] { return order.size() == 2; }));
    EXPECT_THAT(order, ElementsAre(1, 2));
}

TEST(DelayTests, IsWholeMillisecondsWithinTheirRange) {
    EXPECT_EQ(millisecondsOfDelay(5.0), 5000u);
    EXPECT_EQ(millisecondsOfDelay(0.0001), 1u);
    EXPECT_EQ(millisecondsOfDelay(-1), 0u);
    EXPECT_EQ(millisecondsOfDelay(1e300), UINT32_MAX);
    EXPECT_EQ(millisecondsOfDelay(std::nan("")), 0u);
}

TEST(RunLoopTimerTests, FiresOnceAndNotAfterItWasStopped) {
    int fired = 0;
    int stopped = 0;
    RunLoopTimer timer, other;
    timer.start(0.0, [&] { ++fired; });
    other.start(0.0, [&] { ++stopped; });
    other.stop();
    EXPECT_TRUE(runUntil([&] { return fired == 1; }));
    timer.start(0.005, [&] { ++fired; });
    EXPECT_TRUE(runUntil([&] { return fired == 2; }));
    EXPECT_EQ(stopped, 0);
}

TEST(RunLoopTimerTests, ACallMayEndItsTimer) {
    auto timer = std::make_unique<RunLoopTimer>();
    bool fired = false;
    timer->start(0.0, [&] {
        timer.reset();
        fired = true;
    });
    EXPECT_TRUE(runUntil([&] { return fired; }));
}

TEST(MainQueueObserverTests, HearsAtOnceOnTheMainQueueAndLaterFromElsewhere) {
    NotificationCenter center;
    std::vector<std::string> heard;
    auto observation = center.addMainQueueObserver("", nullptr, [&](const Notification& n) {
        EXPECT_TRUE(MainQueue::shared().isCurrent());
        heard.push_back(n.name);
    });
    std::thread([&] { center.post("elsewhere"); }).join();
    EXPECT_THAT(heard, ElementsAre());
    MainQueue::shared().runPending();
    EXPECT_THAT(heard, ElementsAre("elsewhere"));

    MainQueue::shared().async([&] {
        center.post("here");
        EXPECT_THAT(heard, ElementsAre("elsewhere", "here"));
    });
    MainQueue::shared().runPending();

    center.post("too late");
    observation.reset();
    MainQueue::shared().runPending();
    EXPECT_THAT(heard, ElementsAre("elsewhere", "here"));
}

} // namespace
} // namespace platform
