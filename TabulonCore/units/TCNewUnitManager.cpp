#include "units/TCNewUnitManager.h"

#include "runtime/Unicode.h"
#include "units/TCUnit.h"
#include "units/UnitCollection.h"
#include "units/UnitContainer.h"

#include <utility>

namespace {

// White space as it stands between the words of a name.
constexpr std::u16string_view spaces = u" \t\n\v\f\r\u00A0";

std::vector<std::u16string_view> wordsOf(std::u16string_view name) {
    std::vector<std::u16string_view> words;
    for (std::size_t start = name.find_first_not_of(spaces); start != name.npos;) {
        const std::size_t end = std::min(name.find_first_of(spaces, start), name.size());
        words.push_back(name.substr(start, end - start));
        start = name.find_first_not_of(spaces, end);
    }
    return words;
}

// Throughput has a type only as a fraction has it.
TBFUnitType fractionTypeOf(TCUnitType type) {
    return type == TCUnitTypeComputerThroughput ? TBFUnitTypeComputerThroughput
                                                : TCUnitTypeToTBFUnitType(type);
}

} // namespace

const std::shared_ptr<TCNewUnitManager>& TCNewUnitManager::sharedManager() {
    static const auto& manager = *new auto(std::make_shared<TCNewUnitManager>());
    return manager;
}

TCNewUnitManager::TCNewUnitManager()
    : TCNewUnitManager(TBF::UnitCollection::create()) {}

TCNewUnitManager::TCNewUnitManager(TBF::Ref<TBF::UnitCollection> collection)
    : unitCollection(std::move(collection)) {}

TCNewUnitManager::~TCNewUnitManager() = default;

std::size_t TCNewUnitManager::countOfUnits() const {
    return static_cast<std::size_t>(unitCollection->countOfUnits());
}

std::size_t TCNewUnitManager::countUnitsOfType(TCUnitType type) const {
    return static_cast<std::size_t>(unitCollection->countOfUnitsWithType(fractionTypeOf(type)));
}

std::vector<std::shared_ptr<TCUnit>> TCNewUnitManager::allUnits() const {
    std::vector<std::shared_ptr<TCUnit>> units;
    units.reserve(unitsByIdentifier.size());
    for (const auto& [identifier, unit] : unitsByIdentifier)
        units.push_back(unit);
    return units;
}

void TCNewUnitManager::addUnits(std::span<const std::shared_ptr<TCUnit>> units) {
    std::vector<TBF::Ref<TBF::UnitContainer>> containers;
    containers.reserve(units.size());
    for (const auto& unit : units)
        if (unit) containers.push_back(TBF::retain(unit->tbfUnitContainer()));
    unitCollection->addUnits(containers);

    const std::lock_guard guard(mutex);
    unitsByIdentifier.reserve(unitsByIdentifier.size() + units.size());
    for (const auto& unit : units) {
        if (!unit) continue;
        const auto [place, isNew] = unitsByIdentifier.try_emplace(unit->identifierBytes(), unit);
        if (isNew || place->second == unit) continue;
        // The key is a view of the unit that goes.
        unitsByIdentifier.erase(place);
        unitsByIdentifier.emplace(unit->identifierBytes(), unit);
    }
}

void TCNewUnitManager::addUnit(const std::shared_ptr<TCUnit>& unit) {
    addUnits({&unit, 1});
}

void TCNewUnitManager::removeUnit(const std::shared_ptr<TCUnit>& unit) {
    if (!unit) return;
    const std::shared_ptr<TCUnit> kept = unit; // the argument may be the table's own entry
    unitCollection->removeUnit(*kept->tbfUnitContainer());
    const std::lock_guard guard(mutex);
    unitsByIdentifier.erase(kept->identifierBytes());
}

std::shared_ptr<TCUnit> TCNewUnitManager::unitWithIdentifierBytes(std::string_view identifier) const {
    const auto found = unitsByIdentifier.find(identifier);
    return found == unitsByIdentifier.end() ? nullptr : found->second;
}

std::shared_ptr<TCUnit> TCNewUnitManager::unitWithIdentifier(std::u16string_view identifier) const {
    return unitWithIdentifierBytes(TBF::utf8(identifier));
}

std::shared_ptr<TCUnit> TCNewUnitManager::unitWithName(std::u16string_view name) const {
    if (name.empty()) return nullptr;
    const auto clash = nameClashIdentifiersByName.find(name);
    if (clash != nameClashIdentifiersByName.end()) {
        if (auto unit = unitWithIdentifierBytes(clash->second)) return unit;
    }
    const auto found = unitCollection->findTopUnitMatchingWords(wordsOf(name), nullptr, nullptr, nullptr);
    return found ? unitWithIdentifierBytes(found->identifier()) : nullptr;
}

void TCNewUnitManager::setDefaultUnitForClashingName(const std::shared_ptr<TCUnit>& unit,
                                                     std::u16string_view name) {
    if (!unit) return;
    const auto [entry, isNew] =
        nameClashIdentifiersByName.try_emplace(std::u16string(name), unit->identifierBytes());
    if (!isNew) {
        if (const auto old = unitWithIdentifierBytes(entry->second))
            old->setInternalAmbiguousTieBreakFactor(0);
        entry->second = unit->identifierBytes();
    }
    unit->setInternalAmbiguousTieBreakFactor(1);
}

void TCNewUnitManager::setDefaultUnitForType(const std::shared_ptr<TCUnit>& unit, TCUnitType type) {
    if (type == TCUnitTypeNone) return; // of a category that isn't known
    unitCollection->setBaseUnit(fractionTypeOf(type), unit ? unit->tbfUnitContainer() : nullptr);
}
