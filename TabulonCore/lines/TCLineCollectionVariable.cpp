#include "lines/TCLineCollectionVariable.h"

#include "lines/TCLine.h"
#include "names/variables/Variable.h"
#include "results/TCResult.h"
#include "runtime/String.h"
#include "units/UnitContainer.h"

#include <algorithm>
#include <utility>

std::shared_ptr<TCLineCollectionVariable>
TCLineCollectionVariable::variableWithName(std::u16string_view name, std::shared_ptr<TCLine> line) {
    return variableWithName(TBF::String::create(name), std::move(line));
}

std::shared_ptr<TCLineCollectionVariable>
TCLineCollectionVariable::variableWithName(TBF::Ref<TBF::String> name, std::shared_ptr<TCLine> line) {
    auto foundation = TBF::Variable::create();
    foundation->setName(std::move(name));
    auto variable = std::make_shared<TCLineCollectionVariable>(Passkey(), std::move(foundation));
    variable->addOwnerLine(line, wholeRange);
    if (line) variable->setLine(std::move(line));
    return variable;
}

TCLineCollectionVariable::TCLineCollectionVariable(Passkey key, TBF::Ref<TBF::Variable> variable)
    : TCVariable(key, std::move(variable)) {}

TCLineCollectionVariable::~TCLineCollectionVariable() = default;

TCLineCollectionVariable::Rare& TCLineCollectionVariable::madeRare() {
    if (!rare) rare = std::make_unique<Rare>();
    return *rare;
}

void TCLineCollectionVariable::setLine(std::shared_ptr<TCLine> line) {
    madeRare().firstLine = std::move(line);
}

TCLineCollectionVariable::Several& TCLineCollectionVariable::several() {
    if (owners) return *owners;
    owners = std::make_unique<Several>();
    if (onlyOwner) {
        owners->owners.insert(onlyOwner);
        owners->ranges.emplace(0, std::exchange(onlyOwner, nullptr));
    }
    if (ownerOfOnlyResult)
        owners->valueResults.emplace(std::exchange(ownerOfOnlyResult, nullptr),
                                     std::exchange(onlyResult, nullptr));
    return *owners;
}

// Where one owner rules everything, it is kept in the small form.
void TCLineCollectionVariable::backToOne() {
    if (!owners || owners->owners.size() != 1 || owners->valueResults.size() > 1) return;
    if (owners->ranges.size() != 1 || owners->ranges.begin()->first != 0) return;
    const std::unique_ptr<Several> former = std::move(owners);
    onlyOwner = former->ranges.begin()->second;
    for (auto& [line, result] : former->valueResults) {
        ownerOfOnlyResult = line;
        onlyResult = result;
    }
}

void TCLineCollectionVariable::setValueResult(const std::shared_ptr<TCResult>& result,
                                              const std::shared_ptr<TCLine>& ownerLine) {
    if (!ownerLine) return;
    if (!owners && (!ownerOfOnlyResult || ownerOfOnlyResult == ownerLine)) {
        ownerOfOnlyResult = ownerLine;
        onlyResult = result;
    } else {
        several().valueResults.insert_or_assign(ownerLine, result);
    }
    if (const auto range = indexRangeForOwnerLine(ownerLine)) setValueResult(result.get(), *range);
}

void TCLineCollectionVariable::setValueResult(const TCResult* result, TCRange lineIndexRange) {
    setDelocalizedValueOfResult(result, lineIndexRange);
}

std::optional<std::u16string>
TCLineCollectionVariable::delocalizedValueForLineAtIndex(std::size_t index) const {
    const auto scope = static_cast<int32_t>(std::min<std::size_t>(index, TBF::Variable::endScope));
    const TBF::VariableValue* const value = tbfVariable()->valueAt(scope);
    const TBF::String* const text = value ? value->string() : nullptr;
    return text ? std::optional(text->utf16()) : std::nullopt;
}

std::optional<std::u16string>
TCLineCollectionVariable::localizedValueForLineAtIndex(std::size_t index) const {
    return localizedValueFromDelocalizedValue(delocalizedValueForLineAtIndex(index));
}

bool TCLineCollectionVariable::isOwnerLine(const std::shared_ptr<TCLine>& line) const {
    return owners ? owners->owners.contains(line) : line && line == onlyOwner;
}

std::size_t TCLineCollectionVariable::countOfOwnerLines() const {
    return owners ? owners->owners.size() : onlyOwner ? 1 : 0;
}

TCLineCollectionVariable::OwnerLines TCLineCollectionVariable::ownerLines() const {
    if (owners) return owners->owners;
    return onlyOwner ? OwnerLines{onlyOwner} : OwnerLines();
}

TCLineCollectionVariable::OwnerLines TCLineCollectionVariable::previousOwnerLines() const {
    if (!rare) return {};
    if (rare->previous) return rare->previous->owners;
    return rare->previousOnlyOwner ? OwnerLines{rare->previousOnlyOwner} : OwnerLines();
}

