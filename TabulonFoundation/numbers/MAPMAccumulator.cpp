#include "numbers/MAPMAccumulator.h"

#include "numbers/KernelLock.h"

namespace TBF {

MAPMAccumulator::MAPMAccumulator(int32_t places)
    : precision(places) {}

MAPMAccumulator::~MAPMAccumulator() = default;

Ref<MAPMAccumulator> MAPMAccumulator::create(int32_t precision) {
    const KernelLock lock;
    return make<MAPMAccumulator>(precision);
}

void MAPMAccumulator::initialize(M_APM_const value) {
    const KernelLock lock;
    m_apm_copy(current, value);
}

void MAPMAccumulator::multiplyBy(M_APM_const value) {
    const KernelLock lock;
    m_apm_multiply(other, current, value);
    current.swap(other);
}

void MAPMAccumulator::divideBy(M_APM_const value) {
    const KernelLock lock;
    m_apm_divide(other, precision, current, value);
    current.swap(other);
}

void MAPMAccumulator::reciprocal() {
    const KernelLock lock;
    m_apm_reciprocal(other, precision, current);
    current.swap(other);
}

} // namespace TBF
