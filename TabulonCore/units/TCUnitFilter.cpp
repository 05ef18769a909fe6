#include "units/TCUnitFilter.h"

#include "units/TCCompositeUnit.h"
#include "units/UnitFraction.h"
#include "units/UnitFractionBuilder.h"

#include <algorithm>

namespace {

bool isShown(const TBF::UnitFraction::TypeDegree& component) {
    return component.type == TBFUnitTypeMoney || component.degree < 0;
}

} // namespace

std::shared_ptr<TCUnit> TCUnitFilter::filteredUnit(const std::shared_ptr<TCUnit>& unit) {
    TBF::UnitFraction* const fraction = unit ? unit->tbfUnitFraction() : nullptr;
    if (!fraction || fraction->degree(TBFUnitTypeMoney) < 1) return unit;
    const auto& components = fraction->typeDegrees();
    // The unit of a result that would come out as it is.
    const bool isAnonymous = unit->identifierBytes().empty();
    if (isAnonymous && fraction->isCanonical() &&
        std::all_of(components.begin(), components.end(), isShown)) {
        return unit;
    }

    const auto builder = TBF::UnitFractionBuilder::create();
    for (const TBF::UnitFraction::TypeDegree& component : components) {
        if (isShown(component)) builder->addUnit(component.unit.get(), component.degree);
    }
    builder->setExtraMultiplier(fraction->extraMultiplier());
    return TCValueUnit::unitWithUnitFraction(builder->unitFraction());
}
