#pragma once

// The plain functions over builders of unit fractions. A builder is used by one thread at a time. A null
// handle is accepted everywhere, and adding null adds nothing.

#include "m_apm.h"

#include <cstdint>

namespace TBF {
class MAPMAccumulator;
class Unit;
class UnitContainer;
class UnitFraction;
class UnitFractionBuilder;
} // namespace TBF
using TBFUnitFractionBuilderRef = TBF::UnitFractionBuilder*;

// Create. The caller owns the result.
TBFUnitFractionBuilderRef TBFUnitFractionBuilderCreate();
TBFUnitFractionBuilderRef TBFUnitFractionBuilderCreate(TBF::MAPMAccumulator* accumulator); // retains it
TBFUnitFractionBuilderRef TBFUnitFractionBuilderCreateWithBasicUnit(TBF::Unit* unit);
TBFUnitFractionBuilderRef TBFUnitFractionBuilderCreateWithContentsOfUnit(TBF::UnitContainer* container);
TBFUnitFractionBuilderRef TBFUnitFractionBuilderCreateWithContentsOfUnitFraction(TBF::UnitFraction* fraction);
TBFUnitFractionBuilderRef TBFUnitFractionBuilderRetain(TBFUnitFractionBuilderRef builder);
void TBFUnitFractionBuilderRelease(const TBF::UnitFractionBuilder* builder);

// Add. A negative degree stands below the line.
void TBFUnitFractionBuilderAddUnit(TBFUnitFractionBuilderRef builder, TBF::Unit* unit, int32_t degree);
void TBFUnitFractionBuilderAddUnit(TBFUnitFractionBuilderRef builder, TBF::UnitContainer* container,
                                   int32_t degree);
void TBFUnitFractionBuilderAddUnit(TBFUnitFractionBuilderRef builder, TBF::UnitFraction* fraction,
                                   int32_t degree);
void TBFUnitFractionBuilderAddNumeratorUnit(TBFUnitFractionBuilderRef builder, TBF::UnitContainer* container);
void TBFUnitFractionBuilderAddDenominatorUnit(TBFUnitFractionBuilderRef builder,
                                              TBF::UnitContainer* container);
void TBFUnitFractionBuilderAddNumeratorUnitFraction(TBFUnitFractionBuilderRef builder,
                                                    TBF::UnitFraction* fraction);
void TBFUnitFractionBuilderAddDenominatorUnitFraction(TBFUnitFractionBuilderRef builder,
                                                      TBF::UnitFraction* fraction);
void TBFUnitFractionBuilderSetExtraMultiplierMAPM(TBFUnitFractionBuilderRef builder, M_APM multiplier);
void TBFUnitFractionBuilderSetExtraMultiplierString(TBFUnitFractionBuilderRef builder,
                                                    const char* multiplier);
void TBFUnitFractionBuilderInvert(TBFUnitFractionBuilderRef builder);

// The result. Null if a degree is outside of -128 to 127. What `Get` gives is borrowed until the next change.
M_APM TBFUnitFractionBuilderGetMultiplier(TBFUnitFractionBuilderRef builder);
TBF::UnitFraction* TBFUnitFractionBuilderCreateUnitFraction(TBFUnitFractionBuilderRef builder);
TBF::UnitFraction* TBFUnitFractionBuilderGetUnitFraction(TBFUnitFractionBuilderRef builder);
