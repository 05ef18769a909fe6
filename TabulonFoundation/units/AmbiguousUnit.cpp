#include "units/AmbiguousUnit.h"

#include "units/UnitContainer.h"
#include "units/UnitFraction.h"

#include <cstdint>
#include <utility>

namespace TBF {

namespace {

// A name written exactly counts as much as five types that fit, and a fitting type as a tie-break factor of
// 100.
constexpr int64_t exactNameMatches = 5;
constexpr int64_t matchWeight = 100;

int64_t weightOf(const UnitContainer& unit, TBFUnitTypeBitmap context, std::u16string_view name) {
    int64_t matches = unit.isNamed(name) ? exactNameMatches : 0;
    if (const UnitFraction* const fraction = unit.unitFraction()) {
        for (const TBFUnitType type : TBFUnitTypes()) {
            if (TBFUnitTypeBitmapHasUnitType(&context, type) && fraction->degree(type) != 0) ++matches;
        }
    }
    return matches * matchWeight + unit.ambiguousTieBreakFactor();
}

} // namespace

AmbiguousUnit::AmbiguousUnit(std::vector<Ref<UnitContainer>> units) noexcept
    : candidates(std::move(units)) {}

AmbiguousUnit::~AmbiguousUnit() = default;

Ref<AmbiguousUnit> AmbiguousUnit::create(std::vector<Ref<UnitContainer>> units) {
    return make<AmbiguousUnit>(std::move(units));
}

TBFUnitTypeBitmap AmbiguousUnit::unitTypeBitmap() const {
    TBFUnitTypeBitmap bitmap = 0;
    for (const Ref<UnitContainer>& unit : candidates)
        bitmap |= TBFUnitTypeBitmapMakeWithUnitContainer(unit.get());
    return bitmap;
}

// Of equal weights the first one found stays.
UnitContainer* AmbiguousUnit::unambiguousUnit(TBFUnitTypeBitmap context, std::u16string_view name) const {
    UnitContainer* best = nullptr;
    int64_t bestWeight = 0;
    for (const Ref<UnitContainer>& unit : candidates) {
        const int64_t weight = weightOf(*unit, context, name);
        if (best && weight <= bestWeight) continue;
        best = unit.get();
        bestWeight = weight;
    }
    return best;
}

} // namespace TBF
