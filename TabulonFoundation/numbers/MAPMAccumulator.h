#pragma once

// A running product of decimals. Each step writes into the register that doesn't hold the current value, and
// then the two change places, so that nothing is copied between steps. Used by one thread at a time; each
// step takes the kernel's lock.

#include "numbers/Decimal.h"
#include "runtime/Object.h"
#include "runtime/Ref.h"

#include <cstdint>

namespace TBF {

class MAPMAccumulator final : public Object<MAPMAccumulator> {
public:
    // The value 0. `precision` is the `places` of divisions.
    static Ref<MAPMAccumulator> create(int32_t precision);

    void initialize(M_APM_const value);
    void multiplyBy(M_APM_const value); // exact
    void divideBy(M_APM_const value);   // cut at the precision
    void reciprocal();                  // 1 / current, at the precision

    // Borrowed, valid until the next step.
    M_APM result() const noexcept { return current; }

private:
    friend class Object<MAPMAccumulator>;

    explicit MAPMAccumulator(int32_t precision);
    ~MAPMAccumulator() override;

    Decimal current;
    Decimal other;
    int32_t precision;
};

} // namespace TBF
