#pragma once

// The plain functions over queues of untyped pointers. Not counted: TBFQueueCreate and TBFQueueFree pair up.
// Used by one thread at a time. A null handle counts as an empty queue, to which nothing can be added.

#include <cstdint>

namespace TBF {
class Queue;
}
using TBFQueueRef = TBF::Queue*;

TBFQueueRef TBFQueueCreate();
void TBFQueueFree(TBFQueueRef queue); // doesn't free the items

bool TBFQueueIsEmpty(const TBF::Queue* queue);
uint32_t TBFQueueGetCount(const TBF::Queue* queue);

void TBFQueuePut(TBFQueueRef queue, void* item); // at the tail

// Take out an item, or look at it. Null if the queue is empty.
void* TBFQueueGet(TBFQueueRef queue); // from the head
void* TBFQueueGetTail(TBFQueueRef queue);
void* TBFQueueLook(const TBF::Queue* queue);
void* TBFQueueLookTail(const TBF::Queue* queue);

// Take out or copy up to `max` items, from the head on or from the tail back, and give their number.
uint32_t TBFQueueGetContents(TBFQueueRef queue, void** items, uint32_t max);
uint32_t TBFQueueLookContents(const TBF::Queue* queue, void** items, uint32_t max);
uint32_t TBFQueueLookContentsTail(const TBF::Queue* queue, void** items, uint32_t max);
