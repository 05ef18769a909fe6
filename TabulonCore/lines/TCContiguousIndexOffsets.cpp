#include "lines/TCContiguousIndexOffsets.h"

#include <iterator>
#include <utility>

int64_t TCContiguousIndexOffsets::offsetForLocation(int64_t location) const {
    const auto behind = offsets.upper_bound(location);
    return behind == offsets.begin() ? 0 : std::prev(behind)->second;
}

void TCContiguousIndexOffsets::offsetBy(int64_t amount, int64_t location) {
    const auto behind = offsets.upper_bound(location);
    if (behind == offsets.begin()) {
        offsets.emplace(0, 0);
        offsets.insert_or_assign(location, amount);
        return;
    }
    std::map<int64_t, int64_t> moved(offsets.begin(), behind);
    moved.insert_or_assign(location, std::prev(behind)->second + amount);
    for (auto place = behind; place != offsets.end(); ++place)
        moved.insert_or_assign(place->first - amount, place->second + amount);
    offsets = std::move(moved);
}
