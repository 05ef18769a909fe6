#pragma once

// The body behind TBFQueue handles: a doubly linked list of untyped pointers that are put at the tail and
// got from the head. Owns nothing it stores. Used by one thread at a time.

#include <cstdint>
#include <list>

namespace TBF {

class Queue {
public:
    bool isEmpty() const noexcept { return items.empty(); }
    uint32_t count() const noexcept { return static_cast<uint32_t>(items.size()); }

    void put(void* item) { items.push_back(item); }

    // Null if the queue is empty.
    void* get();     // takes out the head
    void* getTail(); // takes out the tail
    void* look() const noexcept { return items.empty() ? nullptr : items.front(); }
    void* lookTail() const noexcept { return items.empty() ? nullptr : items.back(); }

    // Give how many items they wrote, at most `max`. From the head on, or from the tail back.
    uint32_t getContents(void** out, uint32_t max);
    uint32_t lookContents(void** out, uint32_t max) const;
    uint32_t lookContentsTail(void** out, uint32_t max) const;

private:
    std::list<void*> items;
};

} // namespace TBF
