#include "lines/TCLineRecalculation.h"

#include "environment/TCEnvironment.h"
#include "environment/TCLineEvaluator.h"
#include "environment/TCSettings.h"
#include "expressions/TCLineExpressionParser.h"
#include "lines/TCLine.h"
#include "lines/TCLineCollection.h"
#include "lines/TCLineCollectionDelegate.h"
#include "results/TCResult.h"
#include "variables/TCVariableList.h"

#include <algorithm>
#include <utility>

namespace {

TCLineRecalculation::PreEvaluationBlock& preEvaluationBlock() {
    static TCLineRecalculation::PreEvaluationBlock block;
    return block;
}

constexpr int64_t noSteps = 0; // for a line that isn't begun any more; prose stays without an answer

int64_t standardBatchBudget() {
    const auto settings = TCSettings::current();
    return settings ? settings->batchBudget() : TBF::noBudget;
}

} // namespace

TCLineRecalculation::TCLineRecalculation(TCLineCollection& document, std::mutex& mutex)
    : document_(std::make_shared<TCLineCollection*>(&document))
    , lines_(document)
    , mutex_(mutex)
    , names_(document, document.environment())
    , dependencies_(document, names_, keptForms_)
    , references_(document) {}

TCLineRecalculation::~TCLineRecalculation() = default;

void TCLineRecalculation::documentEnds() {
    *document_ = nullptr;
    // The names that lines declare own those lines, whose texts know the names.
    if (const auto variables = names_.variables()) variables->removeAllVariables();
}

void TCLineRecalculation::lineCame(const std::shared_ptr<TCLine>& line) {
    if (line->isParsed()) line->unparse(); // with the names of another time
    unparsedLines_.push_back(line);
    names_.lineDeclares(line);
}

void TCLineRecalculation::allLinesWent() {
    unparsedLines_.clear();
    dependencies_.allLinesWent();
    references_.clearLineReferenceSnapshot();
    names_.allLinesWent();
}

void TCLineRecalculation::lineExpressionDidChange(const TCLine& line) {
    if (!lines_.holds(line)) return;
    names_.lineDeclares(lines_[line.index()]);
    lineNeedsParsing(line);
}

void TCLineRecalculation::lineNeedsParsing(const TCLine& line) {
    if (lines_.holds(line)) unparsedLines_.push_back(lines_[line.index()]);
}

void TCLineRecalculation::lineReadsDifferently(const TCLine& line) {
    if (lines_.holds(line))
        registerChange(TCLineCollectionChangeTypeExpression, static_cast<int64_t>(line.index()));
}

void TCLineRecalculation::registerChange(const TCLineCollectionChange& change) {
    if (!changeProcessingEnabled_) return;
    {
        const std::lock_guard lock(mutex_);
        tracker_.registerChange(change);
    }
    if (!batchUpdating_) processChanges();
}

void TCLineRecalculation::registerChange(int32_t type, int64_t lineIndex) {
    registerChange(TCLineCollectionChange{type, lineIndex < 0 ? TCNotFound : lineIndex, TCNotFound});
}

void TCLineRecalculation::registerPreChange(int32_t type) {
    const bool isStructural = type == TCLineCollectionChangeTypeRemove ||
                              type == TCLineCollectionChangeTypeInsert ||
                              type == TCLineCollectionChangeTypeMove;
    if (isStructural && changeProcessingEnabled_ && !batchUpdating_)
        references_.takeLineReferenceSnapshot(owner().delegate());
}

void TCLineRecalculation::beginBatchUpdate() {
    references_.takeLineReferenceSnapshot(owner().delegate());
    batchUpdating_ = true;
}

void TCLineRecalculation::endBatchUpdate() {
    batchUpdating_ = false;
    processChanges();
}

void TCLineRecalculation::processChanges() {
    TCChangedLineIndexes change = takeChanges();
    TCLineIndexSet direct = change.changed;
    direct.remove(change.external);

    const bool declarationsChanged = bringNamesUpToDate(change);
    parseAllLines();
    change.changed.add(dependencies_.formerDependents(change, direct));
    dependencies_.update(change, declarationsChanged);
    followLineReferences(change);
    change.changed.add(dependencies_.linesDisturbedByMovedPositions(change));

    const TCLineIndexSet evaluated = evaluateLinesAtIndexes(change.changed);
    if (!owner().delegate()) return;
    TCLineIndexSet implicit = evaluated;
    implicit.remove(direct);
    notifyDelegateOfEvaluationOfLines(evaluated, implicit);
}

