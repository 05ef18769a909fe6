#pragma once

// The numbers of line references: `TCIndex`, a signed number that may be an offset from a line, a line
// index or neither any more, and `TCIndexSet`, a set of them that can be shifted as a whole. A line keeps
// such a set as the cache of what it refers to. Plain values, used on the document's thread.

#include "lines/TCSortedIndexes.h"

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <span>

class TCIndex {
public:
    constexpr TCIndex() = default;
    constexpr explicit TCIndex(int64_t value)
        : number(value) {}

    constexpr int64_t value() const { return number; }

    // Wraps around at the ends of the 64 bits.
    constexpr void addNumber(int64_t summand) {
        number = static_cast<int64_t>(static_cast<uint64_t>(number) + static_cast<uint64_t>(summand));
    }

    // The same for every index: an index may change while a hashed container holds it.
    constexpr std::size_t hash() const { return 10; }

    constexpr auto operator<=>(const TCIndex&) const = default;

private:
    int64_t number = 0;
};

class TCIndexSet : public TCSortedIndexes<TCIndex> {
public:
    TCIndexSet() = default;
    TCIndexSet(std::initializer_list<int64_t> indexes);

    static TCIndexSet indexSetWithIndexes(std::span<const int64_t> indexes);

    void addIndex(int64_t index) { add(TCIndex(index)); }
    void addIndexes(std::span<const int64_t> indexes);
    void addIndexesFromIndexSet(const TCIndexSet& other) { add(other); }
    bool containsIndex(int64_t index) const { return contains(TCIndex(index)); }

    // Adds `offset` to every member.
    void addOffset(int64_t offset);
};