void TCLineCollectionVariable::addOwnerLine(const std::shared_ptr<TCLine>& line, TCRange lineIndexRange) {
    if (!line) return;
    const bool runsToEnd = lineIndexRange.length < 0;
    const bool rulesAll = lineIndexRange.location == 0 && runsToEnd;
    if (!owners && rulesAll && (!onlyOwner || onlyOwner == line)) {
        onlyOwner = line;
        return;
    }
    Several& form = several();
    form.owners.insert(line);
    form.rangeByOwner.clear();
    splitRangeAt(lineIndexRange.location);
    if (!runsToEnd) splitRangeAt(lineIndexRange.end());
    Ranges& ranges = form.ranges;
    ranges.erase(ranges.upper_bound(lineIndexRange.location),
                 runsToEnd ? ranges.end() : ranges.lower_bound(lineIndexRange.end()));
    if (runsToEnd || lineIndexRange.length > 0) ranges.insert_or_assign(lineIndexRange.location, line);
}

// Makes a range begin at the index, with what rules there.
void TCLineCollectionVariable::splitRangeAt(int64_t index) {
    Ranges& ranges = several().ranges;
    const auto behind = ranges.upper_bound(index);
    ranges.emplace(index, behind == ranges.begin() ? nullptr : std::prev(behind)->second);
}

void TCLineCollectionVariable::removeAllOwnerLines() {
    onlyOwner = nullptr;
    if (!owners) return;
    owners->owners.clear();
    owners->ranges.clear();
    owners->rangeByOwner.clear();
}

// The ranges of owners run to the end, so that of the last one is the last.
std::shared_ptr<TCLine> TCLineCollectionVariable::lastOwnerLine() const {
    if (!owners) return onlyOwner;
    return owners->ranges.empty() ? nullptr : owners->ranges.rbegin()->second;
}

std::shared_ptr<TCLine> TCLineCollectionVariable::ownerLineForLineAtIndex(std::size_t index) const {
    if (!owners) return onlyOwner;
    const auto behind = owners->ranges.upper_bound(static_cast<int64_t>(index));
    return behind == owners->ranges.begin() ? nullptr : std::prev(behind)->second;
}

void TCLineCollectionVariable::beginBatchOwnerLinesChange() {
    if (!rare && !onlyOwner && !owners) return;
    madeRare().previousOnlyOwner = onlyOwner;
    rare->previous = nullptr;
    if (!owners) return;
    rare->previous = std::make_unique<Several>();
    rare->previous->owners = owners->owners;
    rare->previous->ranges = owners->ranges;
}

bool TCLineCollectionVariable::ownsAsBefore() const {
    const Several* const previous = rare ? rare->previous.get() : nullptr;
    if (!owners && !previous) return onlyOwner == (rare ? rare->previousOnlyOwner : nullptr);
    return owners && previous && owners->owners == previous->owners && owners->ranges == previous->ranges;
}

// Owners that stayed may rule other ranges after lines have moved, so equal owners are not enough to leave
// the values where they are.
void TCLineCollectionVariable::endBatchOwnerLineChange() {
    if (!owners) {
        if (ownerOfOnlyResult != onlyOwner) ownerOfOnlyResult = nullptr, onlyResult = nullptr;
        if (!ownsAsBefore() && onlyOwner) setValueResult(onlyResult.get(), wholeRange);
        return;
    }
    std::erase_if(owners->valueResults,
                  [&](const auto& entry) { return !owners->owners.contains(entry.first); });
    if (!ownsAsBefore()) {
        const Ranges& ranges = owners->ranges;
        for (auto place = ranges.begin(); place != ranges.end(); ++place) {
            if (!place->second) continue;
            const auto stored = owners->valueResults.find(place->second);
            const auto next = std::next(place);
            const TCRange range{place->first, next == ranges.end() ? -1 : next->first - place->first};
            setValueResult(stored == owners->valueResults.end() ? nullptr : stored->second.get(), range);
        }
    }
    backToOne();
}

std::optional<TCRange>
TCLineCollectionVariable::indexRangeForOwnerLine(const std::shared_ptr<TCLine>& line) const {
    if (!owners) return line && line == onlyOwner ? std::optional(wholeRange) : std::nullopt;
    const Ranges& ranges = owners->ranges;
    auto& rangeByOwner = owners->rangeByOwner;
    if (rangeByOwner.empty()) {
        for (auto place = ranges.begin(); place != ranges.end(); ++place) {
            const auto next = std::next(place);
            const int64_t length = next == ranges.end() ? -1 : next->first - place->first;
            rangeByOwner.emplace(place->second.get(), TCRange{place->first, length});
        }
        rangeByOwner.erase(nullptr);
    }
    const auto found = rangeByOwner.find(line.get());
    return found == rangeByOwner.end() ? std::nullopt : std::optional(found->second);
}
