#include "face/runtime/TBFQueue.h"

#include "runtime/Queue.h"

using TBF::Queue;

TBFQueueRef TBFQueueCreate() {
    return new Queue();
}

void TBFQueueFree(TBFQueueRef queue) {
    delete queue;
}

bool TBFQueueIsEmpty(const Queue* queue) {
    return !queue || queue->isEmpty();
}

uint32_t TBFQueueGetCount(const Queue* queue) {
    return queue ? queue->count() : 0;
}

void TBFQueuePut(TBFQueueRef queue, void* item) {
    if (queue) queue->put(item);
}

void* TBFQueueGet(TBFQueueRef queue) {
    return queue ? queue->get() : nullptr;
}

void* TBFQueueGetTail(TBFQueueRef queue) {
    return queue ? queue->getTail() : nullptr;
}

void* TBFQueueLook(const Queue* queue) {
    return queue ? queue->look() : nullptr;
}

void* TBFQueueLookTail(const Queue* queue) {
    return queue ? queue->lookTail() : nullptr;
}

uint32_t TBFQueueGetContents(TBFQueueRef queue, void** items, uint32_t max) {
    return queue && items ? queue->getContents(items, max) : 0;
}

uint32_t TBFQueueLookContents(const Queue* queue, void** items, uint32_t max) {
    return queue && items ? queue->lookContents(items, max) : 0;
}

uint32_t TBFQueueLookContentsTail(const Queue* queue, void** items, uint32_t max) {
    return queue && items ? queue->lookContentsTail(items, max) : 0;
}
