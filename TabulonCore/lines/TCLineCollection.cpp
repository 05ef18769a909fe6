#include "lines/TCLineCollection.h"

#include "environment/TCEnvironment.h"
#include "environment/TCWarnLog.h"
#include "lines/TCLine.h"
#include "lines/TCLineRecalculation.h"
#include "results/TCResultFormattingOptions.h"
#include "variables/TCVariableList.h"

#include <algorithm>
#include <utility>

namespace {

// Of its own: the names that the document declares. Its parent's: units, operators, functions, and all
// other names. The locale is the document's, not the parent's.
std::shared_ptr<TCEnvironment> privateEnvironment(const std::shared_ptr<TCEnvironment>& parent) {
    auto environment = TCEnvironment::make();
    environment->setLocale(TCSimpleLocale::standardLocale());
    auto variables = std::make_shared<TCVariableList>();
    if (parent) variables->setParentList(parent->variables());
    environment->setVariables(std::move(variables));
    if (!parent) return environment;
    environment->setWordOperators(parent->wordOperators());
    environment->setUnitManager(parent->unitManager());
    environment->setFunctions(parent->functions());
    return environment;
}

} // namespace

TCLineCollection::TCLineCollection()
    : TCLineCollection(TCEnvironment::current()) {}

TCLineCollection::TCLineCollection(const std::shared_ptr<TCEnvironment>& parentEnvironment)
    : ownEnvironment(privateEnvironment(parentEnvironment))
    , parts(std::make_unique<TCLineRecalculation>(*this, mutex)) {}

TCLineCollection::~TCLineCollection() {
    parts->documentEnds();
}

void TCLineCollection::addLine(const std::shared_ptr<TCLine>& line) {
    if (!line) {
        TCWarnLog("Warning: trying to add nil line");
        return;
    }
    if (!hasRoom()) return;
    const std::size_t index = countOfLines();
    prepareLineForInsertionAtIndex(line, index);
    parts->registerPreChange(TCLineCollectionChangeTypeInsert);
    {
        const std::lock_guard lock(mutex);
        insertIntoList(line, index);
        parts->lineCame((*this)[index]);
    }
    parts->registerChange(TCLineCollectionChangeTypeInsert, static_cast<int64_t>(index));
}

void TCLineCollection::insertLine(const std::shared_ptr<TCLine>& line, std::size_t index) {
    if (!line) {
        TCWarnLog("Warning: trying to insert nil line");
        return;
    }
    if (index > countOfLines()) {
        TCWarnLog("Warning: insert index (%zu) out of range", index);
        return;
    }
    if (index == countOfLines()) {
        addLine(line);
        return;
    }
    if (!hasRoom()) return;
    parts->registerPreChange(TCLineCollectionChangeTypeInsert);
    prepareLineForInsertionAtIndex(line, index);
    {
        const std::lock_guard lock(mutex);
        insertIntoList(line, index);
        parts->lineCame((*this)[index]);
    }
    parts->registerChange(TCLineCollectionChangeTypeInsert, static_cast<int64_t>(index));
}

void TCLineCollection::removeLine(const std::shared_ptr<TCLine>& line) {
    const auto place =
        line ? std::find_if(begin(), end(), [&](const auto& candidate) { return candidate->isEqual(*line); })
             : end();
    removeLineAtIndex(static_cast<std::size_t>(place - begin()));
}

void TCLineCollection::removeLineAtIndex(std::size_t index) {
    if (!hasLineAtIndex(index)) {
        TCWarnLog("Warning: trying to remove line not in line collection.");
        return;
    }
    parts->registerPreChange(TCLineCollectionChangeTypeRemove);
    {
        const std::lock_guard lock(mutex);
        declaredNames().lineWent(removeFromList(index));
    }
    parts->registerChange(TCLineCollectionChangeTypeRemove, static_cast<int64_t>(index));
}

void TCLineCollection::removeAllLines() {
    {
        const std::lock_guard lock(mutex);
        clearList();
        parts->allLinesWent();
    }
    parts->registerChange(TCLineCollectionChangeTypeRemoveAll, 0);
}

void TCLineCollection::moveLineAtIndex(std::size_t source, std::size_t destination) {
    if (source == destination) {
        TCWarnLog("Warning: no-op line move (%zu -> %zu)", source, destination);
        return;
    }
    if (!hasLineAtIndex(source) || !hasLineAtIndex(destination)) {
        TCWarnLog("Warning: move indexes out of range. (%zu -> %zu)", source, destination);
        return;
    }
    parts->registerPreChange(TCLineCollectionChangeTypeMove);
    moveInList(source, destination);
    declaredNames().lineMoved((*this)[destination]);
    parts->registerChange(
        {TCLineCollectionChangeTypeMove, static_cast<int64_t>(source), static_cast<int64_t>(destination)});
}

