#include "face/runtime/TBFStack.h"

#include "runtime/Stack.h"

using TBF::Stack;

namespace {
constexpr uint32_t defaultBucketSize = 64;
}

TBFStackRef TBFStackCreate() {
    return TBFStackCreateBucketed(defaultBucketSize);
}

TBFStackRef TBFStackCreateBucketed(uint32_t bucketSize) {
    return new Stack(bucketSize);
}

void TBFStackFree(TBFStackRef stack) {
    delete stack;
}

void TBFStackPush(TBFStackRef stack, void* item) {
    if (stack) stack->push(item);
}

void* TBFStackPop(TBFStackRef stack) {
    return stack ? stack->pop() : nullptr;
}

void* TBFStackLook(const Stack* stack) {
    return stack ? stack->look() : nullptr;
}

bool TBFStackIsEmpty(const Stack* stack) {
    return !stack || stack->isEmpty();
}
