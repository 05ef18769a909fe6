#pragma once

// Which line uses which, and so what has to be evaluated after a change, and in which order. Nodes are line
// indexes; an edge says that its source uses its destination. The graph speaks of positions and knows
// nothing of lines: when positions shift, the document layer rebuilds the edges. It has one writer, the
// document's thread; additions, removals and evaluation orders lock, the other queries do not.
//
// Memory is proportional to the edges; an index without any takes a bit. No operation recurses, and cycles
// end every walk.

#include "document/DependencyExtents.h"
#include "document/IndexBits.h"
#include "document/TBFDependencyType.h"
#include "runtime/Object.h"
#include "runtime/Ref.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <mutex>
#include <span>
#include <utility>
#include <vector>

namespace TBF {

// The edges of one line index, in both directions. A node owns none of the others: at its end it takes
// its edges with it.
class DependencyGraphNode final : public Object<DependencyGraphNode> {
public:
    // Neighbours with the type of the edge, by ascending index. Nodes of equal index, which only foreign
    // graphs have, are told apart by address.
    struct ByIndex {
        bool operator()(const DependencyGraphNode* a, const DependencyGraphNode* b) const {
            return std::pair(a->lineIndex, a) < std::pair(b->lineIndex, b);
        }
    };
    using Edges = std::map<DependencyGraphNode*, uint32_t, ByIndex,
                           PoolAllocator<std::pair<DependencyGraphNode* const, uint32_t>>>;

    uint32_t index() const { return lineIndex; }
    const Edges& dependencies() const { return uses; }
    const Edges& dependents() const { return users; }

    bool hasDependencyOn(const DependencyGraphNode& node) const;

    // False, and nothing changes, if this is the node itself or one that it depends on already.
    bool addDependency(DependencyGraphNode& node, uint32_t typeMask);

    // Clears what this node uses. Those that use it still do.
    void removeAllDependencies();

    // The type of an edge; 0 if there is none.
    uint32_t dependencyTypeMask(const DependencyGraphNode& node) const;
    uint32_t dependentTypeMask(const DependencyGraphNode& node) const;

private:
    friend class Object<DependencyGraphNode>;
    friend class DependencyGraph;
    explicit DependencyGraphNode(uint32_t index)
        : lineIndex(index) {}
    ~DependencyGraphNode() override;

    const uint32_t lineIndex;
    Edges uses;
    Edges users;

    // Scratch of the graph's walks, under its lock: the last walk that reached, and that emitted, this node.
    uint64_t reachedIn = 0;
    uint64_t visitedIn = 0;
};

struct DependencyEdge {
    uint32_t lineIndex = 0; // the other end
    uint32_t typeMask = 0;

    bool operator==(const DependencyEdge&) const = default;
};

class DependencyGraph final : public Object<DependencyGraph> {
public:
    static Ref<DependencyGraph> create() { return make<DependencyGraph>(); }

    // True if a new edge came in. The type of an edge is that of its first addition. A line never depends
    // on itself.
    bool addDependency(uint32_t source, uint32_t destination, uint32_t typeMask);

    void removeAllDependenciesForLine(uint32_t index);
    void removeAllDependenciesForLinesOnAndAfterIndex(uint32_t index);

    // Every index that was ever named counts, with or without edges.
    std::size_t nodeCount() const { return named.count(); }

    // By ascending index. An index that was asked for counts as named, as one of a removal does.
    std::vector<DependencyEdge> directDependents(uint32_t index);

    // What the index uses, ascending. Changes nothing.
    std::vector<DependencyEdge> directDependencies(uint32_t index) const;

    // The indexes in [first, end) that have a dependent over an edge which meets the mask, each dependent
    // once, ascending. Costs what the range holds.
    std::vector<uint32_t> directDependentsInRange(uint32_t first, uint32_t end, uint32_t mask) const;

    // An edge crosses the indexes strictly between its ends.
    std::size_t countOfDependenciesCrossingIndex(uint32_t index) const;

    // The lines whose edges cross the index, ascending, each with the type of its first such edge.
    std::vector<DependencyEdge> indexesWithDependenciesCrossingIndex(uint32_t index) const;

    // The lines with an edge that crosses the index and meets the mask, ascending.
    std::vector<uint32_t> indexesWithDependenciesCrossingIndex(uint32_t index, uint32_t mask) const;

    // The given indexes and all that depend on them, each once, after everything among them that it uses
    // itself; the walk starts at each by ascending index. On a cycle the index at which it came in is last.
    // The given indexes count as named.
    std::vector<uint32_t> evaluationOrder(std::span<const uint32_t> indexes);

    // One line per node on standard output, for debugging.
    void print() const;

private:
    friend class Object<DependencyGraph>;
    DependencyGraph() = default;
    ~DependencyGraph() override = default;

    // Of a walk; the node is null for an index without edges so far.
    struct Reached {
        uint32_t index;
        DependencyGraphNode* node;
    };

    DependencyGraphNode& node(uint32_t index);
    const DependencyGraphNode* existingNode(uint32_t index) const;
    uint32_t typeMaskOf(const Dependency& dependency) const;
    std::vector<Reached> closure(std::span<const uint32_t> indexes);

    using Nodes = std::map<uint32_t, Ref<DependencyGraphNode>, std::less<>,
                           PoolAllocator<std::pair<const uint32_t, Ref<DependencyGraphNode>>>>;

    Nodes nodes;      // of the indexes that have, or had, edges
    IndexBits named;  // all indexes that ever were
    std::mutex mutex; // not recursive
    DependencyExtents extents;
    uint64_t walkNumber = 0;
};

} // namespace TBF
