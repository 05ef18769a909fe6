#pragma once

// The plain functions over array handles. An array doesn't retain its items and doesn't free them: its owner
// decides, and applies a release function at its end. Used by one thread at a time. A null handle counts as
// an empty array, to which nothing can be added.

#include "runtime/TBFTypes.h"

#include <cstdint>

namespace TBF {
class Array;
}
using TBFArrayRef = TBF::Array*;

// The caller owns the result.
TBFArrayRef TBFArrayCreate();
TBFArrayRef TBFArrayRetain(TBFArrayRef array);
void TBFArrayRelease(const TBF::Array* array);

int32_t TBFArrayCount(const TBF::Array* array);
void TBFArrayGetItems(const TBF::Array* array, void** items, int32_t max);
void TBFArrayGetItemsInRange(const TBF::Array* array, TBFRange range, void** items);
void* TBFArrayGetItemAtIndex(const TBF::Array* array, int32_t index);

void TBFArraySetItemAtIndex(TBFArrayRef array, int32_t index, void* item);
void TBFArrayAddItem(TBFArrayRef array, void* item);
void TBFArrayAddItems(TBFArrayRef array, void* const* items, int32_t count);
void TBFArrayAddItemsFromArray(TBFArrayRef array, const TBF::Array* other); // `other` may be `array`
void TBFArrayInsertItemAtIndex(TBFArrayRef array, int32_t index, void* item);
void TBFArrayRemoveItemAtIndex(TBFArrayRef array, int32_t index);
void TBFArrayRemoveItemsInRange(TBFArrayRef array, TBFRange range);
void TBFArrayRemoveAllItems(TBFArrayRef array);

// Call `function(item)` in index order.
void TBFArrayApplyItemFunction(const TBF::Array* array, void (*function)(void* item));
void TBFArrayApplyItemFunctionInRange(const TBF::Array* array, void (*function)(void* item), TBFRange range);
