#include "face/runtime/TBFArray.h"

#include "runtime/Array.h"

#include <vector>

using TBF::Array;

namespace {
constexpr TBFRange wholeArray = {0, TBFRangeLengthMax};
}

TBFArrayRef TBFArrayCreate() {
    return Array::create().leak();
}

TBFArrayRef TBFArrayRetain(TBFArrayRef array) {
    return TBF::retain(array).leak();
}

void TBFArrayRelease(const Array* array) {
    if (array) array->release();
}

int32_t TBFArrayCount(const Array* array) {
    return array ? array->count() : 0;
}

void TBFArrayGetItems(const Array* array, void** items, int32_t max) {
    if (array && items) array->copyItems({0, max}, items);
}

void TBFArrayGetItemsInRange(const Array* array, TBFRange range, void** items) {
    if (array && items) array->copyItems(range, items);
}

void* TBFArrayGetItemAtIndex(const Array* array, int32_t index) {
    return array ? array->at(index) : nullptr;
}

void TBFArraySetItemAtIndex(TBFArrayRef array, int32_t index, void* item) {
    if (array) array->set(index, item);
}

void TBFArrayAddItem(TBFArrayRef array, void* item) {
    if (array) array->append(item);
}

void TBFArrayAddItems(TBFArrayRef array, void* const* items, int32_t count) {
    if (array && items) array->append(items, count);
}

void TBFArrayAddItemsFromArray(TBFArrayRef array, const Array* other) {
    if (!array || !other) return;
    const std::vector<void*> items = other->contents();
    array->append(items.data(), static_cast<int32_t>(items.size()));
}

void TBFArrayInsertItemAtIndex(TBFArrayRef array, int32_t index, void* item) {
    if (array) array->insert(index, item);
}

void TBFArrayRemoveItemAtIndex(TBFArrayRef array, int32_t index) {
    if (array && index >= 0) array->remove({index, 1});
}

void TBFArrayRemoveItemsInRange(TBFArrayRef array, TBFRange range) {
    if (array) array->remove(range);
}

void TBFArrayRemoveAllItems(TBFArrayRef array) {
    if (array) array->removeAll();
}

void TBFArrayApplyItemFunction(const Array* array, void (*function)(void* item)) {
    TBFArrayApplyItemFunctionInRange(array, function, wholeArray);
}

void TBFArrayApplyItemFunctionInRange(const Array* array, void (*function)(void* item), TBFRange range) {
    if (array && function) array->apply(function, range);
}
