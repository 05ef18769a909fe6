#pragma once

// The plain functions over factorizers, which find the unit to show for a result. A factorizer is used by one
// thread at a time. A null handle is accepted everywhere.

#include "units/TBFUnitTypes.h"
#include "units/UnitTypeFraction.h"

#include <map>
#include <vector>

namespace TBF {
class MAPMAccumulator;
class Unit;
class UnitCollection;
class UnitFraction;
class UnitFractionFactorizer;
class UnitTypeFactorings;
} // namespace TBF
using TBFUnitFractionFactorizerRef = TBF::UnitFractionFactorizer*;

// Retains the arguments. The caller owns the result.
TBFUnitFractionFactorizerRef TBFUnitFractionFactorizerCreate(TBF::UnitCollection* collection);
TBFUnitFractionFactorizerRef TBFUnitFractionFactorizerCreate(TBF::UnitCollection* collection,
                                                             TBF::UnitTypeFactorings* factorings);
void TBFUnitFractionFactorizerRelease(const TBF::UnitFractionFactorizer* factorizer);

// Every other fraction of types that the given one can be written as.
std::vector<TBF::UnitTypeFraction>
TBFUnitFractionFactorizerFindAllFactorizations(const TBF::UnitFractionFactorizer* factorizer,
                                               const TBF::UnitTypeFraction& typeFraction);

// The unit to show for a simplified fraction, owned by the caller. Null for a null fraction, and if a degree
// is too large.
TBF::UnitFraction*
TBFUnitFractionFactorizerUndecompose(TBFUnitFractionFactorizerRef factorizer, TBF::UnitFraction* fraction,
                                     const std::map<TBFUnitType, TBF::Unit*>& preferredUnits,
                                     const std::map<TBFUnitType, TBF::Unit*>& requiredUnits,
                                     TBF::UnitFraction* writtenFraction = nullptr);

// A fraction of the given types and of the same size as the source, owned by the caller. Units come from
// `unitsByType`, the source or the collection's base units, in this order of preference. `accumulator` may be
// null.
TBF::UnitFraction* TBFUnitFractionCreateFromTypeFraction(const TBF::UnitCollection* collection,
                                                         TBF::MAPMAccumulator* accumulator,
                                                         TBF::UnitFraction* sourceFraction,
                                                         const std::map<TBFUnitType, TBF::Unit*>& unitsByType,
                                                         const TBF::UnitTypeFraction& typeFraction);
