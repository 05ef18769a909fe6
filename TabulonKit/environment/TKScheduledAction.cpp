#include "environment/TKScheduledAction.h"

#include "environment/TCWarnLog.h"

#include <utility>

std::shared_ptr<TKScheduledAction> TKScheduledAction::actionWithTarget(Target target, std::string action,
                                                                       Argument argument) {
    return std::make_shared<TKScheduledAction>(std::move(target), std::move(action), std::move(argument));
}

void TKScheduledAction::fireAfterDelay(double seconds) {
    isValid = true;
    timer.start(seconds, [this] { _fire(); });
}

void TKScheduledAction::invalidate() {
    timer.stop();
    isValid = false;
}

void TKScheduledAction::_fire() {
    if (isValid) {
        const Target receiver = ownTarget; // what it does may change this action
        if (receiver && receiver->respondsToAction(name))
            receiver->performAction(name, ownArgument);
        else
            TCWarnLog("Warning: target %p doesn't respond to %s", static_cast<void*>(receiver.get()),
                      name.c_str());
    }
    if (observer) observer->scheduledActionDidFire(*this);
}
