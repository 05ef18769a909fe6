#include "units/UnitFractionSimplifier.h"

#include "numbers/MAPMAccumulator.h"
#include "units/UnitCollection.h"
#include "units/UnitFraction.h"
#include "units/UnitFractionFactorizer.h"
#include "units/UnitTypeFactorings.h"
#include "units/UnitTypeFraction.h"

#include <utility>

namespace TBF {

UnitFractionSimplifier::UnitFractionSimplifier(UnitCollection* unitCollection,
                                               Ref<UnitTypeFactorings> unitTypeFactorings,
                                               int32_t divisionPrecision)
    : factorings(std::move(unitTypeFactorings))
    , collection(TBF::retain(unitCollection))
    , accumulator(divisionPrecision == defaultPrecision ? nullptr
                                                        : MAPMAccumulator::create(divisionPrecision)) {}

UnitFractionSimplifier::~UnitFractionSimplifier() = default;

Ref<UnitFractionSimplifier> UnitFractionSimplifier::create(UnitCollection* collection) {
    return create(collection, UnitTypeFactorings::instance());
}

Ref<UnitFractionSimplifier> UnitFractionSimplifier::create(UnitCollection* collection,
                                                           Ref<UnitTypeFactorings> factorings,
                                                           int32_t precision) {
    return make<UnitFractionSimplifier>(collection, std::move(factorings), precision);
}

// A definition may lead to a type that has one itself, so it takes as many rounds as definitions build on one
// another; a round for each type is more than enough.
UnitTypeFraction UnitFractionSimplifier::simplify(const UnitTypeFraction& fraction) const {
    UnitTypeFraction simplified = fraction;
    bool changed = true;
    for (int32_t round = 0; changed && round < TBFUnitTypeCount; ++round) {
        changed = false;
        for (const auto& [type, degree] : simplified.components()) {
            const UnitTypeFraction* const definition = degree != 0 ? factorings->definition(type) : nullptr;
            if (!definition) continue;
            simplified.setDegree(type, 0);
            simplified.add(*definition, degree);
            changed = true;
        }
    }
    return simplified;
}

Ref<UnitFraction> UnitFractionSimplifier::createSimplifiedUnitFraction(UnitFraction* fraction) {
    if (!fraction) return {};
    const UnitTypeFraction types = simplify(UnitTypeFraction(*fraction));
    return createUnitFractionFromTypeFraction(collection.get(), accumulator, fraction, {}, types);
}

} // namespace TBF