void TCLineCollection::prepareLineForInsertionAtIndex(const std::shared_ptr<TCLine>& line,
                                                      std::size_t index) {
    line->setIndex(index);
    if (defaultOptions) line->setCustomFormattingOptions(defaultOptions);
    line->setLocale(ownEnvironment->locale());
    if (!line->isTrigonometryModeSet()) line->setTrigonometryMode(trigonometry);
    line->_setLineCollection(this);
}

void TCLineCollection::setDefaultResultFormattingOptions(std::shared_ptr<TCResultFormattingOptions> options) {
    defaultOptions = std::move(options);
}

const std::shared_ptr<TCResultFormattingOptions>& TCLineCollection::defaultResultFormattingOptions() const {
    return defaultOptions;
}

void TCLineCollection::setTrigonometryMode(int32_t mode) {
    if (mode == trigonometry) return;
    trigonometry = mode;
    parts->changeAllLines([mode](TCLine& line) { line.setTrigonometryMode(mode); });
}

TBFChar TCLineCollection::decimalPlaceCharacter() const {
    return ownEnvironment->locale().decimalPoint;
}

TBFChar TCLineCollection::thousandsSeparatorCharacter() const {
    return ownEnvironment->locale().thousandsSeparator;
}

bool TCLineCollection::isNoNewLocale(TCSimpleLocale locale) const {
    return locale.decimalPoint == locale.thousandsSeparator || locale == ownEnvironment->locale();
}

void TCLineCollection::setLocaleWithDecimalPoint(TBFChar decimalPoint, TBFChar thousandsSeparator) {
    const TCSimpleLocale locale{decimalPoint, thousandsSeparator};
    if (isNoNewLocale(locale)) return;
    ownEnvironment->setLocale(locale);
    parts->changeAllLines([locale](TCLine& line) { line.setLocale(locale); });
}

void TCLineCollection::convertToLocaleWithDecimalPoint(TBFChar decimalPoint, TBFChar thousandsSeparator) {
    const TCSimpleLocale locale{decimalPoint, thousandsSeparator};
    if (isNoNewLocale(locale)) return;
    ownEnvironment->setLocale(locale);
    parts->changeAllLines([locale](TCLine& line) { line.convertToLocale(locale); });
}

void TCLineCollection::setEnvironment(std::shared_ptr<TCEnvironment> environment) {
    if (environment) ownEnvironment = std::move(environment);
}

std::shared_ptr<TCVariableList> TCLineCollection::variables() const {
    return ownEnvironment->variables();
}

void TCLineCollection::registerChange(const TCLineCollectionChange& change) {
    parts->registerChange(change);
}

void TCLineCollection::registerChange(int32_t type, int64_t lineIndex) {
    parts->registerChange(type, lineIndex);
}

void TCLineCollection::registerPreChange(int32_t type, int64_t) {
    parts->registerPreChange(type);
}

void TCLineCollection::registerExpressionChangeForLineAtIndex(std::size_t index) {
    parts->registerChange(TCLineCollectionChangeTypeExpression, static_cast<int64_t>(index));
}

void TCLineCollection::enqueEvaluationOfLine(const std::shared_ptr<TCLine>& line) {
    if (line) registerExpressionChangeForLineAtIndex(line->index());
}

void TCLineCollection::beginBatchUpdate() {
    parts->beginBatchUpdate();
}

void TCLineCollection::endBatchUpdate() {
    parts->endBatchUpdate();
}

void TCLineCollection::processChanges() {
    parts->processChanges();
}

void TCLineCollection::parseAllLines() {
    parts->parseAllLines();
}

void TCLineCollection::unparseAllLines() {
    for (const auto& line : *this)
        line->unparse();
}

void TCLineCollection::evaluateLines() {
    parts->evaluateLinesAtIndexes(TCLineIndexSet::withRange(0, countOfLines()));
}

TCLineIndexSet TCLineCollection::evaluateLinesAtIndexes(const TCLineIndexSet& indexes) {
    return parts->evaluateLinesAtIndexes(indexes);
}

void TCLineCollection::evaluateLine(const std::shared_ptr<TCLine>& line) {
    parts->evaluateLine(line);
}

void TCLineCollection::evaluateAllLinesWithReportingMode(int32_t mode) {
    parts->evaluateAllLinesWithReportingMode(mode);
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
    TCLineRecalculation::setPreEvaluationBlock(std::move(block));
}

TCLineDependencies& TCLineCollection::dependencies() {
    return parts->dependencies();
}

const TCLineDependencies& TCLineCollection::dependencies() const {
    return parts->dependencies();
}

TCDeclaredNames& TCLineCollection::declaredNames() {
    return parts->declaredNames();
}

const TCDeclaredNames& TCLineCollection::declaredNames() const {
    return parts->declaredNames();
}

TCLineReferenceTracking& TCLineCollection::lineReferences() {
    return parts->lineReferences();
}
