#include "runtime/IndexRangeMap.h"

#include <algorithm>
#include <utility>

namespace TBF {

Ref<IndexRangeMap> IndexRangeMap::create() {
    return make<IndexRangeMap>();
}

IndexRangeMap::~IndexRangeMap() {
    apply(deallocator);
}

IndexRangeMap::Segments& IndexRangeMap::madeSegments() {
    if (segments) return *segments;
    segments = std::make_unique<Segments>();
    segments->values.front() = onlyValue;
    if (onlyValue) segments->instances.emplace(onlyValue, 1);
    onlyValue = nullptr;
    return *segments;
}

void IndexRangeMap::backToOneValue() {
    if (segments->count() > 1) return;
    void* const value = segments->values.front();
    const auto& instances = segments->instances;
    const bool isHeldBySegmentAlone =
        value ? instances.size() == 1 && instances.begin()->second == 1 : instances.empty();
    if (!isHeldBySegmentAlone) return;
    onlyValue = value;
    segments.reset();
}

const std::set<void*>& IndexRangeMap::uniqueValuesReference() const {
    if (uniqueValues) return *uniqueValues;
    uniqueValues = std::make_unique<std::set<void*>>();
    if (onlyValue) uniqueValues->insert(onlyValue);
    if (segments)
        for (const auto& [value, count] : segments->instances)
            uniqueValues->insert(value);
    return *uniqueValues;
}

std::size_t IndexRangeMap::Segments::at(int32_t index) const noexcept {
    const auto behind = std::upper_bound(starts.begin(), starts.end(), index);
    return behind == starts.begin() ? 0 : static_cast<std::size_t>(behind - starts.begin() - 1);
}

void IndexRangeMap::addInstance(void* value) {
    if (!value) return;
    if (++madeSegments().instances[value] == 1) uniqueValues.reset();
}

void IndexRangeMap::removeInstance(void* value) {
    if (!value) return;
    auto& instances = madeSegments().instances;
    const auto found = instances.find(value);
    if (found == instances.end() || --found->second > 0) return;
    instances.erase(found);
    uniqueValues.reset();
    deallocate(value);
}

void IndexRangeMap::deallocate(void* value) const {
    if (deallocator) deallocator(value);
}

void IndexRangeMap::replaceValue(std::size_t segment, void* value) {
    void*& place = segments->values[segment];
    if (place == value) return;
    void* const old = std::exchange(place, value);
    addInstance(value);
    removeInstance(old);
}

void IndexRangeMap::insertSegment(std::size_t position, int32_t start, void* value) {
    const auto offset = static_cast<std::ptrdiff_t>(position);
    segments->starts.insert(segments->starts.begin() + offset, start);
    segments->values.insert(segments->values.begin() + offset, value);
    addInstance(value);
}

void IndexRangeMap::removeSegments(std::size_t first, std::size_t last) {
    if (first >= last) return;
    auto& [starts, values, instances] = *segments;
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
    if (!segments && range.location == 0 && !hasEnd) {
        void* const old = std::exchange(onlyValue, value);
        if (old == value) return;
        uniqueValues.reset();
        if (old) deallocate(old);
        return;
    }
    const Segments& all = madeSegments();
    const std::size_t lower = all.at(range.location);
    // The last segment which the range reaches; its value rules behind the range.
    const std::size_t upper = hasEnd ? all.at(range.end() - 1) : all.count() - 1;
    const bool restIsWhole = hasEnd && upper + 1 < all.count() && all.starts[upper + 1] == range.end();
    void* const tail = all.values[upper];

    // Both held, because their segments may go before they are entered again.
    addInstance(value);
    addInstance(tail);
    removeSegments(lower + 1, upper + 1);
    std::size_t behind = lower + 1;
    if (all.starts[lower] == range.location) {
        replaceValue(lower, value);
    } else {
        insertSegment(behind++, range.location, value);
    }
    if (hasEnd && !restIsWhole) insertSegment(behind, range.end(), tail);
    removeInstance(tail);
    removeInstance(value);
    backToOneValue();
}

void* IndexRangeMap::value(int32_t index) const noexcept {
    return segments ? segments->values[segments->at(index)] : onlyValue;
}

std::vector<TBFRange> IndexRangeMap::rangesOf(const void* value) const {
    std::vector<TBFRange> ranges;
    if (!value) return ranges;
    if (!segments) {
        if (value == onlyValue) ranges.push_back({0, TBFRangeLengthMax});
        return ranges;
    }
    const std::vector<int32_t>& starts = segments->starts;
    for (std::size_t segment = 0; segment < starts.size(); ++segment) {
        if (segments->values[segment] != value) continue;
        const bool last = segment + 1 == starts.size();
        ranges.push_back({starts[segment], last ? TBFRangeLengthMax : starts[segment + 1] - starts[segment]});
    }
    return ranges;
}

void IndexRangeMap::apply(void (*function)(void* value)) const {
    if (!function) return;
    if (onlyValue) function(onlyValue);
    if (!segments) return;
    for (const auto& [value, count] : segments->instances)
        function(value);
}

} // namespace TBF
