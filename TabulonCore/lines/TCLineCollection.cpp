#include "lines/TCLineCollection.h"

#include "document/DependencyGraph.h"
#include "environment/TCEnvironment.h"
#include "environment/TCWarnLog.h"
#include "lines/TCLine.h"
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
    : graph(TBF::DependencyGraph::create())
    , ownEnvironment(privateEnvironment(parentEnvironment))
    , backReference(std::make_shared<TCLineCollection*>(this)) {}

TCLineCollection::~TCLineCollection() {
    *backReference = nullptr;
    // The names that lines declare own those lines, whose texts know the names.
    if (const auto names = variables()) names->removeAllVariables();
}

bool TCLineCollection::hasRoom() const {
    if (lines.size() < mostLines) return true;
    TCWarnLog("Warning: a document has at most %zu lines", mostLines);
    return false;
}

void TCLineCollection::addLine(const std::shared_ptr<TCLine>& line) {
    if (!line) {
        TCWarnLog("Warning: trying to add nil line");
        return;
    }
    if (!hasRoom()) return;
    const std::size_t index = lines.size();
    prepareLineForInsertionAtIndex(line, index);
    registerPreChange(TCLineCollectionChangeTypeInsert, static_cast<int64_t>(index));
    {
        const std::lock_guard lock(mutex);
        lines.push_back(line);
        enterLine(line);
    }
    registerChange(TCLineCollectionChangeTypeInsert, static_cast<int64_t>(index));
}

void TCLineCollection::insertLine(const std::shared_ptr<TCLine>& line, std::size_t index) {
    if (!line) {
        TCWarnLog("Warning: trying to insert nil line");
        return;
    }
    if (index > lines.size()) {
        TCWarnLog("Warning: insert index (%zu) out of range", index);
        return;
    }
    if (index == lines.size()) {
        addLine(line);
        return;
    }
    if (!hasRoom()) return;
    registerPreChange(TCLineCollectionChangeTypeInsert, static_cast<int64_t>(index));
    prepareLineForInsertionAtIndex(line, index);
    {
        const std::lock_guard lock(mutex);
        lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(index), line);
        enterLine(line);
        resetLineIndexesStartingAt(index + 1);
    }
    registerChange(TCLineCollectionChangeTypeInsert, static_cast<int64_t>(index));
}

void TCLineCollection::removeLine(const std::shared_ptr<TCLine>& line) {
    const auto place = line ? std::find_if(lines.begin(), lines.end(),
                                           [&](const auto& candidate) { return candidate->isEqual(*line); })
                            : lines.end();
    removeLineAtIndex(static_cast<std::size_t>(place - lines.begin()));
}

void TCLineCollection::removeLineAtIndex(std::size_t index) {
    if (index >= lines.size()) {
        TCWarnLog("Warning: trying to remove line not in line collection.");
        return;
    }
    registerPreChange(TCLineCollectionChangeTypeRemove, static_cast<int64_t>(index));
    {
        const std::lock_guard lock(mutex);
        const std::shared_ptr<TCLine> line = lines[index];
        lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(index));
        forgetLine(line);
        resetLineIndexesStartingAt(index);
    }
    registerChange(TCLineCollectionChangeTypeRemove, static_cast<int64_t>(index));
}

void TCLineCollection::removeAllLines() {
    registerPreChange(TCLineCollectionChangeTypeRemoveAll, 0);
    {
        const std::lock_guard lock(mutex);
        lines.clear();
        linesByIdentifier.clear();
        unparsedLines.clear();
        linesWithStaleDependencies.clear();
        forgetReferencesWithoutEdge(0);
        clearLineReferenceSnapshot();
        declarations.removeAll();
        if (const auto names = variables()) names->removeAllVariables();
    }
    registerChange(TCLineCollectionChangeTypeRemoveAll, 0);
}

void TCLineCollection::moveLineAtIndex(std::size_t source, std::size_t destination) {
    if (source == destination) {
        TCWarnLog("Warning: no-op line move (%zu -> %zu)", source, destination);
        return;
    }
    if (source >= lines.size() || destination >= lines.size()) {
        TCWarnLog("Warning: move indexes out of range. (%zu -> %zu)", source, destination);
        return;
    }
    registerPreChange(TCLineCollectionChangeTypeMove, static_cast<int64_t>(source));
    const auto at = [&](std::size_t index) { return lines.begin() + static_cast<std::ptrdiff_t>(index); };
    if (source < destination)
        std::rotate(at(source), at(source + 1), at(destination + 1));
    else
        std::rotate(at(destination), at(source), at(source + 1));
    for (std::size_t i = std::min(source, destination); i <= std::max(source, destination); ++i)
        lines[i]->setIndex(i); // those beyond have kept their place
    declarations.noteMove(lines[destination]);
    registerChange(TCLineCollectionChange{TCLineCollectionChangeTypeMove, static_cast<int64_t>(source),
                                          static_cast<int64_t>(destination)});
}

