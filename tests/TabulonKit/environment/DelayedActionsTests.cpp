#include "environment/TKDelayedLatestPerformer.h"
#include "environment/TKDelayedPerformer.h"
#include "environment/TKEventThrottler.h"

#include "RunLoopTesting.h"

#include <gmock/gmock.h>

#include <memory>
#include <string>
#include <vector>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Recorder final : TKActionTarget {
    std::vector<std::string> heard;

    bool respondsToAction(std::string_view action) const override { return action != "unknown"; }
    void performAction(std::string_view action, const std::shared_ptr<void>& argument) override {
        heard.push_back(std::string(action) +
                        (argument ? " " + *std::static_pointer_cast<std::string>(argument) : ""));
    }
};

struct Listener final : TKScheduledActionDelegate {
    int fired = 0;
    void scheduledActionDidFire(TKScheduledAction&) override { ++fired; }
};

std::shared_ptr<std::string> argument(const char* text) {
    return std::make_shared<std::string>(text);
}

TEST(TKScheduledActionTests, FiresOnceAndTellsItsDelegate) {
    const auto target = std::make_shared<Recorder>();
    Listener listener;
    const auto action = TKScheduledAction::actionWithTarget(target, "save", argument("a"));
    action->setDelegate(&listener);
    EXPECT_FALSE(action->valid());
    action->fireAfterDelay(0);
    EXPECT_TRUE(action->valid());
    EXPECT_TRUE(RunLoopTesting::runUntil([&] { return listener.fired > 0; }));
    EXPECT_THAT(target->heard, ElementsAre("save a"));
}

TEST(TKScheduledActionTests, WithoutAValidActionOrATargetForItTheDelegateIsToldAllTheSame) {
    const auto target = std::make_shared<Recorder>();
    Listener listener;
    const auto action = TKScheduledAction::actionWithTarget(target, "save", nullptr);
    action->setDelegate(&listener);
    action->fireAfterDelay(0);
    action->invalidate();
    RunLoopTesting::runFor(0.005);
    EXPECT_EQ(listener.fired, 0);
    action->_fire();
    EXPECT_EQ(listener.fired, 1);

    const auto unknown = TKScheduledAction::actionWithTarget(target, "unknown", nullptr);
    unknown->setDelegate(&listener);
    unknown->setValid(true);
    unknown->_fire();
    EXPECT_EQ(listener.fired, 2);
    EXPECT_THAT(target->heard, IsEmpty());
}

TEST(TKDelayedPerformerTests, SendsWhatWasNotCancelled) {
    const auto target = std::make_shared<Recorder>();
    TKDelayedPerformer performer{target};
    const auto first = argument("x");
    performer.performAction("a", first, 0);
    performer.performAction("a", argument("x"), 0);
    performer.performAction("b", nullptr, 0.002);
    performer.performAction("c", nullptr, 0);
    performer.cancelActionsWithSelector("a", argument("x")); // equal, but another object
    EXPECT_EQ(performer.countOfScheduledActions(), 4u);
    performer.cancelActionsWithSelector("a", first);
    performer.cancelActionsWithSelector("c");
    EXPECT_EQ(performer.countOfScheduledActions(), 2u);
    EXPECT_TRUE(RunLoopTesting::runUntil([&] { return performer.countOfScheduledActions() == 0; }));
    EXPECT_THAT(target->heard, ElementsAre("a x", "b"));

    performer.performAction("d", nullptr, 0);
    performer.cancelAllActions();
    RunLoopTesting::runFor(0.005);
    EXPECT_THAT(target->heard, ElementsAre("a x", "b"));
}

TEST(TKDelayedPerformerTests, AWaitingActionKeepsItsTargetAlive) {
    auto target = std::make_shared<Recorder>();
    const std::weak_ptr<Recorder> watched = target;
    TKDelayedPerformer performer{target};
    performer.performAction("a", nullptr, 0);
    target.reset();
    EXPECT_FALSE(watched.expired());
    EXPECT_TRUE(RunLoopTesting::runUntil([&] { return watched.expired(); }));
    performer.performAction("a", nullptr, 0);
    EXPECT_EQ(performer.countOfScheduledActions(), 0u) << "nobody would hear it";
}

TEST(TKDelayedLatestPerformerTests, OnlyTheLastBlockOfABurstRuns) {
    const auto performer = TKDelayedLatestPerformer::make();
    std::vector<int> ran;
    performer->performBlock([&] { ran.push_back(1); }, 0);
    performer->performBlock([&] { ran.push_back(2); }, 0.005);
    EXPECT_TRUE(RunLoopTesting::runUntil([&] { return !ran.empty(); }));
    EXPECT_THAT(ran, ElementsAre(2));
    performer->performBlock([&] { ran.push_back(3); }, 0);
    performer->performBlock(nullptr, 0);
    RunLoopTesting::runFor(0.005);
    EXPECT_THAT(ran, ElementsAre(2));
}

TEST(TKEventThrottlerTests, HoldsEventsBackForTheInterval) {
    TKEventThrottler throttler;
    throttler.setEventInterval(3600);
    EXPECT_TRUE(throttler.mayFire());
    EXPECT_FALSE(throttler.mayFire());
    throttler.setEventInterval(-1);
    EXPECT_TRUE(throttler.mayFire());
}

} // namespace
