#include "face/units/TBFAmbiguousUnit.h"

#include "runtime/String.h"
#include "units/AmbiguousUnit.h"
#include "units/UnitContainer.h"

#include <string_view>
#include <utility>

using TBF::AmbiguousUnit;
using TBF::UnitContainer;

TBFAmbiguousUnitRef TBFAmbiguousUnitCreate(const std::vector<TBF::UnitContainer*>& units) {
    std::vector<TBF::Ref<UnitContainer>> owned;
    for (UnitContainer* const unit : units) {
        if (unit) owned.push_back(TBF::retain(unit));
    }
    return AmbiguousUnit::create(std::move(owned)).leak();
}

TBFAmbiguousUnitRef TBFAmbiguousUnitRetain(TBFAmbiguousUnitRef ambiguousUnit) {
    return TBF::retain(ambiguousUnit).leak();
}

void TBFAmbiguousUnitRelease(const TBF::AmbiguousUnit* ambiguousUnit) {
    if (ambiguousUnit) ambiguousUnit->release();
}

std::vector<TBF::UnitContainer*> TBFAmbiguousUnitGetUnits(const TBF::AmbiguousUnit* ambiguousUnit) {
    std::vector<UnitContainer*> units;
    if (!ambiguousUnit) return units;
    for (const TBF::Ref<UnitContainer>& unit : ambiguousUnit->units())
        units.push_back(unit.get());
    return units;
}

TBFUnitTypeBitmap TBFAmbiguousUnitGetUnitTypeBitmap(const TBF::AmbiguousUnit* ambiguousUnit) {
    return ambiguousUnit ? ambiguousUnit->unitTypeBitmap() : 0;
}

TBF::UnitContainer* TBFAmbiguousUnitGetUnambiguousUnit(const TBF::AmbiguousUnit* ambiguousUnit,
                                                       TBFUnitTypeBitmap bitmap, const TBF::String* name) {
    if (!ambiguousUnit) return nullptr;
    return ambiguousUnit->unambiguousUnit(bitmap, name ? name->view() : std::u16string_view());
}
