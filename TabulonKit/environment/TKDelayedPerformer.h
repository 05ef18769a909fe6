#pragma once

// Sends actions to one target after a delay, and takes back those that still wait. A waiting action keeps the
// target and its argument alive. Belongs to one thread, on whose run loop the actions fire.

#include "environment/TKScheduledAction.h"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

class TKDelayedPerformer final : TKScheduledActionDelegate {
public:
    TKDelayedPerformer() = default;
    explicit TKDelayedPerformer(std::weak_ptr<TKActionTarget> newTarget)
        : receiver(std::move(newTarget)) {}
    ~TKDelayedPerformer() override;
    TKDelayedPerformer(const TKDelayedPerformer&) = delete;
    TKDelayedPerformer& operator=(const TKDelayedPerformer&) = delete;

    // Null once the target is gone; then nothing is scheduled any more.
    std::shared_ptr<TKActionTarget> target() const { return receiver.lock(); }
    void setTarget(std::weak_ptr<TKActionTarget> target) { receiver = std::move(target); }

    void performAction(std::string action, std::shared_ptr<void> argument, double delay);

    // An argument is the very object, not an equal one.
    void cancelActionsWithSelector(std::string_view action);
    void cancelActionsWithSelector(std::string_view action, const std::shared_ptr<void>& argument);
    void cancelAllActions();

    // How many wait.
    std::size_t countOfScheduledActions() const { return scheduledActions.size(); }

private:
    void scheduledActionDidFire(TKScheduledAction& action) override;

    std::weak_ptr<TKActionTarget> receiver;
    std::vector<std::shared_ptr<TKScheduledAction>> scheduledActions;
};
