#include "scratch.h"

#include "m_apm_fields.h"

#include <cstdlib>

namespace mapm {

namespace {

struct Block {
    Limb* data;
    std::size_t size;
};

// Blocks double in size, so that their number stays below this for any memory there is.
constexpr std::size_t kMaxBlocks = 64;
constexpr std::size_t kFirstBlock = 1U << 12;
// An idle arena gives back what exceeds this many limbs.
constexpr std::size_t kKeptLimbs = 1U << 20;

struct Arena {
    Block blocks[kMaxBlocks] = {};
    std::size_t count = 0;
    std::size_t block = 0;
    std::size_t used = 0;
};

Arena arena;

void freeBlocksFrom(std::size_t first) {
    for (std::size_t i = first; i < arena.count; ++i)
        std::free(arena.blocks[i].data);
    if (arena.count > first) arena.count = first;
}

// Moves to the block after the current one, which is made large enough; blocks behind it are idle.
Limb* takeFromNextBlock(std::size_t n) {
    const std::size_t next = arena.count == 0 ? 0 : arena.block + 1;
    if (next >= arena.count || arena.blocks[next].size < n) {
        freeBlocksFrom(next);
        const std::size_t doubled = next == 0 ? kFirstBlock : 2 * arena.blocks[next - 1].size;
        const std::size_t size = n > doubled ? n : doubled;
        Limb* data = next < kMaxBlocks ? static_cast<Limb*>(std::malloc(size * sizeof(Limb))) : nullptr;
        if (data == nullptr) M_apm_log_error_msg(true, "'M_get_stack_var', Out of memory");
        arena.blocks[next] = {data, size};
        arena.count = next + 1;
    }
    arena.block = next;
    arena.used = n;
    return arena.blocks[next].data;
}

struct ValuePool {
    M_APM* values = nullptr;
    int slots = 0;
    int made = 0;
    int used = 0;
};

constexpr int kFirstSlots = 18;
constexpr int kSlotGrowth = 12;
constexpr int kMadeAtATime = 4;

ValuePool pool;

} // namespace

Scratch::Scratch()
    : block_(arena.block)
    , used_(arena.used) {}

Scratch::~Scratch() {
    arena.block = block_;
    arena.used = used_;
    if (block_ == 0 && used_ == 0 && arena.count > 1) {
        std::size_t kept = 1;
        while (kept < arena.count && arena.blocks[kept].size <= kKeptLimbs)
            ++kept;
        freeBlocksFrom(kept);
    }
}

Limb* Scratch::take(std::size_t n) {
    if (arena.count != 0 && n <= arena.blocks[arena.block].size - arena.used) {
        Limb* result = arena.blocks[arena.block].data + arena.used;
        arena.used += n;
        return result;
    }
    return takeFromNextBlock(n);
}

Limb* Scratch::takeZeroed(std::size_t n) {
    Limb* result = take(n);
    clear(result, n);
    return result;
}

ScratchValue::ScratchValue()
    : value_(M_get_stack_var()) {}

ScratchValue::~ScratchValue() {
    // One huge intermediate must not stay in the pool for good.
    if (value_->capacity > static_cast<std::int64_t>(kKeptLimbs)) M_shrink(value_);
    M_restore_stack(1);
}

void freeScratch() {
    freeBlocksFrom(0);
    arena = Arena{};
    for (int i = 0; i < pool.made; ++i)
        m_apm_free(pool.values[i]);
    std::free(pool.values);
    pool = ValuePool{};
}

} // namespace mapm

M_APM M_get_stack_var() {
    using mapm::pool;
    if (pool.used == pool.made) {
        if (pool.made + mapm::kMadeAtATime > pool.slots) {
            const int slots = pool.slots == 0 ? mapm::kFirstSlots : pool.slots + mapm::kSlotGrowth;
            void* grown = std::realloc(pool.values, static_cast<std::size_t>(slots) * sizeof(M_APM));
            if (grown == nullptr) M_apm_log_error_msg(true, "'M_get_stack_var', Out of memory");
            pool.values = static_cast<M_APM*>(grown);
            pool.slots = slots;
        }
        for (int i = 0; i < mapm::kMadeAtATime; ++i)
            pool.values[pool.made++] = M_new_value();
    }
    return pool.values[pool.used++];
}

void M_restore_stack(int count) {
    mapm::pool.used -= count;
}
