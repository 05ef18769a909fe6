#pragma once

// The numbers of line references: `TCIndex`, a signed number that may be an offset from a line, a line
// index or neither any more, and `TCIndexSet`, a set of them that can be shifted as a whole. A line keeps
// such a set as the cache of what it refers to. Plain values, used on the document's thread.

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <span>
#include <vector>

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

// Members in ascending order, each once.
class TCIndexSet {
public:
    using value_type = TCIndex;
    using const_iterator = std::vector<TCIndex>::const_iterator;

    TCIndexSet() = default;
    TCIndexSet(std::initializer_list<int64_t> indexes);

    static TCIndexSet indexSetWithIndexes(std::span<const int64_t> indexes);

    void addIndex(int64_t index);
    void addIndexes(std::span<const int64_t> indexes);
    void addIndexesFromIndexSet(const TCIndexSet& other);

    // Adds `offset` to every member.
    void addOffset(int64_t offset);

    bool containsIndex(int64_t index) const;
    std::size_t count() const { return members.size(); }

    const_iterator begin() const { return members.begin(); }
    const_iterator end() const { return members.end(); }

    bool operator==(const TCIndexSet&) const = default;

private:
    void restoreOrder();

    std::vector<TCIndex> members;
};
