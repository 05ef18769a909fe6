#include "lines/TCLineCollectionVariable.h"

#include "eval/variables/Variable.h"
#include "lines/TCLine.h"
#include "results/TCResult.h"
#include "runtime/String.h"
#include "units/UnitContainer.h"

#include <algorithm>
#include <utility>

std::shared_ptr<TCLineCollectionVariable>
TCLineCollectionVariable::variableWithName(std::u16string_view name, std::shared_ptr<TCLine> line) {
    auto foundation = TBF::Variable::create();
    foundation->setName(TBF::String::create(name));
    auto variable = std::make_shared<TCLineCollectionVariable>(Passkey(), std::move(foundation));
    variable->addOwnerLine(line, wholeRange);
    variable->setLine(std::move(line));
    return variable;
}

TCLineCollectionVariable::TCLineCollectionVariable(Passkey key, TBF::Ref<TBF::Variable> variable)
    : TCVariable(key, std::move(variable)) {}

TCLineCollectionVariable::~TCLineCollectionVariable() = default;

void TCLineCollectionVariable::setValueResult(const std::shared_ptr<TCResult>& result,
                                              const std::shared_ptr<TCLine>& ownerLine) {
    if (!ownerLine) return;
    valueResults.insert_or_assign(ownerLine, result);
    if (const auto range = indexRangeForOwnerLine(ownerLine)) setValueResult(result.get(), *range);
}

void TCLineCollectionVariable::setValueResult(const TCResult* result, TCRange lineIndexRange) {
    setDelocalizedValueOfResult(result, lineIndexRange);
}

std::optional<std::u16string>
TCLineCollectionVariable::delocalizedValueForLineAtIndex(std::size_t index) const {
    const auto scope = static_cast<int32_t>(std::min<std::size_t>(index, TBF::Variable::endScope));
    const TBF::String* const text = TBFVariableGetValueReferenceForScopeIndex(tbfVariable(), scope);
    return text ? std::optional(text->utf16()) : std::nullopt;
}

std::optional<std::u16string>
TCLineCollectionVariable::localizedValueForLineAtIndex(std::size_t index) const {
    return localizedValueFromDelocalizedValue(delocalizedValueForLineAtIndex(index));
}

void TCLineCollectionVariable::addOwnerLine(const std::shared_ptr<TCLine>& line, TCRange lineIndexRange) {
    if (!line) return;
    owners.insert(line);
    rangeByOwner.clear();
    splitRangeAt(lineIndexRange.location);
    const bool runsToEnd = lineIndexRange.length < 0;
    if (!runsToEnd) splitRangeAt(lineIndexRange.end());
    ranges.erase(ranges.upper_bound(lineIndexRange.location),
                 runsToEnd ? ranges.end() : ranges.lower_bound(lineIndexRange.end()));
    if (runsToEnd || lineIndexRange.length > 0) ranges.insert_or_assign(lineIndexRange.location, line);
}

// Makes a range begin at the index, with what rules there.
void TCLineCollectionVariable::splitRangeAt(int64_t index) {
    const auto behind = ranges.upper_bound(index);
    ranges.emplace(index, behind == ranges.begin() ? nullptr : std::prev(behind)->second);
}

void TCLineCollectionVariable::removeAllOwnerLines() {
    owners.clear();
    ranges.clear();
    rangeByOwner.clear();
}

// The ranges of owners run to the end, so that of the last one is the last.
std::shared_ptr<TCLine> TCLineCollectionVariable::lastOwnerLine() const {
    return ranges.empty() ? nullptr : ranges.rbegin()->second;
}

std::shared_ptr<TCLine> TCLineCollectionVariable::ownerLineForLineAtIndex(std::size_t index) const {
    const auto behind = ranges.upper_bound(static_cast<int64_t>(index));
    return behind == ranges.begin() ? nullptr : std::prev(behind)->second;
}

void TCLineCollectionVariable::beginBatchOwnerLinesChange() {
    previousOwners = owners;
    previousRanges = ranges;
}

// Owners that stayed may rule other ranges after lines have moved, so equal owners are not enough to leave
// the values where they are.
void TCLineCollectionVariable::endBatchOwnerLineChange() {
    std::erase_if(valueResults, [&](const auto& entry) { return !owners.contains(entry.first); });
    if (owners == previousOwners && ranges == previousRanges) return;
    for (auto place = ranges.begin(); place != ranges.end(); ++place) {
        if (!place->second) continue;
        const auto stored = valueResults.find(place->second);
        const auto next = std::next(place);
        const TCRange range{place->first, next == ranges.end() ? -1 : next->first - place->first};
        setValueResult(stored == valueResults.end() ? nullptr : stored->second.get(), range);
    }
}

std::optional<TCRange>
TCLineCollectionVariable::indexRangeForOwnerLine(const std::shared_ptr<TCLine>& line) const {
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
