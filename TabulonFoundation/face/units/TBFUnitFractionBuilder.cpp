#include "face/units/TBFUnitFractionBuilder.h"

#include "numbers/MAPMAccumulator.h"
#include "units/UnitContainer.h"
#include "units/UnitFraction.h"
#include "units/UnitFractionBuilder.h"

using TBF::UnitFractionBuilder;

TBFUnitFractionBuilderRef TBFUnitFractionBuilderCreate() {
    return UnitFractionBuilder::create().leak();
}

TBFUnitFractionBuilderRef TBFUnitFractionBuilderCreate(TBF::MAPMAccumulator* accumulator) {
    return UnitFractionBuilder::create(TBF::retain(accumulator)).leak();
}

TBFUnitFractionBuilderRef TBFUnitFractionBuilderCreateWithBasicUnit(TBF::Unit* unit) {
    return UnitFractionBuilder::create(unit).leak();
}

TBFUnitFractionBuilderRef TBFUnitFractionBuilderCreateWithContentsOfUnit(TBF::UnitContainer* container) {
    return UnitFractionBuilder::create(container).leak();
}

TBFUnitFractionBuilderRef
TBFUnitFractionBuilderCreateWithContentsOfUnitFraction(TBF::UnitFraction* fraction) {
    return UnitFractionBuilder::create(fraction).leak();
}

TBFUnitFractionBuilderRef TBFUnitFractionBuilderRetain(TBFUnitFractionBuilderRef builder) {
    return TBF::retain(builder).leak();
}

void TBFUnitFractionBuilderRelease(const TBF::UnitFractionBuilder* builder) {
    if (builder) builder->release();
}

void TBFUnitFractionBuilderAddUnit(TBFUnitFractionBuilderRef builder, TBF::Unit* unit, int32_t degree) {
    if (builder) builder->addUnit(unit, degree);
}

void TBFUnitFractionBuilderAddUnit(TBFUnitFractionBuilderRef builder, TBF::UnitContainer* container,
                                   int32_t degree) {
    if (builder) builder->addUnit(container, degree);
}

void TBFUnitFractionBuilderAddUnit(TBFUnitFractionBuilderRef builder, TBF::UnitFraction* fraction,
                                   int32_t degree) {
    if (builder) builder->addUnit(fraction, degree);
}

void TBFUnitFractionBuilderAddNumeratorUnit(TBFUnitFractionBuilderRef builder,
                                            TBF::UnitContainer* container) {
    TBFUnitFractionBuilderAddUnit(builder, container, 1);
}

void TBFUnitFractionBuilderAddDenominatorUnit(TBFUnitFractionBuilderRef builder,
                                              TBF::UnitContainer* container) {
    TBFUnitFractionBuilderAddUnit(builder, container, -1);
}

void TBFUnitFractionBuilderAddNumeratorUnitFraction(TBFUnitFractionBuilderRef builder,
                                                    TBF::UnitFraction* fraction) {
    TBFUnitFractionBuilderAddUnit(builder, fraction, 1);
}

void TBFUnitFractionBuilderAddDenominatorUnitFraction(TBFUnitFractionBuilderRef builder,
                                                      TBF::UnitFraction* fraction) {
    TBFUnitFractionBuilderAddUnit(builder, fraction, -1);
}

void TBFUnitFractionBuilderSetExtraMultiplierMAPM(TBFUnitFractionBuilderRef builder, M_APM multiplier) {
    if (builder) builder->setExtraMultiplier(multiplier);
}

void TBFUnitFractionBuilderSetExtraMultiplierString(TBFUnitFractionBuilderRef builder,
                                                    const char* multiplier) {
    if (builder) builder->setExtraMultiplier(multiplier);
}

void TBFUnitFractionBuilderInvert(TBFUnitFractionBuilderRef builder) {
    if (builder) builder->invert();
}

M_APM TBFUnitFractionBuilderGetMultiplier(TBFUnitFractionBuilderRef builder) {
    return builder ? builder->multiplier() : nullptr;
}

TBF::UnitFraction* TBFUnitFractionBuilderCreateUnitFraction(TBFUnitFractionBuilderRef builder) {
    return builder ? builder->unitFraction().leak() : nullptr;
}

TBF::UnitFraction* TBFUnitFractionBuilderGetUnitFraction(TBFUnitFractionBuilderRef builder) {
    return builder ? builder->unitFraction().get() : nullptr; // the builder keeps it
}
