#pragma once

// Which edges of a dependency graph span which line indexes, so that an insertion or a removal finds the
// references that it disturbs. Used by the graph; one thread at a time.
//
// Storing a slot per spanned index would take the square of the document when all of it uses its first
// line. So the extents keep one record per edge, and at the first query after a change sort them into a
// static interval tree, which answers in the logarithm of the edges and the length of the answer.

#include <cstddef>
#include <cstdint>
#include <span>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace TBF {

// The line `sourceIndex` uses the line `destinationIndex`.
struct Dependency {
    uint32_t sourceIndex = 0;
    uint32_t destinationIndex = 0;

    uint32_t low() const { return sourceIndex < destinationIndex ? sourceIndex : destinationIndex; }
    uint32_t high() const { return sourceIndex < destinationIndex ? destinationIndex : sourceIndex; }

    // Both ends are excluded: an edge between adjacent lines crosses nothing.
    bool crosses(uint32_t index) const { return low() < index && index < high(); }

    bool operator==(const Dependency&) const = default;
};

class DependencyExtents {
public:
    // Nothing happens if both are equal or the pair is there already.
    void addDependency(uint32_t source, uint32_t destination);
    void removeAllDependenciesForLine(uint32_t source);

    std::size_t countOfDependenciesCrossingIndex(uint32_t index) const;

    // Sorted by source, those of one source in the order of their addition.
    std::vector<Dependency> dependenciesCrossingIndex(uint32_t index) const;

private:
    struct Record {
        Dependency dependency;
        uint32_t ordinal = 0; // among the records of its source
    };

    void buildSearchTree() const;
    static uint64_t key(uint32_t source, uint32_t destination) {
        return static_cast<uint64_t>(source) << 32 | destination;
    }

    std::unordered_map<uint32_t, std::vector<uint32_t>> destinationsBySource; // in order of addition
    std::unordered_set<uint64_t> pairs;

    // The search tree, valid while `isCurrent`. `records` are sorted by their low ends, so those that start
    // below an index are a prefix; `highest` is a binary tree of maxima over them, root at 1, leaves at the
    // end.
    mutable bool isCurrent = false;
    mutable std::vector<Record> records;
    mutable std::vector<uint32_t> highest;
    mutable std::vector<uint32_t> sortedHighs;
};

} // namespace TBF
