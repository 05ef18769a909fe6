#pragma once

// Tables of decimals that are made once, on first use, and never destroyed: `kernelConstants<Table>()`, where
// `Table` is a struct whose default constructor makes its members. Any thread may ask, with or without
// the kernel's lock. A function-local static would not do here: its guard and the kernel's lock could
// then be taken in either order, and two threads could wait for each other.

#include "numbers/KernelLock.h"

#include <atomic>

namespace TBF {

template <typename Table>
const Table& kernelConstants() {
    static constinit std::atomic<const Table*> shared{nullptr};
    const Table* table = shared.load(std::memory_order_acquire);
    if (!table) {
        const KernelLock lock;
        table = shared.load(std::memory_order_relaxed);
        if (!table) {
            table = new Table();
            shared.store(table, std::memory_order_release);
        }
    }
    return *table;
}

} // namespace TBF
