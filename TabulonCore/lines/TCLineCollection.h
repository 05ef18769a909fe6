#pragma once

// A document in memory: an ordered list of lines with an environment of its own, in which every answer is
// kept current. Edits register changes; unless a batch is open, they are processed at once, on the caller's
// thread: names are brought up to date, lines are parsed, the dependency graph follows, and the changed
// lines and all that depend on them are evaluated in the order of their dependencies. A collection is used
// from one thread at a time, and no two collections evaluate at the same time, since they share the
// evaluator.

#include "environment/TCSimpleLocale.h"
#include "lines/TCLineCollectionChangeTracker.h"
#include "lines/TCLineCollectionDelegate.h"
#include "lines/TCLineDeclarationIndex.h"
#include "lines/TCLineIndexSet.h"
#include "lines/TCLineReferencesSnapshot.h"
#include "runtime/Ref.h"
#include "runtime/TBFTypes.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

class TCEnvironment;
class TCLine;
class TCLineExpressionParser;
class TCLineCollectionVariable;
class TCResult;
class TCResultFormattingOptions;
class TCVariableList;

namespace TBF {
class DependencyGraph;
}

// Who counts as evaluated by itself when all lines are evaluated anew.
enum TCEvaluationReportingMode : int32_t {
    TCEvaluationReportingModeExplicit = 0,
    TCEvaluationReportingModeAutomatic = 1,
};

class TCLineCollection {
public:
    // Hears of every line ahead of its evaluation; process-wide.
    using PreEvaluationBlock = std::function<void(TCLine&)>;

    // Lines that a document may have. Adding more changes nothing and is logged.
    static constexpr std::size_t mostLines = 1'000'000;

    // With the current environment as parent, which may be null: then there are neither units nor names.
    TCLineCollection();
    explicit TCLineCollection(const std::shared_ptr<TCEnvironment>& parentEnvironment);
    TCLineCollection(const TCLineCollection&) = delete;
    TCLineCollection& operator=(const TCLineCollection&) = delete;
    ~TCLineCollection();

    // Lines come and go. A null line or an index out of range changes nothing.
    void addLine(const std::shared_ptr<TCLine>& line);
    void insertLine(const std::shared_ptr<TCLine>& line, std::size_t index);
    void removeLine(const std::shared_ptr<TCLine>& line); // the first one of equal text
    void removeLineAtIndex(std::size_t index);
    void removeAllLines();
    void moveLineAtIndex(std::size_t source, std::size_t destination);

    // Lookup. Null, or -1, for what isn't there.
    std::shared_ptr<TCLine> lineAtIndex(std::size_t index) const;
    int64_t indexOfLine(const std::shared_ptr<TCLine>& line) const; // of a foreign line, its index there
    std::size_t countOfLines() const { return lines.size(); }
    bool hasLineAtIndex(std::size_t index) const { return index < lines.size(); }
    bool lineIndexIsValid(int64_t index) const;
    bool containsLine(const std::shared_ptr<TCLine>& line) const;
    std::shared_ptr<TCLine> lineWithIdentifier(const std::u16string& identifier) const;
    std::vector<std::shared_ptr<TCLine>> linesWithIndexes(const TCLineIndexSet& indexes) const;

    // In document order. Not to be kept across an edit.
    std::vector<std::shared_ptr<TCLine>>::const_iterator begin() const { return lines.begin(); }
    std::vector<std::shared_ptr<TCLine>>::const_iterator end() const { return lines.end(); }

    // Settings of the document. New lines share the default options object, which may be null.
    void setDefaultResultFormattingOptions(std::shared_ptr<TCResultFormattingOptions> options);
    const std::shared_ptr<TCResultFormattingOptions>& defaultResultFormattingOptions() const;
    int32_t trigonometryMode() const { return trigonometry; } // 1 degrees, 2 radians
    void setTrigonometryMode(int32_t mode);                   // of all lines as well
    TBFChar decimalPlaceCharacter() const;
    TBFChar thousandsSeparatorCharacter() const;

    // Other characters for the same texts, or texts rewritten to other characters. Equal characters
    // change nothing.
    void setLocaleWithDecimalPoint(TBFChar decimalPoint, TBFChar thousandsSeparator);
    void convertToLocaleWithDecimalPoint(TBFChar decimalPoint, TBFChar thousandsSeparator);

    // Not owned; must outlive the collection or be taken away. May be null.
    TCLineCollectionDelegate* delegate() const { return observer; }
    void setDelegate(TCLineCollectionDelegate* delegate) { observer = delegate; }
    const std::shared_ptr<TCEnvironment>& environment() const { return ownEnvironment; }
    void setEnvironment(std::shared_ptr<TCEnvironment> environment);
    std::shared_ptr<TCVariableList> variables() const;

