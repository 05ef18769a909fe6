#include "runtime/Array.h"

#include <algorithm>

namespace TBF {

Ref<Array> Array::create() {
    return make<Array>();
}

TBFRange Array::clamped(TBFRange range) const noexcept {
    const int32_t start = std::clamp(range.location, 0, count());
    return TBFRange::between(start, std::min(range.end(), count()));
}

void* Array::at(int32_t index) const noexcept {
    return index >= 0 && index < count() ? items[static_cast<std::size_t>(index)] : nullptr;
}

void Array::set(int32_t index, void* item) {
    if (index >= 0 && index < count()) items[static_cast<std::size_t>(index)] = item;
}

void Array::append(void* const* newItems, int32_t number) {
    if (number > 0) items.insert(items.end(), newItems, newItems + number);
}

void Array::insert(int32_t index, void* item) {
    if (index >= 0 && index <= count()) items.insert(items.begin() + index, item);
}

void Array::remove(TBFRange range) {
    const TBFRange inside = clamped(range);
    items.erase(items.begin() + inside.location, items.begin() + inside.end());
}

int32_t Array::copyItems(TBFRange range, void** out) const {
    const TBFRange inside = clamped(range);
    std::copy_n(items.begin() + inside.location, inside.length, out);
    return inside.length;
}

void Array::apply(void (*function)(void* item), TBFRange range) const {
    const TBFRange inside = clamped(range);
    for (int32_t index = inside.location; index < std::min(inside.end(), count()); ++index) {
        function(items[static_cast<std::size_t>(index)]);
    }
}

} // namespace TBF
