#include "face/runtime/TBFIndexRangeMap.h"

#include "runtime/IndexRangeMap.h"

#include <algorithm>
#include <vector>

using TBF::IndexRangeMap;

TBFIndexRangeMapRef TBFIndexRangeMapCreate() {
    return IndexRangeMap::create().leak();
}

TBFIndexRangeMapRef TBFIndexRangeMapRetain(TBFIndexRangeMapRef map) {
    return TBF::retain(map).leak();
}

void TBFIndexRangeMapRelease(const IndexRangeMap* map) {
    if (map) map->release();
}

void TBFIndexRangeMapSetDeallocator(TBFIndexRangeMapRef map, void (*function)(void* value)) {
    if (map) map->setDeallocator(function);
}

void TBFIndexRangeMapSetValueForRange(TBFIndexRangeMapRef map, void* value, TBFRange range) {
    if (map) map->setValue(value, range);
}

void TBFIndexRangeMapClear(TBFIndexRangeMapRef map) {
    if (map) map->clear();
}

void* TBFIndexRangeMapGetValueForIndex(const IndexRangeMap* map, int32_t index) {
    return map ? map->value(index) : nullptr;
}

int32_t TBFIndexRangeMapGetCountOfUniqueValues(const IndexRangeMap* map) {
    return static_cast<int32_t>(TBFIndexRangeMapGetUniqueValuesSetReference(map).size());
}

const std::set<void*>& TBFIndexRangeMapGetUniqueValuesSetReference(const IndexRangeMap* map) {
    static const std::set<void*> none;
    return map ? map->uniqueValuesReference() : none;
}

void TBFIndexRangeMapApplyItemFunction(const IndexRangeMap* map, void (*function)(void* value)) {
    if (map && function) map->apply(function);
}

int32_t TBFIndexRangeMapFindRangesForValue(const IndexRangeMap* map, const void* value, TBFRange* ranges,
                                           int32_t max) {
    if (!map || !ranges || max <= 0) return 0;
    const std::vector<TBFRange> found = map->rangesOf(value);
    const std::size_t number = std::min(found.size(), static_cast<std::size_t>(max));
    std::copy_n(found.begin(), number, ranges);
    return static_cast<int32_t>(number);
}

void TBFIndexRangeMapAddValueInstance(TBFIndexRangeMapRef map, void* value) {
    if (map) map->addInstance(value);
}

void TBFIndexRangeMapRemoveValueInstance(TBFIndexRangeMapRef map, void* value) {
    if (map) map->removeInstance(value);
}

void TBFIndexRangeMapDeallocateValue(const IndexRangeMap* map, void* value) {
    if (map) map->deallocate(value);
}
