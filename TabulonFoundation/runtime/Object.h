#pragma once

// The base of every counted object of the foundation: a virtual destructor and an atomic reference
// count. A class derives as `class Number : public Object<Number>` and is made through its static
// `create(...)`. Objects may be shared between threads once they are built; what else may happen
// concurrently is for each class to say. Handles inside the code live in `TBF::Ref` (runtime/Ref.h),
// which is the caller of retain and release. Objects live in pooled memory (runtime/ObjectPool.h).

#include "runtime/ObjectPool.h"

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <utility>

namespace TBF {

template <typename T>
class Object {
public:
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;

    // The count is mutable, so that const objects can be shared.
    void retain() const noexcept { referenceCount.fetch_add(1, std::memory_order_relaxed); }

    // Destroys the object when the last reference is gone. The owner of the only one need not count it down:
    // nobody else can retain the object meanwhile.
    void release() const noexcept {
        if (isUnique() || referenceCount.fetch_sub(1, std::memory_order_acq_rel) <= 1) delete this;
    }

    // True if the caller's reference is the only one, so that nobody else can see a change.
    bool isUnique() const noexcept { return referenceCount.load(std::memory_order_acquire) == 1; }

    // A new object with count 1. A class that keeps its constructors private befriends
    // `Object<T>`, and is then made by `TBF::make` all the same.
    template <typename U, typename... Arguments>
    static U* construct(Arguments&&... arguments) {
        return new U(std::forward<Arguments>(arguments)...);
    }

    static void* operator new(std::size_t size) { return ObjectPool::take(size); }
    static void operator delete(void* memory, std::size_t size) noexcept { ObjectPool::give(memory, size); }

protected:
    Object() noexcept = default;
    virtual ~Object() = default;

private:
    mutable std::atomic<int32_t> referenceCount{1};
};

} // namespace TBF
