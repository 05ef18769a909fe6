#include "face/units/TBFUnitFractionFactorizer.h"

#include "numbers/MAPMAccumulator.h"
#include "units/UnitFractionFactorizer.h"
#include "units/UnitTypeFactorings.h"

using TBF::UnitFractionFactorizer;

TBFUnitFractionFactorizerRef TBFUnitFractionFactorizerCreate(TBF::UnitCollection* collection) {
    return UnitFractionFactorizer::create(collection).leak();
}

TBFUnitFractionFactorizerRef TBFUnitFractionFactorizerCreate(TBF::UnitCollection* collection,
                                                             TBF::UnitTypeFactorings* factorings) {
    return UnitFractionFactorizer::create(collection, TBF::retain(factorings)).leak();
}

void TBFUnitFractionFactorizerRelease(const TBF::UnitFractionFactorizer* factorizer) {
    if (factorizer) factorizer->release();
}

std::vector<TBF::UnitTypeFraction>
TBFUnitFractionFactorizerFindAllFactorizations(const TBF::UnitFractionFactorizer* factorizer,
                                               const TBF::UnitTypeFraction& typeFraction) {
    return factorizer ? factorizer->findAllFactorizations(typeFraction)
                      : std::vector<TBF::UnitTypeFraction>();
}

TBF::UnitFraction*
TBFUnitFractionFactorizerUndecompose(TBFUnitFractionFactorizerRef factorizer, TBF::UnitFraction* fraction,
                                     const std::map<TBFUnitType, TBF::Unit*>& preferredUnits,
                                     const std::map<TBFUnitType, TBF::Unit*>& requiredUnits,
                                     TBF::UnitFraction* writtenFraction) {
    if (!factorizer) return nullptr;
    return factorizer->undecompose(fraction, preferredUnits, requiredUnits, writtenFraction).leak();
}

TBF::UnitFraction* TBFUnitFractionCreateFromTypeFraction(const TBF::UnitCollection* collection,
                                                         TBF::MAPMAccumulator* accumulator,
                                                         TBF::UnitFraction* sourceFraction,
                                                         const std::map<TBFUnitType, TBF::Unit*>& unitsByType,
                                                         const TBF::UnitTypeFraction& typeFraction) {
    TBF::Ref<TBF::MAPMAccumulator> kept = TBF::retain(accumulator);
    return TBF::createUnitFractionFromTypeFraction(collection, kept, sourceFraction, unitsByType,
                                                   typeFraction)
        .leak();
}
