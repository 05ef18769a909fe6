#pragma once

// The working precision and the scratch registers of one evaluator. The registers hold intermediate values of
// one operation at a time, so that operations reuse their storage; by convention an operation leaves its
// result in `r0()`, from where a number copies it. Used by one thread at a time, the registers under
// the kernel's lock.

#include "numbers/Decimal.h"
#include "runtime/Object.h"
#include "runtime/Ref.h"

#include <array>
#include <cstdint>

namespace TBF {

class MAPMContext final : public Object<MAPMContext> {
public:
    static constexpr int32_t registerCount = 4;

    // `precision` counts the digits behind the first one, as the kernel's `places` do.
    static Ref<MAPMContext> create(int32_t precision);

    int32_t precision() const noexcept { return ownPrecision; }

    // Borrowed. The values are whatever the last operation left.
    M_APM r0() const noexcept { return registers[0]; }
    M_APM r1() const noexcept { return registers[1]; }
    M_APM r2() const noexcept { return registers[2]; }
    M_APM r3() const noexcept { return registers[3]; }

    // Null for an index outside of 0 to 3.
    M_APM registerAt(int32_t index) const noexcept;

private:
    friend class Object<MAPMContext>;

    explicit MAPMContext(int32_t precision);
    ~MAPMContext() override;

    std::array<Decimal, registerCount> registers;
    int32_t ownPrecision;
};

} // namespace TBF
