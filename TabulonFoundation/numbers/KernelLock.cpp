#include "numbers/KernelLock.h"

#include "m_apm.h"

namespace TBF {

namespace {
thread_local int depth = 0;
}

KernelLock::KernelLock() {
    if (depth++ == 0) m_apm_enter();
}

KernelLock::~KernelLock() {
    if (--depth == 0) m_apm_leave();
}

} // namespace TBF
