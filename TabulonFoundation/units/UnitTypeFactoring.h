#pragma once

// One relation between types: a decomposed side and a factorized side of the same dimension, as
// length * time^-1 and velocity. Immutable, shared between threads.

#include "runtime/Object.h"
#include "runtime/Ref.h"
#include "units/UnitTypeFraction.h"

#include <string>

namespace TBF {

class UnitTypeFactoring final : public Object<UnitTypeFactoring> {
public:
    static Ref<UnitTypeFactoring> create(const UnitTypeFraction& decomposed,
                                         const UnitTypeFraction& factorized, bool trivial = false);

    const UnitTypeFraction& decomposed() const noexcept { return decomposedSide; }
    const UnitTypeFraction& factorized() const noexcept { return factorizedSide; }

    // Marks the definitions of area, volume, velocity and acceleration, which score differently.
    bool isTrivial() const noexcept { return trivial; }

    // The same relation between the inverse sides.
    Ref<UnitTypeFactoring> createInverse() const;

    // "[length:2]->[area:1]".
    std::string key() const;

private:
    friend class Object<UnitTypeFactoring>;
    UnitTypeFactoring(const UnitTypeFraction& decomposed, const UnitTypeFraction& factorized, bool trivial);
    ~UnitTypeFactoring() override = default;

    UnitTypeFraction decomposedSide;
    UnitTypeFraction factorizedSide;
    bool trivial;
};

} // namespace TBF
