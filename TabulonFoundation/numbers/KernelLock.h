#pragma once

// Holds the decimal kernel's lock for a scope. The plain kernel functions are safe only under it; code
// that makes several kernel calls takes it once, around all of them. It nests on a thread: inside of a
// scope that holds it, another KernelLock costs next to nothing, so numbers may be made and dropped
// there. The kernel's `_mt` functions and `m_apm_enter` must not be called below it: they would wait
// for ever. That is why the foundation uses this guard and not them.

namespace TBF {

class KernelLock {
public:
    KernelLock();
    ~KernelLock();
    KernelLock(const KernelLock&) = delete;
    KernelLock& operator=(const KernelLock&) = delete;
};

} // namespace TBF
