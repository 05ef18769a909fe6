#include "lines/TCIndexSet.h"

TCIndexSet::TCIndexSet(std::initializer_list<int64_t> indexes) {
    addIndexes(std::span<const int64_t>(indexes.begin(), indexes.size()));
}

TCIndexSet TCIndexSet::indexSetWithIndexes(std::span<const int64_t> indexes) {
    TCIndexSet result;
    result.addIndexes(indexes);
    return result;
}

void TCIndexSet::addIndexes(std::span<const int64_t> indexes) {
    members_.reserve(members_.size() + indexes.size());
    for (const int64_t index : indexes)
        members_.emplace_back(index);
    restoreOrder();
}

void TCIndexSet::addOffset(int64_t offset) {
    if (offset == 0) return;
    for (TCIndex& member : members_)
        member.addNumber(offset);
    restoreOrder(); // a member may have wrapped around
}
