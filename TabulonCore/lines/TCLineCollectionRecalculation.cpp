// From a registered change to current answers.

#include "document/TBFDependencyType.h"
#include "environment/TCEnvironment.h"
#include "environment/TCLineEvaluator.h"
#include "environment/TCSettings.h"
#include "expressions/TCAbstractLineExpression.h"
#include "expressions/TCExpression.h"
#include "expressions/TCLineExpressionParser.h"
#include "lines/TCLine.h"
#include "lines/TCLineCollection.h"
#include "lines/TCLineCollectionDelegate.h"
#include "lines/TCLineEvaluationOrder.h"
#include "results/TCResult.h"

#include <algorithm>
#include <utility>

namespace {

constexpr std::size_t mostLinesWithForms = 256;
constexpr std::size_t longestTextWithForms = 256; // code units

TCLineCollection::PreEvaluationBlock& preEvaluationBlock() {
    static TCLineCollection::PreEvaluationBlock block;
    return block;
}

constexpr int64_t noSteps = 0; // for a line that isn't begun any more; prose stays without an answer

int64_t standardBatchBudget() {
    const auto settings = TCSettings::current();
    return settings ? settings->batchBudget() : TBF::noBudget;
}

} // namespace

void TCLineCollection::registerChange(const TCLineCollectionChange& change) {
    if (!changeProcessingEnabled) return;
    {
        const std::lock_guard lock(mutex);
        tracker.registerChange(change);
    }
    if (!batchUpdating) processChanges();
}

void TCLineCollection::registerChange(int32_t type, int64_t lineIndex) {
    registerChange(
        TCLineCollectionChange{type, lineIndex < 0 ? TCNotFound : lineIndex, TCNotFound});
}

void TCLineCollection::registerPreChange(int32_t type, int64_t) {
    const bool isStructural = type == TCLineCollectionChangeTypeRemove ||
                              type == TCLineCollectionChangeTypeInsert ||
                              type == TCLineCollectionChangeTypeMove;
    if (isStructural && changeProcessingEnabled && !batchUpdating) takeLineReferenceSnapshot();
}

void TCLineCollection::registerExpressionChangeForLineAtIndex(std::size_t index) {
    registerChange(TCLineCollectionChangeTypeExpression, static_cast<int64_t>(index));
}

void TCLineCollection::enqueEvaluationOfLine(const std::shared_ptr<TCLine>& line) {
    if (line) registerExpressionChangeForLineAtIndex(line->index());
}

void TCLineCollection::beginBatchUpdate() {
    takeLineReferenceSnapshot();
    batchUpdating = true;
}

void TCLineCollection::endBatchUpdate() {
    batchUpdating = false;
    processChanges();
}

void TCLineCollection::processChanges() {
    TCChangedLineIndexes change;
    {
        const std::lock_guard lock(mutex);
        change = tracker.changedLineIndexesInLineCollection(*this);
        tracker.reset();
    }
    TCLineIndexSet direct = change.changed;
    direct.remove(change.external);

    const bool namesChanged = bringNamesUpToDate(change);
    parseAllLines();
    change.changed.add(formerDependents(change, direct));
    updateDependencyGraph(change, namesChanged);
    followLineReferences(change);
    addLinesDisturbedByMovedPositions(change);

    const TCLineIndexSet evaluated = evaluateLinesAtIndexes(change.changed);
    if (!observer) return;
    TCLineIndexSet implicit = evaluated;
    implicit.remove(direct);
    notifyDelegateOfEvaluationOfLines(evaluated, implicit);
}

// A name that comes or goes changes how lines read: those are among the changed ones afterwards.
bool TCLineCollection::bringNamesUpToDate(TCChangedLineIndexes& change) {
    const TCLineDeclarationIndex::Names changedNames = declarations.takeChangedNames();
    const NameChanges names = updateInternalVariableList(changedNames, change.positionsChanged);
    change.changed.add(unparseLinesThatMayUse(names.comeAndGone));
    if (names.spellingsChanged) change.changed = TCLineIndexSet::withRange(0, lines.size());
    return !changedNames.empty();
}

// The delegate may write any line, and not only its references.
void TCLineCollection::followLineReferences(TCChangedLineIndexes& change) {
    const TCLineIndexSet rewritten = notifyAboutLineReferenceChanges();
    if (rewritten.isEmpty()) return;
    change.changed.add(rewritten);
    const bool namesChanged = bringNamesUpToDate(change);
    parseAllLines();
    change.changed.add(indexesOfLinesDependingOnLinesAtIndexes(rewritten)); // that used what was there before
    updateDependencyGraph(TCChangedLineIndexes(), namesChanged);
}

