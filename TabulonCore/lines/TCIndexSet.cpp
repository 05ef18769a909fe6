#include "lines/TCIndexSet.h"

#include <algorithm>

TCIndexSet::TCIndexSet(std::initializer_list<int64_t> indexes) {
    addIndexes(std::span<const int64_t>(indexes.begin(), indexes.size()));
}

TCIndexSet TCIndexSet::indexSetWithIndexes(std::span<const int64_t> indexes) {
    TCIndexSet result;
    result.addIndexes(indexes);
    return result;
}

void TCIndexSet::addIndex(int64_t index) {
    const TCIndex member(index);
    const auto place = std::lower_bound(members.begin(), members.end(), member);
    if (place == members.end() || *place != member) members.insert(place, member);
}

void TCIndexSet::addIndexes(std::span<const int64_t> indexes) {
    members.reserve(members.size() + indexes.size());
    for (const int64_t index : indexes)
        members.emplace_back(index);
    restoreOrder();
}

void TCIndexSet::addIndexesFromIndexSet(const TCIndexSet& other) {
    if (&other == this) return;
    members.insert(members.end(), other.begin(), other.end());
    restoreOrder();
}

void TCIndexSet::addOffset(int64_t offset) {
    if (offset == 0) return;
    for (TCIndex& member : members)
        member.addNumber(offset);
    restoreOrder(); // a member may have wrapped around
}

bool TCIndexSet::containsIndex(int64_t index) const {
    return std::binary_search(members.begin(), members.end(), TCIndex(index));
}

void TCIndexSet::restoreOrder() {
    if (!std::is_sorted(members.begin(), members.end())) std::sort(members.begin(), members.end());
    members.erase(std::unique(members.begin(), members.end()), members.end());
}
