#include "document/DependencyExtents.h"

#include <algorithm>
#include <bit>
#include <tuple>

namespace TBF {

void DependencyExtents::addDependency(uint32_t source, uint32_t destination) {
    if (source == destination || !pairs.insert(key(source, destination)).second) return;
    destinationsBySource[source].push_back(destination);
    isCurrent = false;
}

void DependencyExtents::removeAllDependenciesForLine(uint32_t source) {
    const auto entry = destinationsBySource.find(source);
    if (entry == destinationsBySource.end()) return;
    for (const uint32_t destination : entry->second)
        pairs.erase(key(source, destination));
    destinationsBySource.erase(entry);
    isCurrent = false;
}

std::size_t DependencyExtents::countOfDependenciesCrossingIndex(uint32_t index) const {
    buildSearchTree();
    const auto startBelow = std::partition_point(records.begin(), records.end(), [&](const Record& record) {
        return record.dependency.low() < index;
    });
    // Whatever ends at or below the index also starts below it.
    const auto endBy = std::upper_bound(sortedHighs.begin(), sortedHighs.end(), index);
    return static_cast<std::size_t>((startBelow - records.begin()) - (endBy - sortedHighs.begin()));
}

std::vector<Dependency> DependencyExtents::dependenciesCrossingIndex(uint32_t index) const {
    buildSearchTree();
    const auto prefix = static_cast<std::size_t>(
        std::partition_point(records.begin(), records.end(),
                             [&](const Record& record) { return record.dependency.low() < index; }) -
        records.begin());
    std::vector<Record> found;
    const std::size_t leaves = highest.size() / 2;
    std::vector<std::size_t> pending;
    if (prefix > 0) pending.push_back(1);
    while (!pending.empty()) {
        const std::size_t place = pending.back();
        pending.pop_back();
        if (highest[place] <= index) continue;
        if (place < leaves) {
            pending.push_back(2 * place + 1);
            pending.push_back(2 * place);
        } else if (place - leaves < prefix) {
            found.push_back(records[place - leaves]);
        } else {
            break; // leaves come in ascending order: all others start at or behind the index
        }
    }
    std::sort(found.begin(), found.end(), [](const Record& a, const Record& b) {
        return std::tuple(a.dependency.sourceIndex, a.ordinal) <
               std::tuple(b.dependency.sourceIndex, b.ordinal);
    });
    std::vector<Dependency> result;
    result.reserve(found.size());
    for (const Record& record : found)
        result.push_back(record.dependency);
    return result;
}

void DependencyExtents::buildSearchTree() const {
    if (isCurrent) return;
    isCurrent = true;
    records.clear();
    sortedHighs.clear();
    for (const auto& [source, destinations] : destinationsBySource) {
        uint32_t ordinal = 0;
        for (const uint32_t destination : destinations) {
            const Dependency dependency{source, destination};
            if (dependency.high() - dependency.low() > 1) records.push_back({dependency, ordinal});
            ++ordinal;
        }
    }
    std::sort(records.begin(), records.end(),
              [](const Record& a, const Record& b) { return a.dependency.low() < b.dependency.low(); });

    const std::size_t leaves = std::bit_ceil(std::max<std::size_t>(records.size(), 1));
    highest.assign(2 * leaves, 0);
    for (std::size_t i = 0; i < records.size(); ++i) {
        sortedHighs.push_back(records[i].dependency.high());
        highest[leaves + i] = records[i].dependency.high();
    }
    std::sort(sortedHighs.begin(), sortedHighs.end());
    for (std::size_t i = leaves - 1; i > 0; --i)
        highest[i] = std::max(highest[2 * i], highest[2 * i + 1]);
}

} // namespace TBF
