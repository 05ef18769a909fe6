#pragma once

// A document in memory: an ordered list of lines with an environment of its own, in which every answer is
// kept current. Edits register changes; unless a batch is open, they are processed at once, on the caller's
// thread: names are brought up to date, lines are parsed, the dependency graph follows, and the changed
// lines and all that depend on them are evaluated in the order of their dependencies. A collection is used
// from one thread at a time, and no two collections evaluate at the same time, since they share the
// evaluator.
//
// Lookup of lines is that of `TCLineList`; what the document says as a whole is in TCLineCollectionReading.h.

#include "environment/TCSimpleLocale.h"
#include "lines/TCLineCollectionChangeTracker.h"
#include "lines/TCLineIndexSet.h"
#include "lines/TCLineList.h"
#include "runtime/TBFTypes.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>

class TCDeclaredNames;
class TCEnvironment;
class TCLine;
class TCLineCollectionDelegate;
class TCLineDependencies;
class TCLineRecalculation;
class TCLineReferenceTracking;
class TCResultFormattingOptions;
class TCVariableList;

// Who counts as evaluated by itself when all lines are evaluated anew.
enum TCEvaluationReportingMode : int32_t {
    TCEvaluationReportingModeExplicit = 0,
    TCEvaluationReportingModeAutomatic = 1,
};

class TCLineCollection : public TCLineList {
public:
    // Hears of every line ahead of its evaluation; process-wide.
    using PreEvaluationBlock = std::function<void(TCLine&)>;

    // With the current environment as parent, which may be null: then there are neither units nor names.
    TCLineCollection();
    explicit TCLineCollection(const std::shared_ptr<TCEnvironment>& parentEnvironment);
    ~TCLineCollection();

    // Lines come and go. A null line or an index out of range changes nothing.
    void addLine(const std::shared_ptr<TCLine>& line);
    void insertLine(const std::shared_ptr<TCLine>& line, std::size_t index);
    void removeLine(const std::shared_ptr<TCLine>& line); // the first one of equal text
    void removeLineAtIndex(std::size_t index);
    void removeAllLines();
    void moveLineAtIndex(std::size_t source, std::size_t destination);

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
    static void setPreEvaluationBlock(PreEvaluationBlock block); // null for none

    // The parts that keep the answers current: budgets of work and unfinished lines, who depends on whom, the
    // names that lines declare, and how references follow lines that move.
    TCLineRecalculation& recalculation() { return *parts; }
    const TCLineRecalculation& recalculation() const { return *parts; }
    TCLineDependencies& dependencies();
    const TCLineDependencies& dependencies() const;
    TCDeclaredNames& declaredNames();
    const TCDeclaredNames& declaredNames() const;
    TCLineReferenceTracking& lineReferences();

private:
    void prepareLineForInsertionAtIndex(const std::shared_ptr<TCLine>& line, std::size_t index);
    bool isNoNewLocale(TCSimpleLocale locale) const;

    std::shared_ptr<TCResultFormattingOptions> defaultOptions;
    std::mutex mutex; // guards the lines and the gathered changes during edits; reads don't take it
    TCLineCollectionDelegate* observer = nullptr; // not owned
    int32_t trigonometry = 1;
    std::shared_ptr<TCEnvironment> ownEnvironment;
    std::unique_ptr<TCLineRecalculation> parts;
};
