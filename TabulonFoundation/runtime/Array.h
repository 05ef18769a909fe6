#pragma once

// The body behind TBFArray handles: a growable array of untyped pointers which it neither retains nor
// frees. For exchange at the plain-function edge; inside, `std::vector<Ref<T>>` is the container. Used by
// one thread at a time. Indexes are zero-based; what lies outside of the array is left out silently.

#include "runtime/Object.h"
#include "runtime/Ref.h"
#include "runtime/TBFTypes.h"

#include <cstdint>
#include <vector>

namespace TBF {

class Array final : public Object<Array> {
public:
    static Ref<Array> create();

    int32_t count() const noexcept { return static_cast<int32_t>(items.size()); }
    void* at(int32_t index) const noexcept; // null outside of the array
    void set(int32_t index, void* item);

    void append(void* item) { items.push_back(item); }
    void append(void* const* newItems, int32_t number);
    void insert(int32_t index, void* item); // an index equal to the count appends

    void remove(TBFRange range);
    void removeAll() { items.clear(); }

    // Copies the items of the range and gives their number.
    int32_t copyItems(TBFRange range, void** out) const;

    // In index order. The number of items is read once at the start; items that go meanwhile are left out.
    void apply(void (*function)(void* item), TBFRange range) const;

    const std::vector<void*>& contents() const noexcept { return items; }

private:
    friend class Object<Array>;

    Array() = default;
    ~Array() override = default;

    // The part of the range that lies inside of the array.
    TBFRange clamped(TBFRange range) const noexcept;

    std::vector<void*> items;
};

} // namespace TBF
