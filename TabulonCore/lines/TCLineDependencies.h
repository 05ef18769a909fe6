#pragma once

// Which line of a document uses which: the dependency graph over the lines, kept in step with their parsed
// texts, and the questions it answers. Part of a `TCLineCollection`, used on the document's thread.
//
// The graph always matches the parsed lines: after a change of a text, the edges of that line are entered
// anew; after a change of positions or of who declares a name, those of all lines that it may touch. So no
// edge has to be looked for through other lines.

#include "lines/TCLineEvaluationOrder.h"
#include "lines/TCLineIndexSet.h"
#include "runtime/Ref.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <unordered_set>
#include <vector>

class TCDeclaredNames;
class TCKeptLineForms;
class TCLine;
class TCLineList;
struct TCChangedLineIndexes;

namespace TBF {
class DependencyGraph;
}

class TCLineDependencies {
public:
    // All are the document's, which owns this one.
    TCLineDependencies(const TCLineList& lines, const TCDeclaredNames& names, TCKeptLineForms& keptForms);
    TCLineDependencies(const TCLineDependencies&) = delete;
    TCLineDependencies& operator=(const TCLineDependencies&) = delete;
    ~TCLineDependencies();

    // Who depends on whom. Masks are those of TBFDependencyType.
    TCLineIndexSet indexesOfLinesDependingOnLineAtIndex(std::size_t index) const;
    TCLineIndexSet indexesOfLinesDependingOnLinesAtIndexes(const TCLineIndexSet& indexes) const;
    TCLineIndexSet lineIndexesDirectlyDependingOnIndexesInRange(std::size_t location, std::size_t length,
                                                                uint32_t dependencyMask) const;
    TCLineIndexSet lineIndexesWithDependenciesMatchingTypeMask(uint32_t mask,
                                                               std::size_t crossingLineIndex) const;
    TCLineIndexSet
    lineIndexesWithDependenciesMatchingTypeMask(uint32_t mask,
                                                const TCLineIndexSet& crossingLineIndexes) const;
    std::vector<std::shared_ptr<TCLine>>
    linesWithDependenciesMatchingTypeMask(uint32_t mask, std::size_t crossingLineIndex) const;
    std::vector<std::shared_ptr<TCLine>> linesWithDependenciesCrossingLineIndex(std::size_t index) const;

    // The given lines and all that depend on them, each after what it reads. An index may be no line's.
    std::vector<TCLineEvaluationStep> evaluationOrder(const TCLineIndexSet& indexes) const;

    // The lines that used the changed ones before the edit, as the graph, which speaks of the positions of
    // then, still knows; at their positions of now. `direct` are those that were changed themselves.
    TCLineIndexSet formerDependents(const TCChangedLineIndexes& change, const TCLineIndexSet& direct) const;

    // The lines whose references point to other lines since positions moved.
    TCLineIndexSet linesDisturbedByMovedPositions(const TCChangedLineIndexes& change) const;

    // The edges follow: those of lines that were parsed since the last time, and those that the change of
    // positions or names may have touched.
    void lineWasParsed(const std::shared_ptr<TCLine>& line) { linesWithStaleEdges_.push_back(line); }
    void update(const TCChangedLineIndexes& change, bool declarationsChanged);
    void rebuildDependencyGraphForLinesAtIndexes(const TCLineIndexSet& indexes);
    void rebuildDependencyGraphForLinesOnAndAfterIndex(int64_t index);
    void allLinesWent(); // the edges go with the next rebuild

    TBF::DependencyGraph& graph() const { return *graph_; }

private:
    void addDependenciesOfLine(TCLine& line);
    void addEdgesOfReferences(const TCLine& line);
    void forgetReferencesWithoutEdge(std::size_t fromIndex);
    void refreshStaleEdges();
    std::vector<uint32_t> linesReadByLineAtIndex(uint32_t index) const;

    const TCLineList& lines_;
    const TCDeclaredNames& names_;
    TCKeptLineForms& keptForms_;
    const TBF::Ref<TBF::DependencyGraph> graph_;

    // Parsed since the graph was last asked to follow. May hold a line twice, and lines that have left.
    std::vector<std::shared_ptr<TCLine>> linesWithStaleEdges_;

    // Indexes of lines with references that have no edge: those too far past the end, which are asked again
    // as the document grows, and those to the line itself or above the first line.
    std::unordered_set<std::size_t> linesWithFarReferences_;
    std::unordered_set<std::size_t> linesWithVoidReferences_;
    std::unordered_set<std::size_t> linesReadingThemselves_; // by a reference or a name
};
