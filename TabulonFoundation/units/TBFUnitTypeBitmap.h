#pragma once

// A set of unit types as 64 bits: which kinds of quantities a part of an expression touches. Bit n stands for
// array index n (units/TBFUnitTypes.h); 0 is the empty set. Expression nodes carry one for the choice among
// ambiguous units. Pure functions.

#include "units/TBFUnitTypes.h"

#include <cstdint>

namespace TBF {
class UnitContainer;
class UnitFraction;
} // namespace TBF

using TBFUnitTypeBitmap = uint64_t;

TBFUnitTypeBitmap TBFUnitTypeBitmapMake(TBFUnitType type);

// The types of the atomic units above and below the line: a metre per second gives length and time, not
// velocity. Null gives the empty set.
TBFUnitTypeBitmap TBFUnitTypeBitmapMakeWithUnitFraction(const TBF::UnitFraction* fraction);
TBFUnitTypeBitmap TBFUnitTypeBitmapMakeWithUnitContainer(const TBF::UnitContainer* container);

// False for a null bitmap.
bool TBFUnitTypeBitmapHasUnitType(const TBFUnitTypeBitmap* bitmap, TBFUnitType type);
bool TBFUnitTypeBitmapHasSingleUnitOnly(const TBFUnitTypeBitmap* bitmap); // exactly one type

TBFUnitTypeBitmap TBFUnitTypeBitmapAdd(TBFUnitTypeBitmap a, TBFUnitTypeBitmap b); // the union
void TBFUnitTypeBitmapAppend(TBFUnitTypeBitmap* bitmap, TBFUnitTypeBitmap other); // nothing for null
