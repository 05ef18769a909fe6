#include "lines/TCLineDependencies.h"

#include "document/DependencyGraph.h"
#include "lines/TCDeclaredNames.h"
#include "lines/TCKeptLineForms.h"
#include "lines/TCLine.h"
#include "lines/TCLineCollectionChangeTracker.h"
#include "lines/TCLineList.h"

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

TCLineDependencies::TCLineDependencies(const TCLineList& lines, const TCDeclaredNames& names,
                                       TCKeptLineForms& keptForms)
    : lines_(lines)
    , names_(names)
    , keptForms_(keptForms)
    , graph_(TBF::DependencyGraph::create()) {}

TCLineDependencies::~TCLineDependencies() = default;

TCLineIndexSet TCLineDependencies::indexesOfLinesDependingOnLineAtIndex(std::size_t index) const {
    return indexesOfLinesDependingOnLinesAtIndexes(TCLineIndexSet{index});
}

TCLineIndexSet
TCLineDependencies::indexesOfLinesDependingOnLinesAtIndexes(const TCLineIndexSet& indexes) const {
    TCLineIndexSet dependents = lineIndexes(graph_->evaluationOrder(graphIndexes(indexes)));
    dependents.remove(indexes);
    return dependents;
}

TCLineIndexSet
TCLineDependencies::lineIndexesDirectlyDependingOnIndexesInRange(std::size_t location, std::size_t length,
                                                                 uint32_t dependencyMask) const {
    const std::size_t end = length > largestGraphIndex ? largestGraphIndex : location + length;
    return lineIndexes(
        graph_->directDependentsInRange(graphIndex(location), graphIndex(end), dependencyMask));
}

TCLineIndexSet
TCLineDependencies::lineIndexesWithDependenciesMatchingTypeMask(uint32_t mask,
                                                                std::size_t crossingLineIndex) const {
    return lineIndexes(graph_->indexesWithDependenciesCrossingIndex(graphIndex(crossingLineIndex), mask));
}

TCLineIndexSet TCLineDependencies::lineIndexesWithDependenciesMatchingTypeMask(
    uint32_t mask, const TCLineIndexSet& crossingLineIndexes) const {
    std::vector<std::size_t> all;
    for (const std::size_t index : crossingLineIndexes) {
        const TCLineIndexSet found = lineIndexesWithDependenciesMatchingTypeMask(mask, index);
        all.insert(all.end(), found.begin(), found.end());
    }
    return TCLineIndexSet(std::move(all));
}

std::vector<std::shared_ptr<TCLine>>
TCLineDependencies::linesWithDependenciesMatchingTypeMask(uint32_t mask,
                                                          std::size_t crossingLineIndex) const {
    return lines_.linesWithIndexes(lineIndexesWithDependenciesMatchingTypeMask(mask, crossingLineIndex));
}

std::vector<std::shared_ptr<TCLine>>
TCLineDependencies::linesWithDependenciesCrossingLineIndex(std::size_t index) const {
    return linesWithDependenciesMatchingTypeMask(TBFDependencyMaskAll, index);
}

std::vector<TCLineEvaluationStep> TCLineDependencies::evaluationOrder(const TCLineIndexSet& indexes) const {
    return TCLineEvaluationOrder(graph_->evaluationOrder(graphIndexes(indexes)),
                                 [this](uint32_t index) { return linesReadByLineAtIndex(index); });
}

// The lines whose values this one takes up. A line depends on all declarations of a name that it uses, but
// at most two give it anything.
std::vector<uint32_t> TCLineDependencies::linesReadByLineAtIndex(uint32_t index) const {
    std::vector<uint32_t> read;
    for (const TBF::DependencyEdge& edge : graph_->directDependencies(index))
        if (edge.typeMask != TBFDependencyTypeVariable || names_.isReadAsVariable(edge.lineIndex, index))
            read.push_back(edge.lineIndex);
    if (linesReadingThemselves_.contains(index)) read.push_back(index);
    return read;
}

// A line that was inserted had no users, and one that was removed isn't among `direct`.
TCLineIndexSet TCLineDependencies::formerDependents(const TCChangedLineIndexes& change,
                                                    const TCLineIndexSet& direct) const {
    if (change.removed.isEmpty() && change.inserted.isEmpty())
        return indexesOfLinesDependingOnLinesAtIndexes(direct);
    std::vector<std::size_t> dependents;
    for (const std::size_t index : indexesOfLinesDependingOnLinesAtIndexes(change.removed))
        if (const auto now = change.newIndexOf(index)) dependents.push_back(*now);
    return TCLineIndexSet(std::move(dependents));
}

// Line references speak of positions: an absolute one at or past the first moved position has other content
// now, and a relative one that spans an edit has another target.
TCLineIndexSet TCLineDependencies::linesDisturbedByMovedPositions(const TCChangedLineIndexes& change) const {
    TCLineIndexSet edited = change.removed;
    edited.add(change.inserted);
    if (edited.isEmpty()) return {};
    const std::size_t start = *edited.first();
    const std::size_t removedCount = change.removed.count();
    const std::size_t insertedCount = change.inserted.count();
    const std::size_t vanished = removedCount > insertedCount ? removedCount - insertedCount : 0;
    const std::size_t end = lines_.countOfLines() + vanished;
    TCLineIndexSet disturbed;
    if (start < end)
        disturbed =
            lineIndexesDirectlyDependingOnIndexesInRange(start, end - start, TBFDependencyMaskAbsolute);
    disturbed.add(lineIndexesWithDependenciesMatchingTypeMask(TBFDependencyMaskRelative, edited));
    for (const std::size_t index : linesWithVoidReferences_) // it may have lost its target to the edit
        if (index >= start) disturbed.add(index);
    return disturbed;
}

