#pragma once

// The plain functions over unit fractions: the unit of a value. Fractions are immutable and shared between
// threads. A null handle means no unit and is accepted everywhere: getters give 0, null, false or nothing.
// Decimals and units are borrowed from the fraction.

#include "units/TBFUnitTypes.h"

#include "m_apm.h"

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace TBF {
class Unit;
class UnitFraction;
} // namespace TBF
using TBFUnitFractionRef = TBF::UnitFraction*;

TBFUnitFractionRef TBFUnitFractionRetain(TBFUnitFractionRef fraction);
void TBFUnitFractionRelease(const TBF::UnitFraction* fraction);

// Built anew from the units, with their present factors, so without an extra multiplier. All three are the
// same; the names say what they are called for. The caller owns the result.
TBFUnitFractionRef TBFUnitFractionCopy(const TBF::UnitFraction* fraction);
TBFUnitFractionRef TBFUnitFractionCopyWithRecomputedMultiplier(const TBF::UnitFraction* fraction);
TBFUnitFractionRef TBFUnitFractionCopyWithoutExtraMultiplier(const TBF::UnitFraction* fraction);

// Degrees.
int32_t TBFUnitFractionGetUnitDegree(const TBF::UnitFraction* fraction,
                                     TBFUnitType type); // negative below the line
std::map<TBFUnitType, int32_t> TBFUnitFractionGetDegrees(const TBF::UnitFraction* fraction);
int32_t TBFUnitFractionGetNumeratorTotalDegree(const TBF::UnitFraction* fraction);
int32_t TBFUnitFractionGetDenominatorTotalDegree(const TBF::UnitFraction* fraction); // as a positive number
int32_t TBFUnitFractionCountNumeratorUnits(const TBF::UnitFraction* fraction);       // types, not degrees
int32_t TBFUnitFractionCountDenominatorUnits(const TBF::UnitFraction* fraction);
bool TBFUnitFractionHasOnlyOneUnityDegreeNumeratorUnit(const TBF::UnitFraction* fraction);
bool TBFUnitFractionIsScalar(const TBF::UnitFraction* fraction); // a fraction without units; false for null

// Units.
TBF::Unit* TBFUnitFractionGetOnlyNumeratorUnitOfType(const TBF::UnitFraction* fraction, TBFUnitType type);
TBF::Unit* TBFUnitFractionGetOnlyDenominatorUnitOfType(const TBF::UnitFraction* fraction, TBFUnitType type);
TBF::Unit* TBFUnitFractionGetOnlyNumeratorUnit(const TBF::UnitFraction* fraction); // the first of degree 1
// Each unit as often as its degree.
std::vector<TBF::Unit*> TBFUnitFractionGetNumeratorUnits(const TBF::UnitFraction* fraction);
std::vector<TBF::Unit*> TBFUnitFractionGetDenominatorUnits(const TBF::UnitFraction* fraction);
std::vector<TBF::Unit*> TBFUnitFractionGetNumeratorUnitsOfType(const TBF::UnitFraction* fraction,
                                                               TBFUnitType type);
std::vector<TBF::Unit*> TBFUnitFractionGetDenominatorUnitsOfType(const TBF::UnitFraction* fraction,
                                                                 TBFUnitType type);
// The last unit written for each type, cancelled types included.
std::map<TBFUnitType, TBF::Unit*> TBFUnitFractionGetUnitsByType(const TBF::UnitFraction* fraction);
// The units that survived cancelling, once each, by identifier.
std::vector<TBF::Unit*> TBFUnitFractionGetUnits(const TBF::UnitFraction* fraction);

// Decimals; null where they would be 1, but for the multiplier itself.
M_APM TBFUnitFractionGetMultiplier(const TBF::UnitFraction* fraction);
M_APM TBFUnitFractionGetUnitMultiplier(const TBF::UnitFraction* fraction);
M_APM TBFUnitFractionGetExtraMultiplier(const TBF::UnitFraction* fraction);
bool TBFUnitFractionHasExtraMultiplier(const TBF::UnitFraction* fraction);
M_APM TBFUnitFractionGetOffsetMAPMReference(const TBF::UnitFraction* fraction);
bool TBFUnitFractionHasOnlyOneOffsetNumeratorUnit(const TBF::UnitFraction* fraction);

// Compute.
TBFUnitType TBFUnitFractionGetUnitType(const TBF::UnitFraction* fraction);
// Whether numbers convert from one to the other; `inverted` tells that they do by the reciprocal. Null on
// either side gives false and leaves `inverted` alone.
bool TBFUnitFractionTypesCompare(const TBF::UnitFraction* a, const TBF::UnitFraction* b, bool* inverted);
bool TBFUnitFractionIsEqualToUnitFraction(const TBF::UnitFraction* a, const TBF::UnitFraction* b);
std::string TBFUnitFractionGetStringRepresentation(const TBF::UnitFraction* fraction);
