#include "numbers/MAPMContext.h"

#include "numbers/KernelLock.h"

namespace TBF {

MAPMContext::MAPMContext(int32_t precision)
    : ownPrecision(precision) {}

MAPMContext::~MAPMContext() {
    const KernelLock lock; // one for all registers
    for (Decimal& each : registers)
        const Decimal freed = std::move(each);
}

Ref<MAPMContext> MAPMContext::create(int32_t precision) {
    const KernelLock lock;
    return make<MAPMContext>(precision);
}

M_APM MAPMContext::registerAt(int32_t index) const noexcept {
    return index >= 0 && index < registerCount ? registers[static_cast<std::size_t>(index)].get() : nullptr;
}

} // namespace TBF
