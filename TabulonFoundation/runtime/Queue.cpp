#include "runtime/Queue.h"

#include <algorithm>

namespace TBF {

void* Queue::get() {
    if (items.empty()) return nullptr;
    void* const item = items.front();
    items.pop_front();
    return item;
}

void* Queue::getTail() {
    if (items.empty()) return nullptr;
    void* const item = items.back();
    items.pop_back();
    return item;
}

uint32_t Queue::getContents(void** out, uint32_t max) {
    const uint32_t number = lookContents(out, max);
    items.erase(items.begin(), std::next(items.begin(), number));
    return number;
}

uint32_t Queue::lookContents(void** out, uint32_t max) const {
    const uint32_t number = std::min(max, count());
    std::copy_n(items.begin(), number, out);
    return number;
}

uint32_t Queue::lookContentsTail(void** out, uint32_t max) const {
    const uint32_t number = std::min(max, count());
    std::copy_n(items.rbegin(), number, out);
    return number;
}

} // namespace TBF
