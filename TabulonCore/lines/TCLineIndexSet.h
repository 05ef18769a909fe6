#pragma once

// A sorted set of line positions. Changes, evaluations and the delegate's messages speak of lines by such
// sets. A plain value; ranges are added and sets are combined in linear time.

#include <cstddef>
#include <initializer_list>
#include <optional>
#include <vector>

class TCLineIndexSet {
public:
    using value_type = std::size_t;
    using const_iterator = std::vector<std::size_t>::const_iterator;

    TCLineIndexSet() = default;
    TCLineIndexSet(std::initializer_list<std::size_t> indexes);

    // In any order, with or without repetitions.
    explicit TCLineIndexSet(std::vector<std::size_t> indexes);

    // The positions from `location` on, `length` of them, as far as a document may reach.
    static TCLineIndexSet withRange(std::size_t location, std::size_t length);

    void add(std::size_t index);
    void add(const TCLineIndexSet& other);
    void remove(std::size_t index);
    void remove(const TCLineIndexSet& other);

    bool contains(std::size_t index) const;
    bool isEmpty() const { return members.empty(); }
    std::size_t count() const { return members.size(); }
    std::optional<std::size_t> first() const;
    std::optional<std::size_t> last() const;

    const_iterator begin() const { return members.begin(); }
    const_iterator end() const { return members.end(); }

    bool operator==(const TCLineIndexSet&) const = default;

private:
    std::vector<std::size_t> members;
};
