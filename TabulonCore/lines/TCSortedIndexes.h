#pragma once

// Indexes in ascending order, each once: what sets of line positions and of line references have in common. A
// plain value; sets are combined in linear time.

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <optional>
#include <utility>
#include <vector>

template <typename Index>
class TCSortedIndexes {
public:
    using value_type = Index;
    using const_iterator = typename std::vector<Index>::const_iterator;

    TCSortedIndexes() = default;

    // In any order, with or without repetitions.
    explicit TCSortedIndexes(std::vector<Index> indexes)
        : members_(std::move(indexes)) {
        restoreOrder();
    }

    void add(Index index) {
        const auto place = std::lower_bound(members_.begin(), members_.end(), index);
        if (place == members_.end() || *place != index) members_.insert(place, index);
    }
    void add(const TCSortedIndexes& other) {
        if (other.isEmpty()) return;
        std::vector<Index> both;
        both.reserve(members_.size() + other.members_.size());
        std::set_union(members_.begin(), members_.end(), other.begin(), other.end(),
                       std::back_inserter(both));
        members_ = std::move(both);
    }
    void remove(Index index) {
        const auto place = std::lower_bound(members_.begin(), members_.end(), index);
        if (place != members_.end() && *place == index) members_.erase(place);
    }
    void remove(const TCSortedIndexes& other) {
        std::vector<Index> rest;
        std::set_difference(members_.begin(), members_.end(), other.begin(), other.end(),
                            std::back_inserter(rest));
        members_ = std::move(rest);
    }

    bool contains(Index index) const { return std::binary_search(members_.begin(), members_.end(), index); }
    bool isEmpty() const { return members_.empty(); }
    std::size_t count() const { return members_.size(); }
    std::optional<Index> first() const {
        return members_.empty() ? std::nullopt : std::optional(members_.front());
    }
    std::optional<Index> last() const {
        return members_.empty() ? std::nullopt : std::optional(members_.back());
    }

    const_iterator begin() const { return members_.begin(); }
    const_iterator end() const { return members_.end(); }

    bool operator==(const TCSortedIndexes&) const = default;

protected:
    // After a change of the members in place.
    void restoreOrder() {
        if (!std::is_sorted(members_.begin(), members_.end())) std::sort(members_.begin(), members_.end());
        members_.erase(std::unique(members_.begin(), members_.end()), members_.end());
    }

    std::vector<Index> members_;
};
