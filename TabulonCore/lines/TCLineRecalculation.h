#pragma once

// From an edit of a document to current answers. Changes are gathered; when they are processed, names are
// brought up to date, lines are parsed, the dependency graph follows, and the changed lines and all that
// depend on them are evaluated in the order of their dependencies, on the caller's thread. `processChanges`
// lists the steps. Part of a `TCLineCollection`, whose operations mostly forward here; lines report to it as
// well.

#include "lines/TCDeclaredNames.h"
#include "lines/TCKeptLineForms.h"
#include "lines/TCLineCollectionChangeTracker.h"
#include "lines/TCLineDependencies.h"
#include "lines/TCLineIndexSet.h"
#include "lines/TCLineReferenceTracking.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

class TCLine;
class TCLineCollection;
class TCLineExpressionParser;

class TCLineRecalculation {
public:
    // Hears of every line ahead of its evaluation; process-wide.
    using PreEvaluationBlock = std::function<void(TCLine&)>;

    // The document owns this one. Its mutex guards the gathered changes with its lines.
    TCLineRecalculation(TCLineCollection& document, std::mutex& mutex);
    TCLineRecalculation(const TCLineRecalculation&) = delete;
    TCLineRecalculation& operator=(const TCLineRecalculation&) = delete;
    ~TCLineRecalculation();

    TCDeclaredNames& declaredNames() { return names_; }
    const TCDeclaredNames& declaredNames() const { return names_; }
    TCLineDependencies& dependencies() { return dependencies_; }
    const TCLineDependencies& dependencies() const { return dependencies_; }
    TCLineReferenceTracking& lineReferences() { return references_; }

    // Shared with the lines; null once the document has gone.
    const std::shared_ptr<TCLineCollection*>& document() const { return document_; }
    void documentEnds();

    // The list of lines has changed, or one of the lines: it has a new analysed form, lost its parsed one,
    // or, after either or for any other reason, its answer may be another one.
    void lineCame(const std::shared_ptr<TCLine>& line);
    void allLinesWent();
    void lineExpressionDidChange(const TCLine& line);
    void lineNeedsParsing(const TCLine& line);
    void lineReadsDifferently(const TCLine& line);

    // Changes. A batch holds them back until it ends; batches don't nest.
    void registerChange(const TCLineCollectionChange& change);
    void registerChange(int32_t type, int64_t lineIndex);
    void registerPreChange(int32_t type);
    void beginBatchUpdate();
    void endBatchUpdate();
    void processChanges();

    // Sends `change` to every line, as one change.
    void changeAllLines(const std::function<void(TCLine&)>& change);

    // Parsing and evaluation. The dependents of given lines are evaluated with them.
    void parseAllLines();
    const std::shared_ptr<TCLineExpressionParser>& lineParser() const;
    TCLineIndexSet evaluateLinesAtIndexes(const TCLineIndexSet& indexes); // those really evaluated
    void evaluateLine(const std::shared_ptr<TCLine>& line);
    void evaluateAllLinesWithReportingMode(int32_t mode);
    static void setPreEvaluationBlock(PreEvaluationBlock block); // null for none

    // Steps of work for a line, and for a batch of changes: those of the settings unless set, see TCSettings.
    // A host that wants to answer a keystroke at once sets a small one for lines and has those that ran past
    // it finished when there is time: they are evaluated anew with their dependents, with the steps given.
    std::optional<int64_t> lineBudget() const { return stepsOfLine_; }
    void setLineBudget(std::optional<int64_t> steps) { stepsOfLine_ = steps; }
    std::optional<int64_t> batchBudget() const { return stepsOfBatch_; }
    void setBatchBudget(std::optional<int64_t> steps) { stepsOfBatch_ = steps; }
    TCLineIndexSet indexesOfUnfinishedLines() const; // those that took too long
    TCLineIndexSet finishLines(std::optional<int64_t> stepsOfEach = std::nullopt);

    void notifyDelegateOfEvaluationOfLines(const TCLineIndexSet& evaluated,
                                           const TCLineIndexSet& implicitlyEvaluated);
    void notifyDelegateOfAutomaticEvaluationOfLinesAtIndexes(const TCLineIndexSet& indexes);

private:
    TCLineCollection& owner() const { return **document_; }

    // Steps of `processChanges`.
    TCChangedLineIndexes takeChanges();
    bool bringNamesUpToDate(TCChangedLineIndexes& change); // whether other lines declare names now
    void followLineReferences(TCChangedLineIndexes& change);
    TCLineIndexSet letDelegateFollowLineReferences(); // the lines that it gave other texts

    int64_t evaluateLineWithBudget(const std::shared_ptr<TCLine>& line, std::optional<int64_t> steps);
    void settleLineOnCycle(const std::shared_ptr<TCLine>& line);

    const std::shared_ptr<TCLineCollection*> document_;
    const TCLineList& lines_;
    std::mutex& mutex_;

    TCLineCollectionChangeTracker tracker_;
    bool batchUpdating_ = false;
    bool changeProcessingEnabled_ = true;

    // The lines that wait for the parser. May hold a line twice, and lines that have left.
    std::vector<std::shared_ptr<TCLine>> unparsedLines_;

    TCKeptLineForms keptForms_;
    TCDeclaredNames names_;
    TCLineDependencies dependencies_;
    TCLineReferenceTracking references_;

    std::optional<int64_t> stepsOfLine_;
    std::optional<int64_t> stepsOfBatch_;
    mutable std::shared_ptr<TCLineExpressionParser> parser_; // with the names of the environment
};
