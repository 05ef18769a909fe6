#pragma once

// Memory for the objects that come and go by the dozen with every line: tokens, nodes, numbers, values. Each
// thread keeps blocks that it gave back, by size, and takes them again before it asks the heap. Blocks come
// from the heap one by one and return there when a thread has enough of a size and when the thread ends, so
// memory may be taken on one thread and given back on another. Under AddressSanitizer everything goes to the
// heap, so that the use of a dead object is found.
//
// Counted objects get their memory here through `TBF::Object`; containers and shared pointers take a
// `PoolAllocator`.

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>
#include <utility>
#include <vector>

namespace TBF {

#if defined(__SANITIZE_ADDRESS__)
inline constexpr bool poolKeepsMemory = false;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
inline constexpr bool poolKeepsMemory = false;
#else
inline constexpr bool poolKeepsMemory = true;
#endif
#else
inline constexpr bool poolKeepsMemory = true;
#endif

class ObjectPool {
public:
    // Bytes; larger blocks are the heap's affair.
    static constexpr std::size_t largestBlock = 512;

    // Memory aligned as by `operator new`. Throws std::bad_alloc as that does.
    static void* take(std::size_t size) {
        if (!poolKeepsMemory || size > largestBlock) return ::operator new(size);
        FreeList& list = lists[indexOf(size)];
        Block* const block = list.first;
        if (!block) return ::operator new((indexOf(size) + 1) * granularity);
        list.first = block->next;
        ++list.room;
        return block;
    }

    // `size` is what was asked for when the memory was taken.
    static void give(void* memory, std::size_t size) noexcept {
        if (!poolKeepsMemory || size > largestBlock) {
            ::operator delete(memory);
            return;
        }
        FreeList& list = lists[indexOf(size)];
        if (list.room == 0 && !open(list)) {
            ::operator delete(memory);
            return;
        }
        list.first = ::new (memory) Block{list.first};
        --list.room;
    }

private:
    static constexpr std::size_t granularity = 16;
    static constexpr std::size_t keptBytes = 65536; // of each size at most

    struct Block {
        Block* next;
    };

    struct FreeList {
        Block* first = nullptr;
        uint32_t room = 0; // blocks that may yet come in; none before the thread's first block
    };
    using FreeLists = std::array<FreeList, largestBlock / granularity>;

    struct ThreadEnd; // gives the thread's blocks back to the heap

    static constexpr std::size_t indexOf(std::size_t size) {
        return size == 0 ? 0 : (size - 1) / granularity;
    }

    // Makes room in the thread's lists before the first block comes in. False if the list is full, and when
    // the thread is ending.
    static bool open(FreeList& list) noexcept;

    static constinit thread_local FreeLists lists;
    static constinit thread_local bool isOpen;
};

// For containers and std::allocate_shared.
template <typename T>
class PoolAllocator {
public:
    using value_type = T;

    constexpr PoolAllocator() noexcept = default;
    template <typename U>
    constexpr PoolAllocator(const PoolAllocator<U>&) noexcept {}

    T* allocate(std::size_t count) {
        static_assert(alignof(T) <= __STDCPP_DEFAULT_NEW_ALIGNMENT__);
        if (count > SIZE_MAX / sizeof(T)) throw std::bad_array_new_length();
        return static_cast<T*>(ObjectPool::take(count * sizeof(T)));
    }
    void deallocate(T* memory, std::size_t count) noexcept { ObjectPool::give(memory, count * sizeof(T)); }

    template <typename U>
    constexpr bool operator==(const PoolAllocator<U>&) const noexcept {
        return true;
    }
};

// For the short lists of one line.
template <typename T>
using PooledVector = std::vector<T, PoolAllocator<T>>;

// A shared object in pooled memory.
template <typename T, typename... Arguments>
std::shared_ptr<T> makeShared(Arguments&&... arguments) {
    return std::allocate_shared<T>(PoolAllocator<T>(), std::forward<Arguments>(arguments)...);
}

} // namespace TBF
