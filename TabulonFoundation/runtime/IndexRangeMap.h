#pragma once

// A piecewise constant function from indexes (of lines, mostly) to untyped pointers: how a variable has a
// value per range of lines. The map counts in how many segments each value stands, and calls its deallocator
// when the last one goes. Used by one thread at a time.
//
// Segment i runs from its start to the start of segment i + 1, the last one to the end. The first start
// is 0, so a negative index reads the first segment. Equal neighbours are not merged.

#include "runtime/Object.h"
#include "runtime/Ref.h"
#include "runtime/TBFTypes.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <set>
#include <vector>

namespace TBF {

class IndexRangeMap final : public Object<IndexRangeMap> {
public:
    using Deallocator = void (*)(void* value);

    // Null at every index, without a deallocator.
    static Ref<IndexRangeMap> create();

    void setDeallocator(Deallocator function) noexcept { deallocator = function; }

    // Sets `value`, which may be null, over the range. What was there loses its instances. A range without
    // length changes nothing, nor does it free the value; a part of the range before index 0 is left out.
    void setValue(void* value, TBFRange range);

    void* value(int32_t index) const noexcept;

    // Each distinct value but null, in the order of the pointers.
    // Borrowed until the next change.
    const std::set<void*>& uniqueValuesReference() const;

    // Sets null over everything.
    void clear() { setValue(nullptr, {0, TBFRangeLengthMax}); }

    // The range of each segment that holds `value`, in ascending order; the last segment's length is
    // TBFRangeLengthMax. Empty for null.
    std::vector<TBFRange> rangesOf(const void* value) const;

    // Calls `function(value)` on each distinct value. The function must not change the map.
    void apply(void (*function)(void* value)) const;

    // A hold on a value beside the segments, to keep it over a change of the map. Null is ignored.
    void addInstance(void* value);
    void removeInstance(void* value);

    // Calls the deallocator, if there is one, at once.
    void deallocate(void* value) const;

private:
    friend class Object<IndexRangeMap>;

    IndexRangeMap() = default;
    ~IndexRangeMap() override;

    // What more than one segment needs, or a hold beside the segments.
    struct Segments {
        std::vector<int32_t> starts{0};
        std::vector<void*> values{nullptr}; // in step with `starts`
        std::map<void*, int32_t> instances;

        std::size_t count() const noexcept { return starts.size(); }

        // The last segment whose start is at or before `index`, or the first one.
        std::size_t at(int32_t index) const noexcept;
    };

    Segments& madeSegments();
    void backToOneValue();

    void replaceValue(std::size_t segment, void* value);
    void insertSegment(std::size_t position, int32_t start, void* value);
    void removeSegments(std::size_t first, std::size_t last); // [first, last), the last one first

    // Nearly all variables of a document have one value for all lines, and there may be very many.
    void* onlyValue = nullptr;                             // at every index, while there are no segments
    std::unique_ptr<Segments> segments;                    // null as long as the above serves
    mutable std::unique_ptr<std::set<void*>> uniqueValues; // null until asked for, and after a change
    Deallocator deallocator = nullptr;
};

} // namespace TBF