    // Changes. A batch holds them back until it ends; batches don't nest.
    void registerChange(const TCLineCollectionChange& change);
    void registerChange(int32_t type, int64_t lineIndex);
    void registerPreChange(int32_t type, int64_t lineIndex);
    void registerExpressionChangeForLineAtIndex(std::size_t index);
    void enqueEvaluationOfLine(const std::shared_ptr<TCLine>& line);
    void beginBatchUpdate();
    void endBatchUpdate();
    void processChanges();

    // Parsing and evaluation. The dependents of given lines are evaluated with them.
    void parseAllLines();
    void unparseAllLines();
    void evaluateLines();
    TCLineIndexSet evaluateLinesAtIndexes(const TCLineIndexSet& indexes); // those really evaluated
    void evaluateLine(const std::shared_ptr<TCLine>& line);
    void evaluateAllLinesWithReportingMode(int32_t mode);
    void reevaluateLinesDependingOnVariables();
    void reevaluateLinesDependingOnVariable();
    void reevaluateLinesDependingOnUnit();

    // Steps of work for a line, and for a batch of changes: those of the settings unless set, see TCSettings.
    // A host that wants to answer a keystroke at once sets a small one for lines and has those that ran past
    // it finished when there is time: they are evaluated anew with their dependents, with the steps given.
    std::optional<int64_t> lineBudget() const { return stepsOfLine; }
    void setLineBudget(std::optional<int64_t> steps) { stepsOfLine = steps; }
    std::optional<int64_t> batchBudget() const { return stepsOfBatch; }
    void setBatchBudget(std::optional<int64_t> steps) { stepsOfBatch = steps; }
    TCLineIndexSet indexesOfUnfinishedLines() const;                  // those that took too long
    TCLineIndexSet finishLines(std::optional<int64_t> stepsOfEach = std::nullopt);

    static void setPreEvaluationBlock(PreEvaluationBlock block); // null for none

    void rebuildDependencyGraphForLinesAtIndexes(const TCLineIndexSet& indexes);
    void rebuildDependencyGraphForLinesOnAndAfterIndex(int64_t index);
    void notifyDelegateOfEvaluationOfLines(const TCLineIndexSet& evaluated,
                                           const TCLineIndexSet& implicitlyEvaluated);
    void notifyDelegateOfAutomaticEvaluationOfLinesAtIndexes(const TCLineIndexSet& indexes);

    // Dependencies. Masks are those of TBFDependencyType.
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
    TBF::DependencyGraph& dependencyGraph() const { return *graph; }

    // The lines that declare exactly this name, in document order.
    std::vector<std::shared_ptr<TCLine>> linesDeclaringVariableWithName(const std::u16string& name) const;

    // The variables that lines declare. In any case, or in exactly this one; null for another variable.
    std::shared_ptr<TCLineCollectionVariable> lineCollectionVariableWithName(const std::u16string& name,
                                                                             bool exactCase) const;
    std::vector<std::shared_ptr<TCLineCollectionVariable>>
    directLineCollectionVariableReferencesForLine(const TCLine& line) const;
    void updateLineCollectionVariableOwnership(TCLineCollectionVariable& variable);
    void removeVariableIfNeeded(const std::shared_ptr<TCLineCollectionVariable>& variable);

    // Notes where all references point to, ahead of a change of positions, and forgets it. Without a delegate
    // that wants to know there is nothing to note.
    void takeLineReferenceSnapshot();
    void clearLineReferenceSnapshot() { referenceSnapshots.clear(); }

    // Called by lines: the line has a new analysed form, or lost its parsed one; and, after either or for any
    // other reason, its answer may be another one.
    void _lineExpressionDidChange(TCLine& line);
    void _lineNeedsParsing(TCLine& line);
    void _lineReadsDifferently(TCLine& line);
    const std::shared_ptr<TCLineCollection*>& _backReference() const { return backReference; }
    const std::shared_ptr<TCLineExpressionParser>& _lineParser() const;

private:
    bool hasRoom() const;
    void prepareLineForInsertionAtIndex(const std::shared_ptr<TCLine>& line, std::size_t index);
    void resetLineIndexesStartingAt(std::size_t index);
    void enterLine(const std::shared_ptr<TCLine>& line);
    void forgetLine(const std::shared_ptr<TCLine>& line);
    bool holds(const TCLine& line) const;
    void fillLinesByIdentifier() const;
    void changeAllLines(const std::function<void(TCLine&)>& change);
    bool isNoNewLocale(TCSimpleLocale locale) const;