void TCLineCollection::prepareLineForInsertionAtIndex(const std::shared_ptr<TCLine>& line,
                                                      std::size_t index) {
    line->setIndex(index);
    if (defaultOptions) line->setCustomFormattingOptions(defaultOptions);
    line->setLocale(ownEnvironment->locale());
    if (!line->isTrigonometryModeSet()) line->setTrigonometryMode(trigonometry);
    line->_setLineCollection(this);
}

void TCLineCollection::resetLineIndexesStartingAt(std::size_t index) {
    for (std::size_t i = index; i < lines.size(); ++i)
        lines[i]->setIndex(i);
}

void TCLineCollection::enterLine(const std::shared_ptr<TCLine>& line) {
    if (identifiersKnown) linesByIdentifier.insert_or_assign(line->uniqueIdentifier(), line);
    if (line->isParsed()) line->unparse(); // with the names of another time
    unparsedLines.push_back(line);
    declarations.update(line);
}

void TCLineCollection::forgetLine(const std::shared_ptr<TCLine>& line) {
    if (identifiersKnown) linesByIdentifier.erase(line->uniqueIdentifier());
    declarations.remove(line);
}

std::shared_ptr<TCLine> TCLineCollection::lineAtIndex(std::size_t index) const {
    if (index < lines.size()) return lines[index];
    TCWarnLog("Warning: asking for line for index out of range (%zu)", index);
    return nullptr;
}

int64_t TCLineCollection::indexOfLine(const std::shared_ptr<TCLine>& line) const {
    if (line) return static_cast<int64_t>(line->index());
    TCWarnLog("Warning: asking for index of nil line");
    return -1;
}

bool TCLineCollection::lineIndexIsValid(int64_t index) const {
    return index >= 0 && static_cast<uint64_t>(index) < lines.size();
}

bool TCLineCollection::holds(const TCLine& line) const {
    return line.index() < lines.size() && lines[line.index()].get() == &line;
}

// Most documents are read and shown without anybody asking for an identifier.
void TCLineCollection::fillLinesByIdentifier() const {
    if (identifiersKnown) return;
    for (const auto& line : lines)
        linesByIdentifier.emplace(line->uniqueIdentifier(), line);
    identifiersKnown = true;
}

bool TCLineCollection::containsLine(const std::shared_ptr<TCLine>& line) const {
    fillLinesByIdentifier();
    return line && linesByIdentifier.contains(line->uniqueIdentifier());
}

std::shared_ptr<TCLine> TCLineCollection::lineWithIdentifier(const std::u16string& identifier) const {
    fillLinesByIdentifier();
    const auto entry = linesByIdentifier.find(identifier);
    return entry == linesByIdentifier.end() ? nullptr : entry->second;
}

std::vector<std::shared_ptr<TCLine>> TCLineCollection::linesWithIndexes(const TCLineIndexSet& indexes) const {
    std::vector<std::shared_ptr<TCLine>> found;
    for (const std::size_t index : indexes) {
        if (index < lines.size())
            found.push_back(lines[index]);
        else
            TCWarnLog("Asking for an out of range line");
    }
    return found;
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
    changeAllLines([mode](TCLine& line) { line.setTrigonometryMode(mode); });
}

// One step for the whole document: a change for each line on its own would evaluate the end of a chain of
// lines once for every line before it.
void TCLineCollection::changeAllLines(const std::function<void(TCLine&)>& change) {
    const bool wasEnabled = std::exchange(changeProcessingEnabled, false);
    for (const auto& line : lines)
        change(*line);
    changeProcessingEnabled = wasEnabled;
    {
        const std::lock_guard lock(mutex);
        tracker.registerChangeOfAllLines();
    }
    if (changeProcessingEnabled && !batchUpdating) processChanges();
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
    changeAllLines([locale](TCLine& line) { line.setLocale(locale); });
}

void TCLineCollection::convertToLocaleWithDecimalPoint(TBFChar decimalPoint, TBFChar thousandsSeparator) {
    const TCSimpleLocale locale{decimalPoint, thousandsSeparator};
    if (isNoNewLocale(locale)) return;
    ownEnvironment->setLocale(locale);
    changeAllLines([locale](TCLine& line) { line.convertToLocale(locale); });
}

void TCLineCollection::setEnvironment(std::shared_ptr<TCEnvironment> environment) {
    if (environment) ownEnvironment = std::move(environment);
}

std::shared_ptr<TCVariableList> TCLineCollection::variables() const {
    return ownEnvironment->variables();
}