TCChangedLineIndexes TCLineRecalculation::takeChanges() {
    const std::lock_guard lock(mutex_);
    TCChangedLineIndexes change = tracker_.changedLineIndexesInLineCollection(lines_);
    tracker_.reset();
    return change;
}

// A name that comes or goes changes how lines read: those are among the changed ones afterwards.
bool TCLineRecalculation::bringNamesUpToDate(TCChangedLineIndexes& change) {
    const TCDeclaredNames::Changes names = names_.bringVariablesUpToDate(change.positionsChanged);
    change.changed.add(names_.unparseLinesThatMayUse(names.comeAndGone));
    if (names.spellingsChanged) change.changed = TCLineIndexSet::withRange(0, lines_.countOfLines());
    return names.declarationsChanged;
}

// The delegate may write any line, and not only its references.
void TCLineRecalculation::followLineReferences(TCChangedLineIndexes& change) {
    const TCLineIndexSet rewritten = letDelegateFollowLineReferences();
    if (rewritten.isEmpty()) return;
    change.changed.add(rewritten);
    const bool declarationsChanged = bringNamesUpToDate(change);
    parseAllLines();
    // Those that used what was there before.
    change.changed.add(dependencies_.indexesOfLinesDependingOnLinesAtIndexes(rewritten));
    dependencies_.update(TCChangedLineIndexes(), declarationsChanged);
}

TCLineIndexSet TCLineRecalculation::letDelegateFollowLineReferences() {
    TCLineCollectionDelegate* const delegate = owner().delegate();
    if (!delegate || !delegate->respondsToDidNoticeThatLineReferenceOnLines()) {
        references_.clearLineReferenceSnapshot();
        return {};
    }
    const auto shifted = references_.takeShiftedLines();
    if (shifted.lines.empty()) return {};

    const bool wasEnabled = std::exchange(changeProcessingEnabled_, false);
    delegate->lineCollectionDidNoticeThatLineReferenceOnLinesShouldShiftBy(owner(), shifted.lines,
                                                                           shifted.shifts);
    changeProcessingEnabled_ = wasEnabled;

    // Nothing else waits for the parser at this time.
    std::vector<std::size_t> rewritten;
    for (const auto& line : unparsedLines_)
        if (lines_.holds(*line)) rewritten.push_back(line->index());
    return TCLineIndexSet(std::move(rewritten));
}

// One step for the whole document: a change for each line on its own would evaluate the end of a chain of
// lines once for every line before it.
void TCLineRecalculation::changeAllLines(const std::function<void(TCLine&)>& change) {
    const bool wasEnabled = std::exchange(changeProcessingEnabled_, false);
    for (const auto& line : lines_)
        change(*line);
    changeProcessingEnabled_ = wasEnabled;
    {
        const std::lock_guard lock(mutex_);
        tracker_.registerChangeOfAllLines();
    }
    if (changeProcessingEnabled_ && !batchUpdating_) processChanges();
}

void TCLineRecalculation::parseAllLines() {
    for (const auto& line : std::exchange(unparsedLines_, {})) {
        if (!lines_.holds(*line)) continue;
        line->parseOnDemand(lineParser());
        dependencies_.lineWasParsed(line);
    }
}

const std::shared_ptr<TCLineExpressionParser>& TCLineRecalculation::lineParser() const {
    const auto& environment = owner().environment();
    if (!parser_ || parser_->environment() != environment)
        parser_ = std::make_shared<TCLineExpressionParser>(environment);
    return parser_;
}

TCLineIndexSet TCLineRecalculation::evaluateLinesAtIndexes(const TCLineIndexSet& indexes) {
    std::vector<std::size_t> evaluated;
    int64_t stepsLeft = stepsOfBatch_.value_or(standardBatchBudget());
    for (const auto& [index, isOnCycle] : dependencies_.evaluationOrder(indexes)) {
        if (!lines_.hasLineAtIndex(index)) continue;
        if (isOnCycle) {
            settleLineOnCycle(lines_[index]);
        } else {
            const int64_t taken =
                evaluateLineWithBudget(lines_[index], stepsLeft > 0 ? stepsOfLine_ : std::optional(noSteps));
            stepsLeft -= std::min(stepsLeft, taken);
        }
        evaluated.push_back(index);
    }
    return TCLineIndexSet(std::move(evaluated));
}

void TCLineRecalculation::evaluateLine(const std::shared_ptr<TCLine>& line) {
    if (line) evaluateLineWithBudget(line, stepsOfLine_);
}

