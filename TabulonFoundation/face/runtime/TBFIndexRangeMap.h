#pragma once

// The plain functions over maps from index ranges to untyped pointers. A map counts the segments of each
// value and calls its deallocator when the last one goes. Used by one thread at a time. A null handle counts
// as an empty map.

#include "runtime/TBFTypes.h"

#include <cstdint>
#include <set>

namespace TBF {
class IndexRangeMap;
}
using TBFIndexRangeMapRef = TBF::IndexRangeMap*;

// The caller owns the result. The last release applies the deallocator to each distinct value.
TBFIndexRangeMapRef TBFIndexRangeMapCreate();
TBFIndexRangeMapRef TBFIndexRangeMapRetain(TBFIndexRangeMapRef map);
void TBFIndexRangeMapRelease(const TBF::IndexRangeMap* map);

void TBFIndexRangeMapSetDeallocator(TBFIndexRangeMapRef map, void (*function)(void* value));

// A null value clears the range; a range without length changes nothing, nor does it free the value.
void TBFIndexRangeMapSetValueForRange(TBFIndexRangeMapRef map, void* value, TBFRange range);
void TBFIndexRangeMapClear(TBFIndexRangeMapRef map);

void* TBFIndexRangeMapGetValueForIndex(const TBF::IndexRangeMap* map, int32_t index);

// Each distinct value but null. The set is borrowed, and changes with the map.
int32_t TBFIndexRangeMapGetCountOfUniqueValues(const TBF::IndexRangeMap* map);
const std::set<void*>& TBFIndexRangeMapGetUniqueValuesSetReference(const TBF::IndexRangeMap* map);
void TBFIndexRangeMapApplyItemFunction(const TBF::IndexRangeMap* map, void (*function)(void* value));

// Fills `ranges` with at most `max` ranges of the segments that hold `value`, in ascending order, and gives
// their number. The last segment's length is TBFRangeLengthMax.
int32_t TBFIndexRangeMapFindRangesForValue(const TBF::IndexRangeMap* map, const void* value, TBFRange* ranges,
                                           int32_t max);

// A hold on a value beside the segments.
void TBFIndexRangeMapAddValueInstance(TBFIndexRangeMapRef map, void* value);
void TBFIndexRangeMapRemoveValueInstance(TBFIndexRangeMapRef map, void* value);

// Calls the deallocator at once.
void TBFIndexRangeMapDeallocateValue(const TBF::IndexRangeMap* map, void* value);
