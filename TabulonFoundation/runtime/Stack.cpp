#include "runtime/Stack.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace TBF {

struct StkBucketNode {
    std::unique_ptr<void*[]> items;
    std::unique_ptr<StkBucketNode> next; // the older bucket
};

Stack::Stack(uint32_t itemsPerBucket)
    : bucketSize(std::max(itemsPerBucket, 1U)) {
    linkBucket();
    bottom = top.get();
}

Stack::~Stack() {
    // One bucket at a time: a chain of owners would be destroyed recursively.
    while (top)
        unlinkBucket();
}

void Stack::linkBucket() {
    auto bucket = std::make_unique<StkBucketNode>();
    bucket->items = std::make_unique<void*[]>(bucketSize);
    bucket->next = std::move(top);
    top = std::move(bucket);
    topCount = 0;
}

void Stack::unlinkBucket() {
    top = std::exchange(top->next, nullptr);
    topCount = bucketSize;
}

void Stack::push(void* item) {
    if (topCount == bucketSize) linkBucket();
    top->items[topCount++] = item;
}

void* Stack::pop() {
    if (isEmpty()) return nullptr;
    if (topCount == 0) unlinkBucket();
    return top->items[--topCount];
}

void* Stack::look() const {
    if (isEmpty()) return nullptr;
    return topCount > 0 ? top->items[topCount - 1] : top->next->items[bucketSize - 1];
}

bool Stack::isEmpty() const noexcept {
    return topCount == 0 && top.get() == bottom;
}

} // namespace TBF
