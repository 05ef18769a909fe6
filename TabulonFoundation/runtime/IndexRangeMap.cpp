#include "runtime/IndexRangeMap.h"

#include <algorithm>

namespace TBF {

Ref<IndexRangeMap> IndexRangeMap::create() {
    return make<IndexRangeMap>();
}

IndexRangeMap::~IndexRangeMap() {
    for (const auto& [value, count] : valueInstances)
        deallocate(value);
}

const std::set<void*>& IndexRangeMap::uniqueValuesReference() const {
    if (!uniqueValues) {
        uniqueValues = std::make_unique<std::set<void*>>();
        for (const auto& [value, count] : valueInstances)
            uniqueValues->insert(value);
    }
    return *uniqueValues;
}

std::size_t IndexRangeMap::segmentAt(int32_t index) const noexcept {
    const auto behind = std::upper_bound(starts.begin(), starts.end(), index);
    return behind == starts.begin() ? 0 : static_cast<std::size_t>(behind - starts.begin() - 1);
}

void IndexRangeMap::addInstance(void* value) {
    if (!value) return;
    if (++valueInstances[value] == 1) uniqueValues.reset();
}

void IndexRangeMap::removeInstance(void* value) {
    const auto instances = valueInstances.find(value);
    if (!value || instances == valueInstances.end()) return;
    if (--instances->second > 0) return;
    valueInstances.erase(instances);
    uniqueValues.reset();
    deallocate(value);
}

void IndexRangeMap::deallocate(void* value) const {
    if (deallocator) deallocator(value);
}

void IndexRangeMap::replaceValue(std::size_t segment, void* value) {
    void* const old = values[segment];
    if (old == value) return;
    values[segment] = value;
    addInstance(value);
    removeInstance(old);
}

void IndexRangeMap::insertSegment(std::size_t position, int32_t start, void* value) {
    const auto offset = static_cast<std::ptrdiff_t>(position);
    starts.insert(starts.begin() + offset, start);
    values.insert(values.begin() + offset, value);
    addInstance(value);
}

void IndexRangeMap::removeSegments(std::size_t first, std::size_t last) {
    if (first >= last) return;
    const auto begin = static_cast<std::ptrdiff_t>(first);
    const auto end = static_cast<std::ptrdiff_t>(last);
    const std::vector<void*> removed(values.begin() + begin, values.begin() + end);
    starts.erase(starts.begin() + begin, starts.begin() + end);
    values.erase(values.begin() + begin, values.begin() + end);
    std::for_each(removed.rbegin(), removed.rend(), [this](void* value) { removeInstance(value); });
}

void IndexRangeMap::setValue(void* value, TBFRange range) {
    if (range.location < 0 && !range.runsToEnd()) range = TBFRange::between(0, range.end());
    range.location = std::max(range.location, 0);
    if (range.isEmpty()) return;

    const bool hasEnd = !range.runsToEnd();
    const std::size_t lower = segmentAt(range.location);
    // The last segment which the range reaches; its value rules behind the range.
    const std::size_t upper = hasEnd ? segmentAt(range.end() - 1) : starts.size() - 1;
    const bool restIsWhole = hasEnd && upper + 1 < starts.size() && starts[upper + 1] == range.end();
    void* const tail = values[upper];

    // Both held, because their segments may go before they are entered again.
    addInstance(value);
    addInstance(tail);
    removeSegments(lower + 1, upper + 1);
    std::size_t behind = lower + 1;
    if (starts[lower] == range.location) {
        replaceValue(lower, value);
    } else {
        insertSegment(behind++, range.location, value);
    }
    if (hasEnd && !restIsWhole) insertSegment(behind, range.end(), tail);
    removeInstance(tail);
    removeInstance(value);
}

void* IndexRangeMap::value(int32_t index) const noexcept {
    return values[segmentAt(index)];
}

std::vector<TBFRange> IndexRangeMap::rangesOf(const void* value) const {
    std::vector<TBFRange> ranges;
    if (!value) return ranges;
    for (std::size_t segment = 0; segment < starts.size(); ++segment) {
        if (values[segment] != value) continue;
        const bool last = segment + 1 == starts.size();
        ranges.push_back({starts[segment], last ? TBFRangeLengthMax : starts[segment + 1] - starts[segment]});
    }
    return ranges;
}

void IndexRangeMap::apply(void (*function)(void* value)) const {
    for (const auto& [value, count] : valueInstances)
        function(value);
}

} // namespace TBF