void TCLineDependencies::update(const TCChangedLineIndexes& change, bool declarationsChanged) {
    if (declarationsChanged) {
        rebuildDependencyGraphForLinesOnAndAfterIndex(0);
    } else if (change.positionsChanged) {
        const int64_t start = change.rebuildStartIndex;
        // Lines above the edit may use names whose declarations have moved with it.
        const bool namesMoved =
            start > 0 && names_.hasDeclarationOnOrAfterIndex(static_cast<std::size_t>(start));
        if (!lines_.lineIndexIsValid(start) && start > 0) // the last line went
            graph_->removeAllDependenciesForLinesOnAndAfterIndex(graphIndex(lines_.countOfLines()));
        rebuildDependencyGraphForLinesOnAndAfterIndex(namesMoved ? 0 : start);
    }
    refreshStaleEdges();
}

void TCLineDependencies::rebuildDependencyGraphForLinesAtIndexes(const TCLineIndexSet& indexes) {
    for (const std::size_t index : indexes) {
        if (!lines_.hasLineAtIndex(index)) continue;
        graph_->removeAllDependenciesForLine(graphIndex(index));
        linesWithFarReferences_.erase(index);
        linesWithVoidReferences_.erase(index);
        linesReadingThemselves_.erase(index);
        addDependenciesOfLine(*lines_[index]);
    }
}

void TCLineDependencies::rebuildDependencyGraphForLinesOnAndAfterIndex(int64_t index) {
    if (lines_.lineIndexIsValid(index)) {
        const auto start = static_cast<std::size_t>(index);
        graph_->removeAllDependenciesForLinesOnAndAfterIndex(graphIndex(start));
        forgetReferencesWithoutEdge(start);
        const std::vector<std::size_t> linesAbove(linesWithFarReferences_.begin(),
                                                  linesWithFarReferences_.end());
        rebuildDependencyGraphForLinesAtIndexes(TCLineIndexSet(linesAbove));
        for (std::size_t i = start; i < lines_.countOfLines(); ++i)
            addDependenciesOfLine(*lines_[i]);
        std::erase_if(linesWithStaleEdges_, [&](const auto& line) { return line->index() >= start; });
    } else if (index == 0) {
        graph_->removeAllDependenciesForLinesOnAndAfterIndex(0);
        forgetReferencesWithoutEdge(0);
    }
}

void TCLineDependencies::allLinesWent() {
    linesWithStaleEdges_.clear();
    forgetReferencesWithoutEdge(0);
}

void TCLineDependencies::addDependenciesOfLine(TCLine& line) {
    addEdgesOfReferences(line);
    for (const std::size_t declaringLine : names_.ownersUsedByLine(line)) {
        if (declaringLine == line.index() && names_.isReadAsVariable(declaringLine, declaringLine))
            linesReadingThemselves_.insert(line.index());
        graph_->addDependency(graphIndex(line.index()), graphIndex(declaringLine), TBFDependencyTypeVariable);
    }
    // What was made for this look waits for the evaluation, unless many lines wait.
    if (line.usesOtherLines()) keptForms_.keep(line);
}

void TCLineDependencies::addEdgesOfReferences(const TCLine& line) {
    const auto& targets = line.directLineReferenceIndexes();
    if (!targets) return;
    const uint32_t source = graphIndex(line.index());
    const std::size_t reach = lines_.countOfLines() + referenceReachPastEnd;
    TCIndexSet relative = line.directRelativeLineReferenceIndexes().value_or(TCIndexSet());
    relative.addOffset(static_cast<int64_t>(line.index()));
    const TCIndexSet absolute = line.directAbsoluteLineReferenceIndexes().value_or(TCIndexSet());
    for (const TCIndex target : *targets) {
        const int64_t index = target.value();
        const bool refersToItself = index == static_cast<int64_t>(line.index());
        if (index < 0 || refersToItself) linesWithVoidReferences_.insert(line.index());
        if (refersToItself) linesReadingThemselves_.insert(line.index());
        if (index < 0) continue;
        if (static_cast<uint64_t>(index) >= reach) {
            linesWithFarReferences_.insert(line.index());
            continue;
        }
        const uint32_t type =
            (absolute.containsIndex(index) ? uint32_t{TBFDependencyTypeAbsoluteLineReference} : 0) |
            (relative.containsIndex(index) ? uint32_t{TBFDependencyTypeRelativeLineReference} : 0);
        graph_->addDependency(source, static_cast<uint32_t>(index), type);
    }
}

void TCLineDependencies::forgetReferencesWithoutEdge(std::size_t fromIndex) {
    const auto isAfter = [&](std::size_t index) { return index >= fromIndex; };
    std::erase_if(linesWithFarReferences_, isAfter);
    std::erase_if(linesWithVoidReferences_, isAfter);
    std::erase_if(linesReadingThemselves_, isAfter);
}

// The edges of the lines that were parsed since the graph last followed.
void TCLineDependencies::refreshStaleEdges() {
    std::vector<std::size_t> stale;
    for (const auto& line : std::exchange(linesWithStaleEdges_, {}))
        if (lines_.holds(*line)) stale.push_back(line->index());
    rebuildDependencyGraphForLinesAtIndexes(TCLineIndexSet(std::move(stale)));
}