// The lines that used the changed ones before the edit, as the graph, which speaks of the positions of then,
// still knows. A line that was inserted had no users, and one that was removed isn't among `direct`.
TCLineIndexSet TCLineCollection::formerDependents(const TCChangedLineIndexes& change,
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
void TCLineCollection::addLinesDisturbedByMovedPositions(TCChangedLineIndexes& change) const {
    if (change.removed.isEmpty() && change.inserted.isEmpty()) return;
    TCLineIndexSet edited = change.removed;
    edited.add(change.inserted);
    const std::size_t start = *edited.first();
    const std::size_t removedCount = change.removed.count();
    const std::size_t insertedCount = change.inserted.count();
    const std::size_t vanished = removedCount > insertedCount ? removedCount - insertedCount : 0;
    const std::size_t end = lines.size() + vanished;
    if (start < end)
        change.changed.add(
            lineIndexesDirectlyDependingOnIndexesInRange(start, end - start, TBFDependencyMaskAbsolute));
    change.changed.add(lineIndexesWithDependenciesMatchingTypeMask(TBFDependencyMaskRelative, edited));
    for (const std::size_t index : linesWithVoidReferences) // it may have lost its target to the edit
        if (index >= start) change.changed.add(index);
}

void TCLineCollection::_lineExpressionDidChange(TCLine& line) {
    if (!holds(line)) return;
    declarations.update(lines[line.index()]);
    _lineNeedsParsing(line);
}

void TCLineCollection::_lineNeedsParsing(TCLine& line) {
    if (holds(line)) unparsedLines.push_back(lines[line.index()]);
}

void TCLineCollection::_lineReadsDifferently(TCLine& line) {
    if (holds(line)) registerExpressionChangeForLineAtIndex(line.index());
}

void TCLineCollection::parseAllLines() {
    for (const auto& line : std::exchange(unparsedLines, {})) {
        if (!holds(*line)) continue;
        line->parseOnDemand(_lineParser());
        linesWithStaleDependencies.push_back(line);
    }
}

const std::shared_ptr<TCLineExpressionParser>& TCLineCollection::_lineParser() const {
    if (!lineParser || lineParser->environment() != ownEnvironment)
        lineParser = std::make_shared<TCLineExpressionParser>(ownEnvironment);
    return lineParser;
}

// Of a long line they are not kept: they take a hundred times its memory.
void TCLineCollection::keepFormsOfLine(TCLine& line) {
    if (line._keepsForms()) return;
    const auto& expression = line.expression();
    const auto& typed = expression ? expression->originalString() : std::optional<std::u16string>();
    if (!typed || typed->size() > longestTextWithForms) {
        line.dropForms();
        return;
    }
    line._setKeepsForms(true);
    if (linesWithForms.size() < mostLinesWithForms) {
        linesWithForms.push_back(line.weak_from_this());
        return;
    }
    std::weak_ptr<TCLine>& place = linesWithForms[oldestLineWithForms];
    if (const auto oldest = place.lock()) {
        oldest->_setKeepsForms(false);
        oldest->dropForms();
    }
    place = line.weak_from_this();
    oldestLineWithForms = (oldestLineWithForms + 1) % mostLinesWithForms;
}

void TCLineCollection::unparseAllLines() {
    for (const auto& line : lines)
        line->unparse();
}

void TCLineCollection::evaluateLines() {
    evaluateLinesAtIndexes(TCLineIndexSet::withRange(0, lines.size()));
}

TCLineIndexSet TCLineCollection::evaluateLinesAtIndexes(const TCLineIndexSet& indexes) {
    std::vector<std::size_t> evaluated;
    int64_t stepsLeft = stepsOfBatch.value_or(standardBatchBudget());
    const auto order = TCLineEvaluationOrder(
        evaluationOrder(indexes), [this](uint32_t index) { return linesReadByLineAtIndex(index); });
    for (const auto& [index, isOnCycle] : order) {
        if (index >= lines.size()) continue;
        if (isOnCycle) {
            settleLineOnCycle(lines[index]);
        } else {
            const int64_t taken =
                evaluateLineWithBudget(lines[index], stepsLeft > 0 ? stepsOfLine : std::optional(noSteps));
            stepsLeft -= std::min(stepsLeft, taken);
        }
        evaluated.push_back(index);
    }
    return TCLineIndexSet(std::move(evaluated));
}

void TCLineCollection::evaluateLine(const std::shared_ptr<TCLine>& line) {
    if (line) evaluateLineWithBudget(line, stepsOfLine);
}

int64_t TCLineCollection::evaluateLineWithBudget(const std::shared_ptr<TCLine>& line,
                                                 std::optional<int64_t> steps) {
    const std::shared_ptr<TCLine> held = line; // the argument may stand in `lines`
    if (preEvaluationBlock()) preEvaluationBlock()(*held);
    const int64_t taken = TCLineEvaluator::evaluateLine(*held, steps);
    if (held->usesOtherLines())
        keepFormsOfLine(*held);
    else
        held->dropForms();
    if (held->lineType() == TCLineTypeVariableDeclaration) storeValueOfDeclaringLine(held);
    return taken;
}

TCLineIndexSet TCLineCollection::indexesOfUnfinishedLines() const {
    std::vector<std::size_t> found;
    for (const auto& line : lines) {
        const auto answer = line->_resultAlongPath(nullptr, nullptr);
        if (answer && answer->errorType() == TCErrorTypeTakesTooLong) found.push_back(line->index());
    }
    return TCLineIndexSet(std::move(found));
}

TCLineIndexSet TCLineCollection::finishLines(std::optional<int64_t> stepsOfEach) {
    const TCLineIndexSet unfinished = indexesOfUnfinishedLines();
    if (unfinished.isEmpty()) return unfinished;
    const std::optional<int64_t> usual = std::exchange(stepsOfLine, stepsOfEach);
    const TCLineIndexSet evaluated = evaluateLinesAtIndexes(unfinished);
    stepsOfLine = usual;
    notifyDelegateOfEvaluationOfLines(evaluated, evaluated);
    return evaluated;
}

// A line that depends on itself has no answer, whatever it had before: otherwise its answer would tell of the
// order of the edits.
void TCLineCollection::settleLineOnCycle(const std::shared_ptr<TCLine>& line) {
    const std::shared_ptr<TCLine> held = line; // the argument may stand in `lines`
    if (preEvaluationBlock()) preEvaluationBlock()(*held);
    held->setResult(TCResult::emptyResult());
    if (held->lineType() == TCLineTypeVariableDeclaration) storeValueOfDeclaringLine(held);
}

void TCLineCollection::evaluateAllLinesWithReportingMode(int32_t mode) {
    if (batchUpdating) { // which evaluates them at its end, with the names and places of then
        changeAllLines([](TCLine& line) { line.clearCaches(); });
        return;
    }
    // All lines are read anew first and evaluated once: a change for each line on its own would evaluate
    // the end of a chain of lines once for every line before it.
    const bool wasEnabled = std::exchange(changeProcessingEnabled, false);
    for (std::size_t i = 0; i < lines.size(); ++i)
        lines[i]->clearCaches();
    changeProcessingEnabled = wasEnabled;
    const TCLineIndexSet all = TCLineIndexSet::withRange(0, lines.size());
    const TCLineDeclarationIndex::Names changedNames = declarations.takeChangedNames();
    updateInternalVariableList(changedNames, false); // all lines have lost their parsed forms
    parseAllLines();
    updateDependencyGraph(TCChangedLineIndexes(), !changedNames.empty());
    evaluateLinesAtIndexes(all);
    notifyDelegateOfEvaluationOfLines(all,
                                      mode == TCEvaluationReportingModeAutomatic ? all : TCLineIndexSet());
}

void TCLineCollection::reevaluateLinesDependingOnVariables() {
    evaluateAllLinesWithReportingMode(TCEvaluationReportingModeAutomatic);
}

void TCLineCollection::reevaluateLinesDependingOnVariable() {
    evaluateAllLinesWithReportingMode(TCEvaluationReportingModeAutomatic);
}

void TCLineCollection::reevaluateLinesDependingOnUnit() {
    evaluateAllLinesWithReportingMode(TCEvaluationReportingModeAutomatic);
}

void TCLineCollection::setPreEvaluationBlock(PreEvaluationBlock block) {
    preEvaluationBlock() = std::move(block);
}

void TCLineCollection::notifyDelegateOfEvaluationOfLines(const TCLineIndexSet& evaluated,
                                                         const TCLineIndexSet& implicitlyEvaluated) {
    const std::shared_ptr<TCLineCollection*> self = backReference; // the delegate may let go of the document
    if (observer && !evaluated.isEmpty()) observer->lineCollectionDidUpdateLinesAtIndexes(*this, evaluated);
    if (*self) notifyDelegateOfAutomaticEvaluationOfLinesAtIndexes(implicitlyEvaluated);
}

void TCLineCollection::notifyDelegateOfAutomaticEvaluationOfLinesAtIndexes(const TCLineIndexSet& indexes) {
    if (observer && !indexes.isEmpty())
        observer->lineCollectionDidAutomaticallyUpdateLinesAtIndexes(*this, indexes);
}
