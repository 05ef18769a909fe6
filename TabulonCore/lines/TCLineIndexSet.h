#pragma once

// A sorted set of line positions. Changes, evaluations and the delegate's messages speak of lines by such
// sets. A plain value; ranges are added and sets are combined in linear time.

#include "lines/TCSortedIndexes.h"

#include <cstddef>
#include <initializer_list>
#include <vector>

class TCLineIndexSet : public TCSortedIndexes<std::size_t> {
public:
    using TCSortedIndexes::TCSortedIndexes;
    TCLineIndexSet() = default;
    TCLineIndexSet(std::initializer_list<std::size_t> indexes)
        : TCSortedIndexes(std::vector<std::size_t>(indexes)) {}

    // The positions from `location` on, `length` of them, as far as a document may reach.
    static TCLineIndexSet withRange(std::size_t location, std::size_t length);
};
