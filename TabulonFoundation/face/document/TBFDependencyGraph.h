#pragma once

// The plain functions over dependency graphs, their nodes and extents. Null handles and unknown indexes give
// 0, false or nothing. Which of them lock, the graph's class says (document/DependencyGraph.h). A `Create`
// gives a reference that the caller releases or frees; nodes are borrowed from whoever holds them.

#include "document/TBFDependencyType.h"

#include <cstdint>
#include <set>
#include <vector>

namespace TBF {
class DependencyExtents;
class DependencyGraph;
class DependencyGraphNode;
struct Dependency;
} // namespace TBF
using TBFDependencyGraphRef = TBF::DependencyGraph*;
using TBFDependencyGraphNodeRef = TBF::DependencyGraphNode*;
using TBFDependencyExtentsRef = TBF::DependencyExtents*;
using TBFDependencyRef = TBF::Dependency*;

// The graph.
TBFDependencyGraphRef TBFDependencyGraphCreate();
void TBFDependencyGraphFree(TBFDependencyGraphRef graph);
TBFDependencyGraphRef TBFDependencyGraphRetain(TBFDependencyGraphRef graph);
void TBFDependencyGraphRelease(TBFDependencyGraphRef graph);

// True if a new edge came in.
bool TBFDependencyGraphAddDependency(TBFDependencyGraphRef graph, uint32_t source, uint32_t destination,
                                     uint32_t typeMask);
void TBFDependencyGraphRemoveAllDependenciesForLine(TBFDependencyGraphRef graph, uint32_t index);
void TBFDependencyGraphRemoveAllDependenciesForLinesOnAndAfterIndex(TBFDependencyGraphRef graph,
                                                                    uint32_t index);
uint32_t TBFDependencyGraphGetNodeCount(TBFDependencyGraphRef graph);

// Write at most `capacity` entries by ascending index and give their number. `outMasks` may be null.
uint32_t TBFDependencyGraphGetDirectDependents(TBFDependencyGraphRef graph, uint32_t index,
                                               uint32_t* outIndexes, uint32_t* outMasks, uint32_t capacity);
uint32_t TBFDependencyGraphGetIndexesWithDependenciesCrossingIndex(TBFDependencyGraphRef graph,
                                                                   uint32_t index, uint32_t* outIndexes,
                                                                   uint32_t* outMasks, uint32_t capacity);
uint32_t TBFDependencyGraphGetCountOfDependenciesCrossingIndex(TBFDependencyGraphRef graph, uint32_t index);

// The indexes and all that depend on them, in an order of evaluation. `flag` has no effect.
std::vector<uint32_t> TBFDependencyGraphGetEvaluationOrderForNodeIndexes(TBFDependencyGraphRef graph,
                                                                         const std::set<uint32_t>& indexes,
                                                                         bool flag);
uint32_t TBFDependencyGraphGetDependentEvaluationOrderForNodeIndexeBuf(TBFDependencyGraphRef graph,
                                                                       const uint32_t* indexes,
                                                                       uint32_t count, uint32_t* outIndexes,
                                                                       uint32_t capacity);
void TBFDependencyGraphPrint(TBFDependencyGraphRef graph);

// A node.
TBFDependencyGraphNodeRef TBFDependencyGraphNodeCreate(uint32_t index);
TBFDependencyGraphNodeRef TBFDependencyGraphNodeRetain(TBFDependencyGraphNodeRef node);
void TBFDependencyGraphNodeRelease(TBFDependencyGraphNodeRef node);
bool TBFDependencyGraphNodeHasDependencyOnNode(TBFDependencyGraphNodeRef node,
                                               TBFDependencyGraphNodeRef other);
bool TBFDependencyGraphNodeAddDependency(TBFDependencyGraphNodeRef node, TBFDependencyGraphNodeRef dependency,
                                         uint32_t typeMask);
void TBFDependencyGraphNodeRemoveAllDependencies(TBFDependencyGraphNodeRef node);
std::vector<TBFDependencyGraphNodeRef>
TBFDependencyGraphNodeGetDirectDependencies(TBFDependencyGraphNodeRef node);
std::vector<TBFDependencyGraphNodeRef>
TBFDependencyGraphNodeGetDirectDependents(TBFDependencyGraphNodeRef node);
uint32_t TBFDependencyGraphNodeGetIndex(TBFDependencyGraphNodeRef node);
uint32_t TBFDependencyGraphNodeGetDependentTypeMask(TBFDependencyGraphNodeRef node,
                                                    TBFDependencyGraphNodeRef dependent);
uint32_t TBFDependencyGraphNodeGetDependencyTypeMask(TBFDependencyGraphNodeRef node,
                                                     TBFDependencyGraphNodeRef dependency);

// The extents.
TBFDependencyExtentsRef TBFDependencyExtentsCreate();
void TBFDependencyExtentsFree(TBFDependencyExtentsRef extents);
void TBFDependencyExtentsAddDependency(TBFDependencyExtentsRef extents, uint32_t source,
                                       uint32_t destination);
void TBFDependencyExtentsRemoveAllDependenciesForLine(TBFDependencyExtentsRef extents, uint32_t source);
uint32_t TBFDependencyExtentsGetCountOfDependenciesCrossingIndex(TBFDependencyExtentsRef extents,
                                                                 uint32_t index);
std::vector<TBF::Dependency> TBFDependencyExtentsGetDependenciesCrossingIndex(TBFDependencyExtentsRef extents,
                                                                              uint32_t index);

// One edge.
TBFDependencyRef TBFDependencyCreate(uint32_t source, uint32_t destination);
void TBFDependencyFree(TBFDependencyRef dependency);
uint32_t TBFDependencyGetSourceIndex(const TBF::Dependency* dependency);
uint32_t TBFDependencyGetDestinationIndex(const TBF::Dependency* dependency);
