#pragma once

// The units that one word can name, kept together until the rest of the expression tells which was meant.
// Expression tokens and nodes carry it. Immutable; may be shared between threads as far as its units may.

#include "runtime/Object.h"
#include "runtime/Ref.h"
#include "units/TBFUnitTypeBitmap.h"

#include <string_view>
#include <vector>

namespace TBF {

class UnitContainer;

class AmbiguousUnit final : public Object<AmbiguousUnit> {
public:
    // In the order in which the search found them.
    static Ref<AmbiguousUnit> create(std::vector<Ref<UnitContainer>> units);

    const std::vector<Ref<UnitContainer>>& units() const noexcept { return candidates; }

    // The union of the units' types.
    TBFUnitTypeBitmap unitTypeBitmap() const;

    // The unit that fits best where `context` holds the types nearby and `name` is the word as written.
    // Borrowed; null if there are no units.
    UnitContainer* unambiguousUnit(TBFUnitTypeBitmap context, std::u16string_view name) const;

private:
    friend class Object<AmbiguousUnit>;
    explicit AmbiguousUnit(std::vector<Ref<UnitContainer>> units) noexcept;
    ~AmbiguousUnit() override;

    std::vector<Ref<UnitContainer>> candidates;
};

} // namespace TBF
