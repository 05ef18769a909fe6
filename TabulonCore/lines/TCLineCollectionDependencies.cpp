// Which line uses which: the edges of the dependency graph, and the questions it answers.
//
// The graph always matches the parsed lines: after a change of a text, the edges of that line are entered
// anew; after a change of positions or of who declares a name, those of all lines that it may touch. So no
// edge has to be looked for through other lines.

#include "document/DependencyGraph.h"
#include "lines/TCLine.h"
#include "lines/TCLineCollection.h"

#include <algorithm>
#include <span>
#include <utility>

namespace {

// A reference to a line that is yet to come gets an edge, so that the line is evaluated when its target
// comes to exist; but only so many lines past the end, so that a slip of the finger makes no huge graph.
constexpr std::size_t referenceReachPastEnd = 1000;

// The graph counts in 32 bits; what lies beyond has no line and no edge.
constexpr std::size_t largestGraphIndex = UINT32_MAX;

std::vector<uint32_t> graphIndexes(const TCLineIndexSet& indexes) {
    std::vector<uint32_t> result;
    result.reserve(indexes.count());
    for (const std::size_t index : indexes)
        if (index <= largestGraphIndex) result.push_back(static_cast<uint32_t>(index));
    return result;
}

TCLineIndexSet lineIndexes(std::span<const uint32_t> indexes) {
    return TCLineIndexSet(std::vector<std::size_t>(indexes.begin(), indexes.end()));
}

uint32_t graphIndex(std::size_t index) {
    return static_cast<uint32_t>(std::min(index, largestGraphIndex));
}

} // namespace

void TCLineCollection::addDependenciesForLine(TCLine& line) {
    const uint32_t source = graphIndex(line.index());
    const std::size_t reach = lines.size() + referenceReachPastEnd;
    bool refersTooFar = false;
    bool refersToVoid = false;
    if (const auto& targets = line.directLineReferenceIndexes()) {
        TCIndexSet relative = line.directRelativeLineReferenceIndexes().value_or(TCIndexSet());
        relative.addOffset(static_cast<int64_t>(line.index()));
        const TCIndexSet absolute = line.directAbsoluteLineReferenceIndexes().value_or(TCIndexSet());
        for (const TCIndex target : *targets) {
            const int64_t index = target.value();
            const bool refersToItself = index == static_cast<int64_t>(line.index());
            refersToVoid |= index < 0 || refersToItself;
            if (refersToItself) linesReadingThemselves.insert(line.index());
            if (index < 0) continue;
            if (static_cast<uint64_t>(index) >= reach) {
                refersTooFar = true;
                continue;
            }
            const uint32_t type =
                (absolute.containsIndex(index) ? uint32_t{TBFDependencyTypeAbsoluteLineReference} : 0) |
                (relative.containsIndex(index) ? uint32_t{TBFDependencyTypeRelativeLineReference} : 0);
            graph->addDependency(source, static_cast<uint32_t>(index), type);
        }
    }
    for (const std::size_t declaringLine : directLineCollectionVariableOwnersForLine(line)) {
        if (declaringLine == line.index() && isReadAsVariable(declaringLine, declaringLine))
            linesReadingThemselves.insert(line.index());
        graph->addDependency(source, graphIndex(declaringLine), TBFDependencyTypeVariable);
    }

    // What was made for this look waits for the evaluation, unless many lines wait.
    if (line.usesOtherLines()) keepFormsOfLine(line);
    if (refersTooFar) linesWithFarReferences.insert(line.index());
    if (refersToVoid) linesWithVoidReferences.insert(line.index());
}

void TCLineCollection::forgetReferencesWithoutEdge(std::size_t fromIndex) {
    const auto isBehind = [&](std::size_t index) { return index >= fromIndex; };
    std::erase_if(linesWithFarReferences, isBehind);
    std::erase_if(linesWithVoidReferences, isBehind);
    std::erase_if(linesReadingThemselves, isBehind);
}

void TCLineCollection::rebuildDependencyGraphForLinesAtIndexes(const TCLineIndexSet& indexes) {
    for (const std::size_t index : indexes) {
        if (index >= lines.size()) continue;
        graph->removeAllDependenciesForLine(graphIndex(index));
        linesWithFarReferences.erase(index);
        linesWithVoidReferences.erase(index);
        linesReadingThemselves.erase(index);
        addDependenciesForLine(*lines[index]);
    }
}

