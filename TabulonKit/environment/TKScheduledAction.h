#pragma once

// One action that is sent to its target once, after a delay. It fires on the run loop of the thread that
// scheduled it, and belongs to that thread.

#include "dispatch/RunLoopTimer.h"

#include <memory>
#include <string>
#include <string_view>

class TKScheduledAction;

// Takes actions by name.
class TKActionTarget {
public:
    virtual ~TKActionTarget() = default;

    virtual bool respondsToAction(std::string_view action) const = 0;

    // Sent only for an action to which the target responds. The argument may be null.
    virtual void performAction(std::string_view action, const std::shared_ptr<void>& argument) = 0;
};

class TKScheduledActionDelegate {
public:
    virtual ~TKScheduledActionDelegate() = default;

    // The delay is over, whether or not the action was still valid. May let go of the action.
    virtual void scheduledActionDidFire(TKScheduledAction&) {}
};

class TKScheduledAction {
public:
    using Target = std::shared_ptr<TKActionTarget>;
    using Argument = std::shared_ptr<void>;

    static std::shared_ptr<TKScheduledAction> actionWithTarget(Target target, std::string action,
                                                               Argument argument);

    TKScheduledAction(Target newTarget, std::string newAction, Argument newArgument)
        : ownTarget(std::move(newTarget))
        , name(std::move(newAction))
        , ownArgument(std::move(newArgument)) {}

    void fireAfterDelay(double seconds);
    void invalidate();

    // Public for tests: what the run loop calls.
    void _fire();

    const Target& target() const { return ownTarget; }
    void setTarget(Target target) { ownTarget = std::move(target); }
    const std::string& action() const { return name; }
    void setAction(std::string action) { name = std::move(action); }
    const Argument& argument() const { return ownArgument; }
    void setArgument(Argument argument) { ownArgument = std::move(argument); }

    // From `fireAfterDelay` until `invalidate`.
    bool valid() const { return isValid; }
    void setValid(bool valid) { isValid = valid; }

    // Not owned; may be null.
    TKScheduledActionDelegate* delegate() const { return observer; }
    void setDelegate(TKScheduledActionDelegate* delegate) { observer = delegate; }

private:
    Target ownTarget;
    std::string name;
    Argument ownArgument;
    TKScheduledActionDelegate* observer = nullptr;
    bool isValid = false;
    platform::RunLoopTimer timer;
};
