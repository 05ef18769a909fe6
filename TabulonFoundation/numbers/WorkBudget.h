#pragma once

// The kernel's work that one evaluation may take, for a scope, on the thread that evaluates. Scopes nest: the
// inner one counts by itself, and the outer one goes on where it was. Past the budget the kernel's long
// operations give 0 at once, so whoever set the budget asks `isSpent` at the end and takes no value then.

#include "m_apm_work.h"

#include <cstdint>

namespace TBF {

// The budget of a line by default is standardLineBudget (runtime/Settings.h).
inline constexpr int64_t noBudget = INT64_MAX;

class WorkBudget {
public:
    explicit WorkBudget(int64_t steps)
        : outer(m_apm_work) {
        m_apm_work = {0, steps};
    }
    ~WorkBudget() { m_apm_work = outer; }
    WorkBudget(const WorkBudget&) = delete;
    WorkBudget& operator=(const WorkBudget&) = delete;

    int64_t steps() const { return m_apm_work.steps; }

    // Counts what the kernel doesn't; false past the budget. On the budget of the thread, whichever it is.
    static bool charge(int64_t steps) { return m_apm_charge(steps); }
    static bool isSpent() { return m_apm_work_is_spent(); }

private:
    const M_APM_work outer;
};

} // namespace TBF
