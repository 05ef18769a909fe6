#pragma once

// The plain functions over atomic units. Units are filled by their loader and then shared read-only between
// threads; only the factor may be replaced at any time. A null handle is accepted everywhere: getters give 0,
// null or false.

#include "runtime/Ref.h"
#include "runtime/StringId.h"
#include "units/TBFUnitTypes.h"

#include "m_apm.h"

#include <cstdint>
#include <vector>

namespace TBF {
class String;
class Unit;
} // namespace TBF
using TBFUnitRef = TBF::Unit*;

// Create. The caller owns the result. Factors and offsets are decimal text with `.` as decimal point.
TBFUnitRef TBFUnitCreate(TBFUnitType type, const TBF::String* factor);
TBFUnitRef TBFUnitCreate(TBFUnitType type, const TBF::String* factor, TBF::String* identifier);
TBFUnitRef TBFUnitCreateWithSingularName(TBF::String* name, TBFUnitType type, const TBF::String* factor);
TBFUnitRef TBFUnitRetain(TBFUnitRef unit);
void TBFUnitRelease(const TBF::Unit* unit);

// Names, borrowed. A null name or alias changes nothing.
TBF::String* TBFUnitGetName(const TBF::Unit* unit, TBFUnitNameType nameType);
TBF::String* TBFUnitGetNamePreferringType(const TBF::Unit* unit, TBFUnitNameType nameType);
void TBFUnitSetName(TBFUnitRef unit, TBF::String* name, TBFUnitNameType nameType);
const std::vector<TBF::Ref<TBF::String>>& TBFUnitGetAliasesArrayReference(const TBF::Unit* unit,
                                                                          TBFUnitNameType nameType);
void TBFUnitAddAlias(TBFUnitRef unit, TBF::String* alias, TBFUnitNameType nameType);

// The decimals are borrowed, until the factor or offset is replaced. The text belongs to the caller.
TBF::String* TBFUnitCopyBaseFactor(const TBF::Unit* unit);
M_APM TBFUnitGetBaseFactorMAPMReference(const TBF::Unit* unit);
void TBFUnitSetBaseFactor(TBFUnitRef unit, const TBF::String* factor);
M_APM TBFUnitGetOffsetMAPMReference(const TBF::Unit* unit); // null for a unit without an offset
void TBFUnitSetOffset(TBFUnitRef unit, TBF::String* offset);

TBFUnitType TBFUnitGetType(const TBF::Unit* unit);
const tbf::StringId<TBF::Unit>& TBFUnitGetIdentifier(const TBF::Unit* unit); // empty if none was set
void TBFUnitSetIdentifier(TBFUnitRef unit, TBF::String* identifier);
int32_t TBFUnitGetAmbiguousTieBreakFactor(const TBF::Unit* unit);
void TBFUnitSetAmbiguousTieBreakFactor(TBFUnitRef unit, int32_t factor);

// True for two nulls; otherwise if types and factors are equal.
bool TBFUnitIsEqualToUnit(const TBF::Unit* a, const TBF::Unit* b);

// The power of ten that the factor is, if prefixes of that power are in use; else 117.
int8_t TBFUnitGetSIExponent(const TBF::Unit* unit);
bool TBFUnitIsSIBaseUnit(const TBF::Unit* unit);
bool isSIExponent(int32_t exponent);
