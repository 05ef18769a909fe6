#include "lines/TCLineIndexSet.h"

#include "lines/TCLineList.h"

#include <algorithm>
#include <numeric>

TCLineIndexSet TCLineIndexSet::withRange(std::size_t location, std::size_t length) {
    TCLineIndexSet result;
    constexpr std::size_t most = TCLineList::mostLines;
    result.members_.resize(std::min(length, most - std::min(location, most)));
    std::iota(result.members_.begin(), result.members_.end(), location);
    return result;
}
