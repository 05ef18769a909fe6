#pragma once

// The work that the kernel does on a thread, counted in steps so that a calculation costs the same on every
// machine, and the limit that its caller sets. A step is about the product of two limbs, which takes around a
// nanosecond today. Operations on short values are neither counted nor refused: only what is longer than any
// value of the usual precision counts, so that the usual path pays nothing. An operation whose steps would
// pass the limit isn't begun: it gives 0, without a message, and so do all long ones after it. Whoever set
// the limit looks at `m_apm_work_is_spent` and throws the results away. Nothing that is kept from one
// calculation to the next (constants of many digits, tables) changes the count.

#include <cstdint>

struct M_APM_work {
    std::int64_t steps = 0;
    std::int64_t limit = INT64_MAX; // none
};

// Of the calling thread, which need not hold the kernel's lock for it.
extern constinit thread_local M_APM_work m_apm_work;

// Counts steps, and answers whether they are within the limit. Never counts past INT64_MAX.
inline bool m_apm_charge(std::int64_t steps) {
    M_APM_work& work = m_apm_work;
    work.steps = steps > INT64_MAX - work.steps ? INT64_MAX : work.steps + steps;
    return work.steps <= work.limit;
}

inline bool m_apm_work_is_spent() {
    return m_apm_work.steps > m_apm_work.limit;
}