void TCLineCollection::rebuildDependencyGraphForLinesOnAndAfterIndex(int64_t index) {
    if (lineIndexIsValid(index)) {
        const auto start = static_cast<std::size_t>(index);
        graph->removeAllDependenciesForLinesOnAndAfterIndex(graphIndex(start));
        forgetReferencesWithoutEdge(start);
        const std::vector<std::size_t> linesAbove(linesWithFarReferences.begin(),
                                                  linesWithFarReferences.end());
        rebuildDependencyGraphForLinesAtIndexes(TCLineIndexSet(linesAbove));
        for (std::size_t i = start; i < lines.size(); ++i)
            addDependenciesForLine(*lines[i]);
        std::erase_if(linesWithStaleDependencies, [&](const auto& line) { return line->index() >= start; });
    } else if (index == 0) {
        graph->removeAllDependenciesForLinesOnAndAfterIndex(0);
        forgetReferencesWithoutEdge(0);
    }
}

// The edges of the lines that were parsed since the graph last followed.
void TCLineCollection::refreshStaleDependencies() {
    std::vector<std::size_t> stale;
    for (const auto& line : std::exchange(linesWithStaleDependencies, {}))
        if (holds(*line)) stale.push_back(line->index());
    rebuildDependencyGraphForLinesAtIndexes(TCLineIndexSet(std::move(stale)));
}

void TCLineCollection::updateDependencyGraph(const TCChangedLineIndexes& change, bool namesChanged) {
    if (namesChanged) {
        rebuildDependencyGraphForLinesOnAndAfterIndex(0);
    } else if (change.positionsChanged) {
        const int64_t start = change.rebuildStartIndex;
        // Lines above the edit may use names whose declarations have moved with it.
        const bool namesMoved =
            start > 0 && declarations.hasDeclarationOnOrAfterIndex(static_cast<std::size_t>(start));
        if (!lineIndexIsValid(start) && start > 0) // the last line went
            graph->removeAllDependenciesForLinesOnAndAfterIndex(graphIndex(lines.size()));
        rebuildDependencyGraphForLinesOnAndAfterIndex(namesMoved ? 0 : start);
    }
    refreshStaleDependencies();
}

std::vector<uint32_t> TCLineCollection::evaluationOrder(const TCLineIndexSet& indexes) const {
    return graph->evaluationOrder(graphIndexes(indexes));
}

// The lines whose values this one takes up. A line depends on all declarations of a name that it uses, but
// at most two give it anything.
std::vector<uint32_t> TCLineCollection::linesReadByLineAtIndex(uint32_t index) const {
    std::vector<uint32_t> read;
    for (const TBF::DependencyEdge& edge : graph->directDependencies(index))
        if (edge.typeMask != TBFDependencyTypeVariable || isReadAsVariable(edge.lineIndex, index))
            read.push_back(edge.lineIndex);
    if (linesReadingThemselves.contains(index)) read.push_back(index);
    return read;
}

TCLineIndexSet TCLineCollection::indexesOfLinesDependingOnLineAtIndex(std::size_t index) const {
    return indexesOfLinesDependingOnLinesAtIndexes(TCLineIndexSet{index});
}

TCLineIndexSet
TCLineCollection::indexesOfLinesDependingOnLinesAtIndexes(const TCLineIndexSet& indexes) const {
    TCLineIndexSet dependents = lineIndexes(evaluationOrder(indexes));
    dependents.remove(indexes);
    return dependents;
}

TCLineIndexSet TCLineCollection::lineIndexesDirectlyDependingOnIndexesInRange(std::size_t location,
                                                                              std::size_t length,
                                                                              uint32_t dependencyMask) const {
    const std::size_t end = length > largestGraphIndex ? largestGraphIndex : location + length;
    return lineIndexes(graph->directDependentsInRange(graphIndex(location), graphIndex(end), dependencyMask));
}

TCLineIndexSet
TCLineCollection::lineIndexesWithDependenciesMatchingTypeMask(uint32_t mask,
                                                              std::size_t crossingLineIndex) const {
    return lineIndexes(graph->indexesWithDependenciesCrossingIndex(graphIndex(crossingLineIndex), mask));
}

TCLineIndexSet TCLineCollection::lineIndexesWithDependenciesMatchingTypeMask(
    uint32_t mask, const TCLineIndexSet& crossingLineIndexes) const {
    std::vector<std::size_t> all;
    for (const std::size_t index : crossingLineIndexes) {
        const TCLineIndexSet found = lineIndexesWithDependenciesMatchingTypeMask(mask, index);
        all.insert(all.end(), found.begin(), found.end());
    }
    return TCLineIndexSet(std::move(all));
}

std::vector<std::shared_ptr<TCLine>>
TCLineCollection::linesWithDependenciesMatchingTypeMask(uint32_t mask, std::size_t crossingLineIndex) const {
    return linesWithIndexes(lineIndexesWithDependenciesMatchingTypeMask(mask, crossingLineIndex));
}

std::vector<std::shared_ptr<TCLine>>
TCLineCollection::linesWithDependenciesCrossingLineIndex(std::size_t index) const {
    return linesWithDependenciesMatchingTypeMask(TBFDependencyMaskAll, index);
}
