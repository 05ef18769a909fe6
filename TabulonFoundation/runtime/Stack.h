#pragma once

// The body behind TBFStack handles: a stack of untyped pointers in linked buckets, so that a push never moves
// what is stored, and allocates once per bucket. Owns nothing it stores. Used by one thread at a time.

#include <cstdint>
#include <memory>

namespace TBF {

struct StkBucketNode;

class Stack {
public:
    explicit Stack(uint32_t itemsPerBucket); // at least 1
    ~Stack();
    Stack(const Stack&) = delete;
    Stack& operator=(const Stack&) = delete;

    void push(void* item);
    void* pop();        // null if empty
    void* look() const; // the top item; null if empty
    bool isEmpty() const noexcept;

private:
    void linkBucket();
    void unlinkBucket();

    // An emptied bucket stays linked until a pop reaches below it, so that pushes and pops in turn at a
    // bucket's edge don't allocate.
    std::unique_ptr<StkBucketNode> top;
    const StkBucketNode* bottom = nullptr; // the first bucket, which lives as long as the stack
    uint32_t topCount = 0;                 // items in the top bucket
    uint32_t bucketSize;
};

} // namespace TBF
