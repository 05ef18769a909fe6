#include "units/TKUnitsManager.h"

#include "runtime/Unicode.h"
#include "units/TCBasicUnit.h"
#include "units/TCUnitCollection.h"
#include "units/TCUnitsFileParser.h"

#include <utility>

TKUnitsManager::TKUnitsManager()
    : enabledUnits(TCUnitCollection::create())
    , preferences(TCUnitsPreferences::defaultPreferences()) {}

TKUnitsManager::~TKUnitsManager() = default;

void TKUnitsManager::loadUnitsFromFile(const std::string& path, const std::string& localizationFile,
                                       const std::string& fallbackLocalizationFile) {
    // What an earlier load made under other preferences must not stay beside its successor.
    setUnitsEnabled(false);
    for (const auto& unit : loaded.units)
        unitsByIdentifier.erase(unit->identifierBytes());
    loaded = TCUnitsFileParser::readUnitsFile(path, localizationFile, fallbackLocalizationFile, preferences);
    loadingFailures = loaded.failures;
    unitsByIdentifier.reserve(unitsByIdentifier.size() + loaded.units.size());
    for (const auto& unit : loaded.units)
        enter(unit);
    enabledUnits->addContentsOfLoadedUnitsFile(loaded);
}

void TKUnitsManager::loadCurrenciesFromLocalizationFile(const std::string& path) {
    if (enabledUnits->countUnitsOfType(TCUnitTypeMoney) > 0) return;
    for (const auto& unit : TCUnitsFileParser::loadCurrencyUnitsFromLocalizationFile(path, &loadingFailures))
        enter(unit);
}

void TKUnitsManager::enter(const std::shared_ptr<TCUnit>& unit) {
    if (unit->identifierBytes().empty()) return;
    const auto [place, isNew] = unitsByIdentifier.try_emplace(unit->identifierBytes(), unit);
    if (isNew) return;
    // The key is a view of the unit that goes.
    unitsByIdentifier.erase(place);
    unitsByIdentifier.emplace(unit->identifierBytes(), unit);
}

std::shared_ptr<TCUnit> TKUnitsManager::unitWithIdentifier(std::u16string_view identifier) const {
    const std::string bytes = TBF::utf8(identifier);
    const auto found = unitsByIdentifier.find(bytes);
    return found == unitsByIdentifier.end() ? nullptr : found->second;
}

std::shared_ptr<TCMutableBasicUnit>
TKUnitsManager::mutableUnitWithIdentifier(std::u16string_view identifier) const {
    return std::dynamic_pointer_cast<TCMutableBasicUnit>(unitWithIdentifier(identifier));
}

std::vector<std::shared_ptr<TCUnit>> TKUnitsManager::allUnits() const {
    std::vector<std::shared_ptr<TCUnit>> units;
    units.reserve(unitsByIdentifier.size());
    for (const auto& [identifier, unit] : unitsByIdentifier)
        units.push_back(unit);
    return units;
}

bool TKUnitsManager::isEnabled(const TCUnit& unit) const {
    return enabledUnits->unitWithIdentifier(unit.identifier().value_or(std::u16string())).get() == &unit;
}

void TKUnitsManager::setUnitEnabled(const std::shared_ptr<TCUnit>& unit, bool enabled) {
    if (!unit || isEnabled(*unit) == enabled) return;
    if (enabled) {
        enabledUnits->addUnit(unit);
    } else {
        enabledUnits->removeUnit(unit);
    }
}

void TKUnitsManager::setUnitsEnabled(bool enabled) {
    TCUnitsFile changed;
    for (const auto& unit : loaded.units)
        if (isEnabled(*unit) != enabled) changed.units.push_back(unit);
    if (changed.units.empty()) return;
    if (enabled) {
        changed.baseUnitIdentifiersByType = loaded.baseUnitIdentifiersByType;
        enabledUnits->addContentsOfLoadedUnitsFile(changed);
    } else {
        for (const auto& unit : changed.units)
            enabledUnits->removeUnit(unit);
    }
}

void TKUnitsManager::setUnitsPreference(std::u16string_view preference, std::u16string_view option) {
    preferences.insert_or_assign(std::u16string(preference), std::u16string(option));
}

std::optional<std::u16string>
TKUnitsManager::unitsPreferenceOptionForPreferenceName(std::u16string_view name) const {
    const auto found = preferences.find(name);
    return found == preferences.end() ? std::nullopt : std::optional(found->second);
}
