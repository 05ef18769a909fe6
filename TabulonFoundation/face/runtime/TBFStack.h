#pragma once

// The plain functions over stacks of untyped pointers. Not counted: TBFStackCreate and TBFStackFree pair up.
// Used by one thread at a time. A null handle counts as an empty stack, to which nothing can be added.

#include <cstdint>

namespace TBF {
class Stack;
}
using TBFStackRef = TBF::Stack*;

TBFStackRef TBFStackCreate(); // 64 items a bucket
TBFStackRef TBFStackCreateBucketed(uint32_t bucketSize);
void TBFStackFree(TBFStackRef stack); // doesn't free the items

void TBFStackPush(TBFStackRef stack, void* item);
void* TBFStackPop(TBFStackRef stack);        // null if empty
void* TBFStackLook(const TBF::Stack* stack); // the top item; null if empty
bool TBFStackIsEmpty(const TBF::Stack* stack);
