#include "lines/TCLineIndexSet.h"

#include "lines/TCLineList.h"

#include <algorithm>
#include <iterator>
#include <numeric>
#include <utility>

TCLineIndexSet::TCLineIndexSet(std::initializer_list<std::size_t> indexes)
    : TCLineIndexSet(std::vector<std::size_t>(indexes)) {}

TCLineIndexSet::TCLineIndexSet(std::vector<std::size_t> indexes)
    : members(std::move(indexes)) {
    std::sort(members.begin(), members.end());
    members.erase(std::unique(members.begin(), members.end()), members.end());
}

TCLineIndexSet TCLineIndexSet::withRange(std::size_t location, std::size_t length) {
    TCLineIndexSet result;
    constexpr std::size_t most = TCLineList::mostLines;
    result.members.resize(std::min(length, most - std::min(location, most)));
    std::iota(result.members.begin(), result.members.end(), location);
    return result;
}

void TCLineIndexSet::add(std::size_t index) {
    const auto place = std::lower_bound(members.begin(), members.end(), index);
    if (place == members.end() || *place != index) members.insert(place, index);
}

void TCLineIndexSet::add(const TCLineIndexSet& other) {
    if (other.isEmpty()) return;
    std::vector<std::size_t> both;
    both.reserve(members.size() + other.members.size());
    std::set_union(members.begin(), members.end(), other.begin(), other.end(), std::back_inserter(both));
    members = std::move(both);
}

void TCLineIndexSet::remove(std::size_t index) {
    const auto place = std::lower_bound(members.begin(), members.end(), index);
    if (place != members.end() && *place == index) members.erase(place);
}

void TCLineIndexSet::remove(const TCLineIndexSet& other) {
    std::vector<std::size_t> rest;
    std::set_difference(members.begin(), members.end(), other.begin(), other.end(), std::back_inserter(rest));
    members = std::move(rest);
}

bool TCLineIndexSet::contains(std::size_t index) const {
    return std::binary_search(members.begin(), members.end(), index);
}

std::optional<std::size_t> TCLineIndexSet::first() const {
    return members.empty() ? std::nullopt : std::optional(members.front());
}

std::optional<std::size_t> TCLineIndexSet::last() const {
    return members.empty() ? std::nullopt : std::optional(members.back());
}
