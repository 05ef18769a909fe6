#include "environment/TKDelayedPerformer.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace {

using Actions = std::vector<std::shared_ptr<TKScheduledAction>>;

template <typename Predicate>
void invalidateAndRemove(Actions& actions, Predicate isMeant) {
    const auto kept = std::stable_partition(actions.begin(), actions.end(),
                                            [&](const auto& action) { return !isMeant(*action); });
    const Actions removed(std::make_move_iterator(kept), std::make_move_iterator(actions.end()));
    actions.erase(kept, actions.end());
    for (const auto& action : removed) {
        action->setDelegate(nullptr);
        action->invalidate();
    }
}

} // namespace

TKDelayedPerformer::~TKDelayedPerformer() {
    cancelAllActions();
}

void TKDelayedPerformer::performAction(std::string action, std::shared_ptr<void> argument, double delay) {
    auto living = target();
    if (!living) return;
    auto scheduled =
        TKScheduledAction::actionWithTarget(std::move(living), std::move(action), std::move(argument));
    scheduled->setDelegate(this);
    scheduledActions.push_back(scheduled);
    scheduled->fireAfterDelay(delay);
}

void TKDelayedPerformer::cancelActionsWithSelector(std::string_view action) {
    invalidateAndRemove(scheduledActions, [&](const auto& each) { return each.action() == action; });
}

void TKDelayedPerformer::cancelActionsWithSelector(std::string_view action,
                                                   const std::shared_ptr<void>& argument) {
    invalidateAndRemove(scheduledActions, [&](const auto& each) {
        return each.action() == action && each.argument() == argument;
    });
}

void TKDelayedPerformer::cancelAllActions() {
    invalidateAndRemove(scheduledActions, [](const auto&) { return true; });
}

void TKDelayedPerformer::scheduledActionDidFire(TKScheduledAction& action) {
    const auto fired = std::ranges::find(scheduledActions, &action, &std::shared_ptr<TKScheduledAction>::get);
    if (fired == scheduledActions.end()) return;
    // The last reference may be to the target, and that may own this performer.
    const std::shared_ptr<TKScheduledAction> kept = std::move(*fired);
    scheduledActions.erase(fired);
}
