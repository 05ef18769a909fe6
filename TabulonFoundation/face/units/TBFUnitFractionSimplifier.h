#pragma once

// The plain functions over simplifiers of unit fractions. A simplifier is used by one thread at a time. A
// null handle is accepted everywhere.

namespace TBF {
class UnitCollection;
class UnitFraction;
class UnitFractionSimplifier;
} // namespace TBF
using TBFUnitFractionSimplifierRef = TBF::UnitFractionSimplifier*;

// Retains the collection. The caller owns the result.
TBFUnitFractionSimplifierRef TBFUnitFractionSimplifierCreate(TBF::UnitCollection* collection);
void TBFUnitFractionSimplifierRelease(const TBF::UnitFractionSimplifier* simplifier);

// The fraction in base types, owned by the caller. Null without a simplifier or fraction, and if a degree
// gets too large.
TBF::UnitFraction* TBFUnitFractionSimplifierSimplifyUnitFraction(TBFUnitFractionSimplifierRef simplifier,
                                                                 TBF::UnitFraction* fraction);
