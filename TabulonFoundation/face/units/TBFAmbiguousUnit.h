#pragma once

// The plain functions over ambiguous units: several units that one word can name. Immutable. A null handle is
// accepted everywhere.

#include "units/TBFUnitTypeBitmap.h"

#include <vector>

namespace TBF {
class AmbiguousUnit;
class String;
class UnitContainer;
} // namespace TBF
using TBFAmbiguousUnitRef = TBF::AmbiguousUnit*;

// Retains each unit. The caller owns the result.
TBFAmbiguousUnitRef TBFAmbiguousUnitCreate(const std::vector<TBF::UnitContainer*>& units);
TBFAmbiguousUnitRef TBFAmbiguousUnitRetain(TBFAmbiguousUnitRef ambiguousUnit);
void TBFAmbiguousUnitRelease(const TBF::AmbiguousUnit* ambiguousUnit);

// Borrowed, in the order in which the search found them.
std::vector<TBF::UnitContainer*> TBFAmbiguousUnitGetUnits(const TBF::AmbiguousUnit* ambiguousUnit);

// The union of the units' types.
TBFUnitTypeBitmap TBFAmbiguousUnitGetUnitTypeBitmap(const TBF::AmbiguousUnit* ambiguousUnit);

// The unit meant by `name` where the types of `bitmap` are near by. Borrowed; null if there are no units.
TBF::UnitContainer* TBFAmbiguousUnitGetUnambiguousUnit(const TBF::AmbiguousUnit* ambiguousUnit,
                                                       TBFUnitTypeBitmap bitmap, const TBF::String* name);
