#include "numbers/Decimal.h"

#include "numbers/KernelLock.h"

namespace TBF {

namespace {

M_APM makeDigits() {
    const KernelLock lock;
    return m_apm_init();
}

} // namespace

Decimal::Decimal()
    : digits(makeDigits()) {}

Decimal::Decimal(int value) {
    const KernelLock lock;
    digits = m_apm_init();
    m_apm_set_long(digits, value);
}

Decimal::Decimal(const char* text) {
    const KernelLock lock;
    digits = m_apm_init();
    m_apm_set_string(digits, text);
}

Decimal Decimal::copyOf(M_APM_const value) {
    const KernelLock lock;
    Decimal copy;
    m_apm_copy(copy, value);
    return copy;
}

Decimal::~Decimal() {
    if (!digits) return;
    const KernelLock lock;
    m_apm_free(digits);
}

} // namespace TBF
