#include "expressions/TCExpressionMappings.h"

#include <algorithm>

namespace {

constexpr int64_t beginning(const TCExpressionMappings::Mapping& mapping) {
    return mapping.tbfRange.location;
}

} // namespace

void TCExpressionMappings::addRangeMapping(TCRange tcRange, TCRange tbfRange) {
    const auto place = std::ranges::lower_bound(entries, tbfRange.location, {}, beginning);
    if (place != entries.end() && beginning(*place) == tbfRange.location) {
        *place = {tbfRange, tcRange};
    } else {
        entries.insert(place, {tbfRange, tcRange});
    }
}

void TCExpressionMappings::offsetTBFRanges(int64_t amount, int64_t location) {
    for (auto mapping = std::ranges::lower_bound(entries, location, {}, beginning); mapping != entries.end();
         ++mapping)
        mapping->tbfRange.location += amount;
}

const TCExpressionMappings::Mapping* TCExpressionMappings::findRangeMapping(int64_t tbfLocation) const {
    const auto place = std::ranges::lower_bound(entries, tbfLocation, {}, beginning);
    return place != entries.end() && beginning(*place) == tbfLocation ? &*place : nullptr;
}
