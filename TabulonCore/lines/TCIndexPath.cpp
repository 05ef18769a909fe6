#include "lines/TCIndexPath.h"

#include <algorithm>

std::optional<TCIndex> TCIndexPath::popIndex() {
    const std::optional<TCIndex> top = topIndex();
    if (top) indexes.pop_back();
    return top;
}

std::optional<TCIndex> TCIndexPath::topIndex() const {
    return indexes.empty() ? std::nullopt : std::optional(indexes.back());
}

bool TCIndexPath::containsIndex(int64_t index) const {
    return std::find(indexes.begin(), indexes.end(), TCIndex(index)) != indexes.end();
}
