#include "expressions/TCExpressionMappings.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace {

constexpr int64_t beginning(const TCExpressionMappings::Mapping& mapping) {
    return mapping.tbfRange.location;
}

// Old mappings and new replacements that lie over each other, as one range of the text before the change.
struct Cluster {
    int64_t from;
    int64_t to;

    // Two ranges that only meet stay apart, but no two mappings may begin at one place.
    bool joins(TCRange range) const { return range.location < to || range.location == from; }
    void add(TCRange range) { to = std::max(to, range.end()); }
};

} // namespace

void TCExpressionMappings::addRangeMapping(TCRange tcRange, TCRange tbfRange) {
    const auto place = std::ranges::lower_bound(entries, tbfRange.location, {}, beginning);
    if (place != entries.end() && beginning(*place) == tbfRange.location) {
        *place = {tbfRange, tcRange};
    } else {
        entries.insert(place, {tbfRange, tcRange});
    }
}

// One walk over both lists, in the places of the text before the change, which carries two differences along:
// from there to the typed text and from there to the text after the change.
void TCExpressionMappings::addReplacements(std::span<const Replacement> replacements) {
    const std::vector<Mapping> old = std::exchange(entries, {});
    entries.reserve(old.size() + replacements.size());
    int64_t toTyped = 0;
    int64_t toChanged = 0;
    std::size_t nextOld = 0;
    std::size_t nextNew = 0;
    while (nextOld < old.size() || nextNew < replacements.size()) {
        const int64_t oldStart = nextOld < old.size() ? beginning(old[nextOld]) : TCNotFound;
        const int64_t newStart =
            nextNew < replacements.size() ? replacements[nextNew].range.location : TCNotFound;
        Cluster cluster{std::min(oldStart, newStart), std::min(oldStart, newStart)};
        const int64_t typedFrom = cluster.from + toTyped;
        const int64_t changedFrom = cluster.from + toChanged;
        for (bool grown = true; grown;) {
            grown = false;
            for (; nextOld < old.size() && cluster.joins(old[nextOld].tbfRange); ++nextOld, grown = true) {
                cluster.add(old[nextOld].tbfRange);
                toTyped += old[nextOld].tcRange.length - old[nextOld].tbfRange.length;
            }
            for (; nextNew < replacements.size() && cluster.joins(replacements[nextNew].range);
                 ++nextNew, grown = true) {
                cluster.add(replacements[nextNew].range);
                toChanged += replacements[nextNew].length - replacements[nextNew].range.length;
            }
        }
        const TCRange changed{changedFrom, cluster.to + toChanged - changedFrom};
        const TCRange typed{typedFrom, cluster.to + toTyped - typedFrom};
        if (!entries.empty() && beginning(entries.back()) == changedFrom) {
            // What became nothing goes with what follows it at once.
            Mapping& previous = entries.back();
            previous = {changed, {previous.tcRange.location, typed.end() - previous.tcRange.location}};
        } else {
            entries.push_back({changed, typed});
        }
    }
}

const TCExpressionMappings::Mapping* TCExpressionMappings::findRangeMapping(int64_t tbfLocation) const {
    const auto place = std::ranges::lower_bound(entries, tbfLocation, {}, beginning);
    return place != entries.end() && beginning(*place) == tbfLocation ? &*place : nullptr;
}

std::span<const TCExpressionMappings::Mapping> TCExpressionMappings::mappingsAround(TCRange tbfRange) const {
    auto first = std::ranges::lower_bound(entries, tbfRange.location, {}, beginning);
    const auto last = std::ranges::lower_bound(first, entries.end(), tbfRange.end(), {}, beginning);
    if (first != entries.begin()) --first;
    return {first, last};
}

int64_t TCExpressionMappings::tcEndOfTBFEnd(int64_t tbfEnd) const {
    auto behind = std::ranges::lower_bound(entries, tbfEnd, {}, beginning);
    // What was typed for nothing belongs to what ends there.
    if (behind != entries.end() && behind->tbfRange == TCRange{tbfEnd, 0}) ++behind;
    if (behind == entries.begin()) return tbfEnd;
    const Mapping& mapping = *std::prev(behind);
    return mapping.tcRange.end() + std::max<int64_t>(tbfEnd - mapping.tbfRange.end(), 0);
}
