#include "units/UnitCollection.h"

#include "runtime/Unicode.h"
#include "units/UnitContainer.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <mutex>
#include <utility>

namespace TBF {

namespace {

std::size_t slotOf(TBFUnitType type) {
    return static_cast<std::size_t>(type);
}

bool isType(TBFUnitType type) {
    return type >= 0 && type < TBFUnitTypeCount;
}

} // namespace

bool UnitCollection::ScalarLess::operator()(const Ref<UnitContainer>& a, const Ref<UnitContainer>& b) const {
    return (*this)(a, b->scalar());
}

// A container may have lost its fraction since it came in, and then stands before all others.
bool UnitCollection::ScalarLess::operator()(const Ref<UnitContainer>& a, M_APM b) const {
    const M_APM scalar = a->scalar();
    return b && (!scalar || m_apm_compare(scalar, b) < 0);
}

UnitCollection::UnitCollection()
    : index(UnitSearchIndex::create()) {}

UnitCollection::~UnitCollection() = default;

Ref<UnitCollection> UnitCollection::create() {
    return make<UnitCollection>();
}

void UnitCollection::addUnit(UnitContainer& unit) {
    const Ref<UnitContainer> owned = TBF::retain(&unit);
    addUnits({&owned, 1});
}

void UnitCollection::addUnits(std::span<const Ref<UnitContainer>> newUnits) {
    {
        const std::unique_lock guard(lock);
        units.reserve(units.size() + newUnits.size());
        for (const Ref<UnitContainer>& unit : newUnits)
            addToTables(*unit);
    }
    index->addUnits(newUnits);
}

void UnitCollection::addToTables(UnitContainer& unit) {
    const TBFUnitType type = unit.unitType();
    units.push_back({TBF::retain(&unit), type});
    ++countsByType[slotOf(type)];
    Ref<UnitContainer>& base = baseUnits[slotOf(type)];
    if (!base && unit.isBaseUnit()) base = TBF::retain(&unit);
}

void UnitCollection::removeUnit(UnitContainer& unit) {
    const Ref<UnitContainer> kept = TBF::retain(&unit); // the collection's may be the last reference
    {
        const std::unique_lock guard(lock);
        const auto found = std::find_if(units.begin(), units.end(), [&unit](const Entry& entry) {
            return entry.unit->identifier() == unit.identifier();
        });
        if (found != units.end()) {
            --countsByType[slotOf(found->type)];
            units.erase(found);
        }
        if (unit.isBaseUnit()) baseUnits[slotOf(unit.unitType())].reset();
    }
    index->removeUnit(unit);
}

int32_t UnitCollection::countOfUnits() const {
    const std::shared_lock guard(lock);
    return static_cast<int32_t>(units.size());
}

int32_t UnitCollection::countOfUnitsWithType(TBFUnitType type) const {
    const std::shared_lock guard(lock);
    return isType(type) ? countsByType[slotOf(type)] : 0;
}

UnitContainer* UnitCollection::baseUnit(TBFUnitType type) const {
    const std::shared_lock guard(lock);
    return isType(type) ? baseUnits[slotOf(type)].get() : nullptr;
}

void UnitCollection::setBaseUnit(TBFUnitType type, UnitContainer* unit) {
    const std::unique_lock guard(lock);
    if (isType(type)) baseUnits[slotOf(type)] = TBF::retain(unit);
}

UnitCollection::SearchResults UnitCollection::findUnitsMatchingWords(Words words, bool* hasLongerNames,
                                                                     bool* exactMatch) const {
    std::vector<std::u16string> lowercased;
    lowercased.reserve(words.size());
    for (const std::u16string_view word : words)
        lowercased.push_back(lowercase(word));
    const std::vector<std::u16string_view> views(lowercased.begin(), lowercased.end());
    return findUnitsMatchingWords(words, views, hasLongerNames, exactMatch);
}

UnitCollection::SearchResults UnitCollection::findUnitsMatchingWords(Words words, Words lowercaseWords,
                                                                     bool* hasLongerNames,
                                                                     bool* exactMatch) const {
    SearchResults exact;
    SearchResults insensitive;
    const auto sort = [&](const UnitSearchIndex::Result& result) {
        const bool isExact = result.hasWords(words);
        if (!isExact && result.isCaseSensitive) return;
        (isExact ? exact : insensitive).push_back({result.unit, result.formatType});
    };
    index->visitLowercase(lowercaseWords, hasLongerNames, sort);
    const bool hasExact = !exact.empty();
    if (exactMatch) *exactMatch = hasExact;
    return hasExact ? exact : insensitive;
}

Ref<UnitContainer> UnitCollection::findTopUnitMatchingWords(Words words, bool* hasLongerNames,
                                                            bool* exactMatch,
                                                            TBFUnitFormatType* formatType) const {
    const SearchResults results = findUnitsMatchingWords(words, hasLongerNames, exactMatch);
    if (results.empty()) return {};
    if (formatType) *formatType = results.front().formatType;
    return results.front().unit;
}

void UnitCollection::addSIExponentLink(UnitContainer& unit, UnitContainer& linkedUnit, int8_t exponent) {
    const std::unique_lock guard(lock);
    siExponentLinks[unit.identifier()].insert_or_assign(exponent, TBF::retain(&linkedUnit));
    linkUnits(unit, linkedUnit);
}

void UnitCollection::addNonSILink(UnitContainer& unit, UnitContainer& linkedUnit) {
    const std::unique_lock guard(lock);
    linkUnits(unit, linkedUnit);
}

void UnitCollection::linkUnits(UnitContainer& unit, UnitContainer& linkedUnit) {
    unityLinks.insert_or_assign(linkedUnit.identifier(), TBF::retain(&unit));
    unityLinks.try_emplace(unit.identifier(), TBF::retain(&unit));
    // Units without a fraction have no place in the order.
    OrderedUnits& ordered = orderedLinks[unit.identifier()];
    if (linkedUnit.scalar()) ordered.insert(TBF::retain(&linkedUnit));
    if (unit.scalar()) ordered.insert(TBF::retain(&unit));
}

UnitContainer* UnitCollection::unityLinkedUnit(const UnitContainer& unit) const {
    const std::shared_lock guard(lock);
    const auto found = unityLinks.find(unit.identifier());
    return found == unityLinks.end() ? nullptr : found->second.get();
}

UnitContainer* UnitCollection::siExponentUnit(UnitContainer& unit, int8_t exponent) const {
    if (exponent == 0) return &unit;
    const std::shared_lock guard(lock);
    const auto links = siExponentLinks.find(unit.identifier());
    if (links == siExponentLinks.end()) return nullptr;
    const auto found = links->second.find(exponent);
    return found == links->second.end() ? nullptr : found->second.get();
}

UnitContainer* UnitCollection::largestLinkedUnitWithin(const UnitContainer& unit, M_APM scalar) const {
    const std::shared_lock guard(lock);
    const auto links = orderedLinks.find(unit.identifier());
    if (links == orderedLinks.end() || links->second.empty() || !scalar) return nullptr;
    const OrderedUnits& ordered = links->second;
    const auto firstNotLess = std::partition_point(
        ordered.begin(), ordered.end(), [&](const auto& linked) { return ScalarLess()(linked, scalar); });
    if (firstNotLess == ordered.end()) return ordered.rbegin()->get();
    // What isn't less has a scalar.
    if (m_apm_compare((*firstNotLess)->scalar(), scalar) == 0) return firstNotLess->get();
    return firstNotLess == ordered.begin() ? nullptr : std::prev(firstNotLess)->get();
}

} // namespace TBF