    // Steps of `processChanges`.
    bool bringNamesUpToDate(TCChangedLineIndexes& change); // whether another line declares a name now
    void followLineReferences(TCChangedLineIndexes& change);
    void updateDependencyGraph(const TCChangedLineIndexes& change, bool namesChanged);
    void refreshStaleDependencies();
    std::vector<uint32_t> evaluationOrder(const TCLineIndexSet& indexes) const;
    TCLineIndexSet formerDependents(const TCChangedLineIndexes& change, const TCLineIndexSet& direct) const;
    void addLinesDisturbedByMovedPositions(TCChangedLineIndexes& change) const;
    void forgetReferencesWithoutEdge(std::size_t fromIndex);
    void addDependenciesForLine(TCLine& line);

    // What the names that the document declares, and its references, add to a change.
    struct NameChanges {
        std::vector<std::u16string> comeAndGone; // lines with these words read differently

        // A name came or went that differs from another one by case alone: words in a third case, which no
        // line declares, mean something else now.
        bool spellingsChanged = false;
    };
    NameChanges updateInternalVariableList(const TCLineDeclarationIndex::Names& changedNames,
                                           bool positionsChanged);
    TCLineIndexSet unparseLinesThatMayUse(const std::vector<std::u16string>& names); // which those are
    TCLineIndexSet directLineCollectionVariableOwnersForLine(const TCLine& line) const;
    void storeValueOfDeclaringLine(const std::shared_ptr<TCLine>& line);
    std::vector<uint32_t> linesReadByLineAtIndex(uint32_t index) const;
    bool isReadAsVariable(std::size_t index, std::size_t readerIndex) const;
    int64_t evaluateLineWithBudget(const std::shared_ptr<TCLine>& line, std::optional<int64_t> steps);
    void settleLineOnCycle(const std::shared_ptr<TCLine>& line);
    TCLineReferenceShifts shiftsOfReferencesOnLine(const TCLine& line,
                                                   const TCLineReferencesSnapshot& then) const;
    TCLineIndexSet notifyAboutLineReferenceChanges(); // the lines that the delegate gave other texts

    std::vector<std::shared_ptr<TCLine>> lines;
    mutable std::unordered_map<std::u16string, std::shared_ptr<TCLine>> linesByIdentifier; // see below
    mutable bool identifiersKnown = false; // the map is filled when the first identifier is looked up
    bool batchUpdating = false;
    bool changeProcessingEnabled = true;
    std::shared_ptr<TCResultFormattingOptions> defaultOptions;
    TBF::Ref<TBF::DependencyGraph> graph;
    std::mutex mutex; // guards lines, linesByIdentifier and tracker during edits; reads don't take it
    TCLineCollectionChangeTracker tracker;
    TCLineCollectionDelegate* observer = nullptr; // not owned
    int32_t trigonometry = 1;
    std::shared_ptr<TCEnvironment> ownEnvironment;

    // What keeps an edit from walking the document: the lines that wait for the parser, those parsed since
    // the graph was last asked to follow, and who declares which name. The first two may hold a line twice,
    // and lines that have left.
    std::vector<std::shared_ptr<TCLine>> unparsedLines;
    std::vector<std::shared_ptr<TCLine>> linesWithStaleDependencies;
    TCLineDeclarationIndex declarations;

    // Indexes of lines with references that have no edge: those too far past the end, which are asked again
    // as the document grows, and those to the line itself or above the first line.
    std::unordered_set<std::size_t> linesWithFarReferences;
    std::unordered_set<std::size_t> linesWithVoidReferences;
    std::unordered_set<std::size_t> linesReadingThemselves; // by a reference or a name

    // By owning line; empty but for the time from ahead of a change of positions until it was reported.
    std::unordered_map<std::shared_ptr<TCLine>, TCLineReferencesSnapshot> referenceSnapshots;

    std::optional<int64_t> stepsOfLine;
    std::optional<int64_t> stepsOfBatch;

    // The lines whose tokens are kept: those that used others when they were last evaluated, since they are
    // evaluated again when the others change. A ring; the oldest one makes room.
    void keepFormsOfLine(TCLine& line);
    std::vector<std::weak_ptr<TCLine>> linesWithForms;
    std::size_t oldestLineWithForms = 0;
    mutable std::shared_ptr<TCLineExpressionParser> lineParser; // with the names of the environment
    std::shared_ptr<TCLineCollection*> backReference; // to this; emptied when the collection ends
};
