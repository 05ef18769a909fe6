#include "face/document/TBFDependencyGraph.h"

#include "document/DependencyGraph.h"

#include <algorithm>
#include <memory>
#include <span>

using namespace TBF;

namespace {

uint32_t writeEdges(std::span<const DependencyEdge> edges, uint32_t* outIndexes, uint32_t* outMasks,
                    uint32_t capacity) {
    const std::size_t count = std::min<std::size_t>(edges.size(), capacity);
    for (std::size_t i = 0; i < count; ++i) {
        outIndexes[i] = edges[i].lineIndex;
        if (outMasks) outMasks[i] = edges[i].typeMask;
    }
    return static_cast<uint32_t>(count);
}

std::vector<TBFDependencyGraphNodeRef> nodesOf(const DependencyGraphNode::Edges& edges) {
    std::vector<TBFDependencyGraphNodeRef> nodes;
    nodes.reserve(edges.size());
    for (const auto& [node, typeMask] : edges)
        nodes.push_back(node);
    return nodes;
}

} // namespace

TBFDependencyGraphRef TBFDependencyGraphCreate() {
    return DependencyGraph::create().leak();
}

void TBFDependencyGraphFree(TBFDependencyGraphRef graph) {
    TBFDependencyGraphRelease(graph);
}

TBFDependencyGraphRef TBFDependencyGraphRetain(TBFDependencyGraphRef graph) {
    return retain(graph).leak();
}

void TBFDependencyGraphRelease(TBFDependencyGraphRef graph) {
    if (graph) graph->release();
}

bool TBFDependencyGraphAddDependency(TBFDependencyGraphRef graph, uint32_t source, uint32_t destination,
                                     uint32_t typeMask) {
    return graph && graph->addDependency(source, destination, typeMask);
}

void TBFDependencyGraphRemoveAllDependenciesForLine(TBFDependencyGraphRef graph, uint32_t index) {
    if (graph) graph->removeAllDependenciesForLine(index);
}

void TBFDependencyGraphRemoveAllDependenciesForLinesOnAndAfterIndex(TBFDependencyGraphRef graph,
                                                                    uint32_t index) {
    if (graph) graph->removeAllDependenciesForLinesOnAndAfterIndex(index);
}

uint32_t TBFDependencyGraphGetNodeCount(TBFDependencyGraphRef graph) {
    return graph ? static_cast<uint32_t>(graph->nodeCount()) : 0;
}

uint32_t TBFDependencyGraphGetDirectDependents(TBFDependencyGraphRef graph, uint32_t index,
                                               uint32_t* outIndexes, uint32_t* outMasks, uint32_t capacity) {
    if (!graph || !outIndexes) return 0;
    return writeEdges(graph->directDependents(index), outIndexes, outMasks, capacity);
}

uint32_t TBFDependencyGraphGetIndexesWithDependenciesCrossingIndex(TBFDependencyGraphRef graph,
                                                                   uint32_t index, uint32_t* outIndexes,
                                                                   uint32_t* outMasks, uint32_t capacity) {
    if (!graph || !outIndexes) return 0;
    return writeEdges(graph->indexesWithDependenciesCrossingIndex(index), outIndexes, outMasks, capacity);
}

uint32_t TBFDependencyGraphGetCountOfDependenciesCrossingIndex(TBFDependencyGraphRef graph, uint32_t index) {
    return graph ? static_cast<uint32_t>(graph->countOfDependenciesCrossingIndex(index)) : 0;
}

std::vector<uint32_t> TBFDependencyGraphGetEvaluationOrderForNodeIndexes(TBFDependencyGraphRef graph,
                                                                         const std::set<uint32_t>& indexes,
                                                                         bool) {
    if (!graph) return {};
    return graph->evaluationOrder(std::vector<uint32_t>(indexes.begin(), indexes.end()));
}

uint32_t TBFDependencyGraphGetDependentEvaluationOrderForNodeIndexeBuf(TBFDependencyGraphRef graph,
                                                                       const uint32_t* indexes,
                                                                       uint32_t count, uint32_t* outIndexes,
                                                                       uint32_t capacity) {
    if (!graph || !indexes || !outIndexes) return 0;
    const std::vector<uint32_t> order = graph->evaluationOrder(std::span(indexes, count));
    const std::size_t written = std::min<std::size_t>(order.size(), capacity);
    std::copy_n(order.begin(), written, outIndexes);
    return static_cast<uint32_t>(written);
}

