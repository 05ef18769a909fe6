#pragma once

// The plain functions over search indexes of unit names. Any number of threads may search at once. A null
// handle is accepted everywhere: functions do nothing, or give 0 or an empty result.

#include "units/UnitSearchIndex.h"

#include <cstdint>
#include <vector>

using TBFUnitSearchIndexRef = TBF::UnitSearchIndex*;
using TBFUnitSearchIndexResult = TBF::UnitSearchIndex::Result;

TBFUnitSearchIndexRef TBFUnitSearchIndexCreate(); // the caller owns the result
TBFUnitSearchIndexRef TBFUnitSearchIndexRetain(TBFUnitSearchIndexRef index);
void TBFUnitSearchIndexRelease(const TBF::UnitSearchIndex* index);

void TBFUnitSearchIndexAddUnit(TBFUnitSearchIndexRef index, TBF::UnitContainer* unit);
void TBFUnitSearchIndexAddUnits(TBFUnitSearchIndexRef index, TBF::UnitContainer* const* units, int32_t count);
void TBFUnitSearchIndexRemoveUnit(TBFUnitSearchIndexRef index, TBF::UnitContainer* unit);

// The units named by the words, whatever their case. `hasLongerNames` is written only if some name begins
// with the words; it may be null.
std::vector<TBFUnitSearchIndexResult> TBFUnitSearchIndexFindUnits(const TBF::UnitSearchIndex* index,
                                                                  const std::vector<TBF::String*>& words,
                                                                  bool* hasLongerNames);
std::vector<TBFUnitSearchIndexResult>
TBFUnitSearchIndexFindUnitsWithLowercaseQuery(const TBF::UnitSearchIndex* index,
                                              const std::vector<TBF::String*>& words, bool* hasLongerNames);

int32_t TBFUnitSearchIndexGetSize(const TBF::UnitSearchIndex* index);
