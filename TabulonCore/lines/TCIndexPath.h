#pragma once

// The indexes of the lines on the way through an evaluation, as a stack. The evaluator pushes the line
// that it enters. One path belongs to one evaluation, on its thread.

#include "lines/TCIndexSet.h"
#include "runtime/ObjectPool.h"

#include <cstddef>
#include <optional>

class TCIndexPath {
public:
    void pushIndex(TCIndex index) { indexes.push_back(index); }
    void pushIndex(int64_t index) { indexes.emplace_back(index); }

    // Takes off the newest index and gives it; none if the path is empty.
    std::optional<TCIndex> popIndex();

    std::optional<TCIndex> topIndex() const;
    bool containsIndex(int64_t index) const;
    std::size_t count() const { return indexes.size(); }

private:
    TBF::PooledVector<TCIndex> indexes;
};