void TBFDependencyGraphPrint(TBFDependencyGraphRef graph) {
    if (graph) graph->print();
}

TBFDependencyGraphNodeRef TBFDependencyGraphNodeCreate(uint32_t index) {
    return make<DependencyGraphNode>(index).leak();
}

TBFDependencyGraphNodeRef TBFDependencyGraphNodeRetain(TBFDependencyGraphNodeRef node) {
    return retain(node).leak();
}

void TBFDependencyGraphNodeRelease(TBFDependencyGraphNodeRef node) {
    if (node) node->release();
}

bool TBFDependencyGraphNodeHasDependencyOnNode(TBFDependencyGraphNodeRef node,
                                               TBFDependencyGraphNodeRef other) {
    return node && other && node->hasDependencyOn(*other);
}

bool TBFDependencyGraphNodeAddDependency(TBFDependencyGraphNodeRef node, TBFDependencyGraphNodeRef dependency,
                                         uint32_t typeMask) {
    return node && dependency && node->addDependency(*dependency, typeMask);
}

void TBFDependencyGraphNodeRemoveAllDependencies(TBFDependencyGraphNodeRef node) {
    if (node) node->removeAllDependencies();
}

std::vector<TBFDependencyGraphNodeRef>
TBFDependencyGraphNodeGetDirectDependencies(TBFDependencyGraphNodeRef node) {
    return node ? nodesOf(node->dependencies()) : std::vector<TBFDependencyGraphNodeRef>();
}

std::vector<TBFDependencyGraphNodeRef>
TBFDependencyGraphNodeGetDirectDependents(TBFDependencyGraphNodeRef node) {
    return node ? nodesOf(node->dependents()) : std::vector<TBFDependencyGraphNodeRef>();
}

uint32_t TBFDependencyGraphNodeGetIndex(TBFDependencyGraphNodeRef node) {
    return node ? node->index() : 0;
}

uint32_t TBFDependencyGraphNodeGetDependentTypeMask(TBFDependencyGraphNodeRef node,
                                                    TBFDependencyGraphNodeRef dependent) {
    return node && dependent ? node->dependentTypeMask(*dependent) : 0;
}

uint32_t TBFDependencyGraphNodeGetDependencyTypeMask(TBFDependencyGraphNodeRef node,
                                                     TBFDependencyGraphNodeRef dependency) {
    return node && dependency ? node->dependencyTypeMask(*dependency) : 0;
}

TBFDependencyExtentsRef TBFDependencyExtentsCreate() {
    return std::make_unique<DependencyExtents>().release();
}

void TBFDependencyExtentsFree(TBFDependencyExtentsRef extents) {
    const std::unique_ptr<DependencyExtents> owned(extents);
}

void TBFDependencyExtentsAddDependency(TBFDependencyExtentsRef extents, uint32_t source,
                                       uint32_t destination) {
    if (extents) extents->addDependency(source, destination);
}

void TBFDependencyExtentsRemoveAllDependenciesForLine(TBFDependencyExtentsRef extents, uint32_t source) {
    if (extents) extents->removeAllDependenciesForLine(source);
}

uint32_t TBFDependencyExtentsGetCountOfDependenciesCrossingIndex(TBFDependencyExtentsRef extents,
                                                                 uint32_t index) {
    return extents ? static_cast<uint32_t>(extents->countOfDependenciesCrossingIndex(index)) : 0;
}

std::vector<Dependency> TBFDependencyExtentsGetDependenciesCrossingIndex(TBFDependencyExtentsRef extents,
                                                                         uint32_t index) {
    return extents ? extents->dependenciesCrossingIndex(index) : std::vector<Dependency>();
}

TBFDependencyRef TBFDependencyCreate(uint32_t source, uint32_t destination) {
    return std::make_unique<Dependency>(Dependency{source, destination}).release();
}

void TBFDependencyFree(TBFDependencyRef dependency) {
    const std::unique_ptr<Dependency> owned(dependency);
}

uint32_t TBFDependencyGetSourceIndex(const Dependency* dependency) {
    return dependency ? dependency->sourceIndex : 0;
}

uint32_t TBFDependencyGetDestinationIndex(const Dependency* dependency) {
    return dependency ? dependency->destinationIndex : 0;
}