int64_t TCLineRecalculation::evaluateLineWithBudget(const std::shared_ptr<TCLine>& line,
                                                    std::optional<int64_t> steps) {
    const std::shared_ptr<TCLine> held = line; // the argument may stand in the list
    if (preEvaluationBlock()) preEvaluationBlock()(*held);
    const int64_t taken = TCLineEvaluator::evaluateLine(*held, steps);
    if (held->usesOtherLines())
        keptForms_.keep(*held);
    else
        held->dropForms();
    if (held->lineType() == TCLineTypeVariableDeclaration) names_.storeValueOfDeclaringLine(held);
    return taken;
}

// A line that depends on itself has no answer, whatever it had before: otherwise its answer would tell of the
// order of the edits.
void TCLineRecalculation::settleLineOnCycle(const std::shared_ptr<TCLine>& line) {
    const std::shared_ptr<TCLine> held = line; // the argument may stand in the list
    if (preEvaluationBlock()) preEvaluationBlock()(*held);
    held->setResult(TCResult::emptyResult());
    if (held->lineType() == TCLineTypeVariableDeclaration) names_.storeValueOfDeclaringLine(held);
}

void TCLineRecalculation::evaluateAllLinesWithReportingMode(int32_t mode) {
    if (batchUpdating_) { // which evaluates them at its end, with the names and places of then
        changeAllLines([](TCLine& line) { line.clearCaches(); });
        return;
    }
    // All lines are read anew first and evaluated once: a change for each line on its own would evaluate
    // the end of a chain of lines once for every line before it.
    const bool wasEnabled = std::exchange(changeProcessingEnabled_, false);
    for (std::size_t i = 0; i < lines_.countOfLines(); ++i)
        lines_[i]->clearCaches();
    changeProcessingEnabled_ = wasEnabled;
    const TCLineIndexSet all = TCLineIndexSet::withRange(0, lines_.countOfLines());
    const TCDeclaredNames::Changes names = names_.bringVariablesUpToDate(false); // no line is parsed any more
    parseAllLines();
    dependencies_.update(TCChangedLineIndexes(), names.declarationsChanged);
    evaluateLinesAtIndexes(all);
    notifyDelegateOfEvaluationOfLines(all,
                                      mode == TCEvaluationReportingModeAutomatic ? all : TCLineIndexSet());
}

void TCLineRecalculation::setPreEvaluationBlock(PreEvaluationBlock block) {
    preEvaluationBlock() = std::move(block);
}

TCLineIndexSet TCLineRecalculation::indexesOfUnfinishedLines() const {
    std::vector<std::size_t> found;
    for (const auto& line : lines_) {
        const auto answer = line->_resultAlongPath(nullptr, nullptr);
        if (answer && answer->errorType() == TCErrorTypeTakesTooLong) found.push_back(line->index());
    }
    return TCLineIndexSet(std::move(found));
}

TCLineIndexSet TCLineRecalculation::finishLines(std::optional<int64_t> stepsOfEach) {
    const TCLineIndexSet unfinished = indexesOfUnfinishedLines();
    if (unfinished.isEmpty()) return unfinished;
    const std::optional<int64_t> usual = std::exchange(stepsOfLine_, stepsOfEach);
    const TCLineIndexSet evaluated = evaluateLinesAtIndexes(unfinished);
    stepsOfLine_ = usual;
    notifyDelegateOfEvaluationOfLines(evaluated, evaluated);
    return evaluated;
}

void TCLineRecalculation::notifyDelegateOfEvaluationOfLines(const TCLineIndexSet& evaluated,
                                                            const TCLineIndexSet& implicitlyEvaluated) {
    const std::shared_ptr<TCLineCollection*> document = document_; // the delegate may let go of the document
    if (!evaluated.isEmpty())
        if (TCLineCollectionDelegate* const delegate = owner().delegate())
            delegate->lineCollectionDidUpdateLinesAtIndexes(owner(), evaluated);
    if (*document) notifyDelegateOfAutomaticEvaluationOfLinesAtIndexes(implicitlyEvaluated);
}

void TCLineRecalculation::notifyDelegateOfAutomaticEvaluationOfLinesAtIndexes(const TCLineIndexSet& indexes) {
    if (indexes.isEmpty()) return;
    if (TCLineCollectionDelegate* const delegate = owner().delegate())
        delegate->lineCollectionDidAutomaticallyUpdateLinesAtIndexes(owner(), indexes);
}
