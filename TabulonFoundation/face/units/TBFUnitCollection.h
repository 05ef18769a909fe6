#pragma once

// The plain functions over collections of units. Filled before evaluation starts, then read on any thread. A
// null handle is accepted everywhere: functions do nothing, or give 0, null or an empty result. Containers
// that are given are retained, those that are handed out are borrowed from the collection.

#include "units/TBFUnitTypes.h"

#include "m_apm.h"

#include <cstdint>
#include <vector>

namespace TBF {
class String;
class UnitCollection;
class UnitContainer;
} // namespace TBF
using TBFUnitCollectionRef = TBF::UnitCollection*;

struct TBFUnitCollectionSearchResult {
    TBF::UnitContainer* unit;
    TBFUnitFormatType formatType; // the format in which the words name the unit
};

TBFUnitCollectionRef TBFUnitCollectionCreate(); // the caller owns the result
TBFUnitCollectionRef TBFUnitCollectionRetain(TBFUnitCollectionRef collection);
void TBFUnitCollectionRelease(const TBF::UnitCollection* collection);

void TBFUnitCollectionAddUnit(TBFUnitCollectionRef collection, TBF::UnitContainer* unit);
void TBFUnitCollectionAddUnits(TBFUnitCollectionRef collection, TBF::UnitContainer* const* units,
                               int32_t count);
void TBFUnitCollectionRemoveUnit(TBFUnitCollectionRef collection, TBF::UnitContainer* unit);
int32_t TBFUnitCollectionGetCountOfUnits(const TBF::UnitCollection* collection);
int32_t TBFUnitCollectionGetCountOfUnitsWithType(const TBF::UnitCollection* collection, TBFUnitType type);

void TBFUnitCollectionSetBaseUnit(TBFUnitCollectionRef collection, TBFUnitType type,
                                  TBF::UnitContainer* unit);
TBF::UnitContainer* TBFUnitCollectionGetBaseUnit(const TBF::UnitCollection* collection, TBFUnitType type);

// The units that the words name; those named exactly so, if there are any. The optional outputs tell whether
// a longer name begins with the words (set only if any name does) and whether the case was right.
std::vector<TBFUnitCollectionSearchResult>
TBFUnitCollectionFindUnitsMatchingWords(const TBF::UnitCollection* collection,
                                        const std::vector<TBF::String*>& words,
                                        bool* hasLongerNames = nullptr, bool* exactMatch = nullptr);
TBF::UnitContainer* TBFUnitCollectionFindTopUnitMatchingWords(const TBF::UnitCollection* collection,
                                                              const std::vector<TBF::String*>& words,
                                                              bool* hasLongerNames = nullptr,
                                                              bool* exactMatch = nullptr,
                                                              TBFUnitFormatType* formatType = nullptr);
std::vector<TBF::UnitContainer*>
TBFUnitCollectionUnitsFromSearchResults(const std::vector<TBFUnitCollectionSearchResult>& results);

// Links from a unit of scalar 1 to its scaled relatives.
void TBFUnitCollectionAddSIExponentLink(TBFUnitCollectionRef collection, TBF::UnitContainer* unit,
                                        TBF::UnitContainer* linkedUnit, int8_t exponent);
void TBFUnitCollectionAddNonSILink(TBFUnitCollectionRef collection, TBF::UnitContainer* unit,
                                   TBF::UnitContainer* linkedUnit);
TBF::UnitContainer* TBFUnitCollectionGetUnityLinkedUnit(const TBF::UnitCollection* collection,
                                                        const TBF::UnitContainer* unit);
TBF::UnitContainer* TBFUnitCollectionGetSIExponentUnit(const TBF::UnitCollection* collection,
                                                       TBF::UnitContainer* unit, int8_t exponent);
// The largest linked unit that isn't larger than `scalar`; null if all are.
TBF::UnitContainer* TBFUnitCollectionFindFirstLinkedUnitWithScalarLessThanOrEqualToMAPM(
    const TBF::UnitCollection* collection, const TBF::UnitContainer* unit, M_APM scalar);
