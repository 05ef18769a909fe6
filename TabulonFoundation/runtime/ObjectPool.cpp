#include "runtime/ObjectPool.h"

namespace TBF {

constinit thread_local ObjectPool::FreeLists ObjectPool::lists;
constinit thread_local bool ObjectPool::isOpen = false;

struct ObjectPool::ThreadEnd {
    ThreadEnd() {
        for (std::size_t index = 0; index < lists.size(); ++index)
            lists[index].room = keptBytes / ((index + 1) * granularity);
    }

    // What other ends of the thread give back later finds no room, and goes to the heap.
    ~ThreadEnd() {
        for (FreeList& list : lists) {
            while (Block* const block = list.first) {
                list.first = block->next;
                ::operator delete(block);
            }
            list.room = 0;
        }
    }
};

bool ObjectPool::open(FreeList& list) noexcept {
    if (isOpen) return false;
    isOpen = true;
    static thread_local const ThreadEnd end;
    return list.room > 0;
}

} // namespace TBF
