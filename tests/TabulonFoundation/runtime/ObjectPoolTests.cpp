#include "runtime/ObjectPool.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <mutex>
#include <thread>
#include <vector>

namespace {

using TBF::ObjectPool;

struct Block {
    unsigned char* memory;
    std::size_t size;
    unsigned char mark;
};

// Blocks that overlap, or that somebody else writes to, lose their marks.
Block marked(std::size_t size, unsigned char mark) {
    auto* const memory = static_cast<unsigned char*>(ObjectPool::take(size));
    std::memset(memory, mark, size);
    return {memory, size, mark};
}

bool hasItsMarks(const Block& block) {
    return std::all_of(block.memory, block.memory + block.size,
                       [&](unsigned char byte) { return byte == block.mark; });
}

void giveBack(const Block& block) {
    EXPECT_TRUE(hasItsMarks(block)) << block.size;
    ObjectPool::give(block.memory, block.size);
}

TEST(ObjectPool, BlocksOfAllSizesAreAlignedAndApart) {
    for (int round = 0; round < 3; ++round) {
        std::vector<Block> blocks;
        for (std::size_t size = 0; size <= ObjectPool::largestBlock + 33; ++size) {
            blocks.push_back(marked(size, static_cast<unsigned char>(size % 251)));
            EXPECT_EQ(reinterpret_cast<std::uintptr_t>(blocks.back().memory) %
                          __STDCPP_DEFAULT_NEW_ALIGNMENT__,
                      0u);
        }
        for (const Block& block : blocks)
            giveBack(block);
    }
}

TEST(ObjectPool, WhatCameBackServesTheNextOfItsSizeAndNoOther) {
    if (!TBF::poolKeepsMemory) GTEST_SKIP() << "the pool keeps nothing";
    void* const first = ObjectPool::take(40);
    ObjectPool::give(first, 40);
    void* const larger = ObjectPool::take(49);
    EXPECT_NE(larger, first);
    void* const same = ObjectPool::take(48); // rounded to the same size
    EXPECT_EQ(same, first);
    ObjectPool::give(larger, 49);
    ObjectPool::give(same, 48);
}

TEST(ObjectPool, MoreBlocksThanItKeepsGoBackToTheHeap) {
    std::vector<Block> blocks;
    for (int i = 0; i < 20'000; ++i)
        blocks.push_back(marked(64, static_cast<unsigned char>(i)));
    for (const Block& block : blocks)
        giveBack(block);
}

// Memory moves between threads and outlives those that took it.
TEST(ObjectPool, ThreadsGiveBackEachOthersBlocks) {
    std::mutex mutex;
    std::vector<Block> shared;
    const auto work = [&](unsigned char mark) {
        for (std::size_t i = 0; i < 4000; ++i) {
            const Block own = marked(16 + i % 300, mark);
            Block taken = own;
            {
                const std::lock_guard lock(mutex);
                shared.push_back(own);
                std::swap(shared[i % shared.size()], shared.back());
                if (i % 2 == 0) continue;
                taken = shared.back();
                shared.pop_back();
            }
            giveBack(taken);
        }
    };
    std::vector<std::thread> threads;
    for (unsigned char mark = 1; mark <= 4; ++mark)
        threads.emplace_back(work, mark);
    for (std::thread& thread : threads)
        thread.join();
    for (const Block& block : shared)
        giveBack(block);
}

// An object that a thread ends with is destroyed after the thread's pool.
TEST(ObjectPool, TakesBlocksFromTheLastObjectsOfAThread) {
    struct Owner {
        void* memory = nullptr;
        ~Owner() { ObjectPool::give(memory, 100); }
    };
    std::thread([] {
        static thread_local Owner owner; // made before the pool opens, so that it ends behind it
        owner.memory = ObjectPool::take(100);
        ObjectPool::give(ObjectPool::take(200), 200);
    }).join();
}

TEST(ObjectPool, ServesContainersAndSharedObjects) {
    TBF::PooledVector<int> numbers;
    for (int i = 0; i < 1000; ++i)
        numbers.push_back(i);
    EXPECT_EQ(numbers.back(), 999);
    const auto shared = TBF::makeShared<std::vector<int>>(3, 7);
    EXPECT_EQ(*shared, std::vector<int>({7, 7, 7}));
}

} // namespace
