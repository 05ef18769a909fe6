#include "face/units/TBFUnitFractionSimplifier.h"

#include "units/UnitFraction.h"
#include "units/UnitFractionSimplifier.h"

TBFUnitFractionSimplifierRef TBFUnitFractionSimplifierCreate(TBF::UnitCollection* collection) {
    return TBF::UnitFractionSimplifier::create(collection).leak();
}

void TBFUnitFractionSimplifierRelease(const TBF::UnitFractionSimplifier* simplifier) {
    if (simplifier) simplifier->release();
}

TBF::UnitFraction* TBFUnitFractionSimplifierSimplifyUnitFraction(TBFUnitFractionSimplifierRef simplifier,
                                                                 TBF::UnitFraction* fraction) {
    return simplifier ? simplifier->createSimplifiedUnitFraction(fraction).leak() : nullptr;
}
