#include "units/TCUnitsFileParser.h"

#include "numbers/Number.h"
#include "runtime/String.h"
#include "runtime/TBFLog.h"
#include "runtime/Unicode.h"
#include "units/TCCompositeUnit.h"
#include "units/TCPrefixedUnits.h"
#include "units/TCUnitComposer.h"
#include "units/TCUnitNameReader.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <filesystem>
#include <set>
#include <utility>

using platform::PropertyList;

namespace {

using Exponents = std::vector<int64_t>;

const Exponents& defaultExponents() {
    static const auto& exponents =
        *new Exponents{-24, -21, -18, -15, -12, -9, -6, -3, -2, -1, 1, 2, 3, 6, 9, 12, 15, 18, 21, 24};
    return exponents;
}

struct ConstantForKey {
    std::string_view key;
    std::u16string_view constant;
};

constexpr ConstantForKey preferenceConstants[] = {
    {"byte-prefix", TCUnitsPreferenceBytePrefix},
    {"imperial-us-or-metric", TCUnitsMeasurementSystem},
};

constexpr ConstantForKey optionConstants[] = {
    {"binary", TCUnitsPreferenceBytePrefixOptionBinary}, {"si", TCUnitsPreferenceBytePrefixOptionSI},
    {"imperial", TCUnitsMeasurementSystemImperial},      {"us", TCUnitsMeasurementSystemUSCustomary},
    {"metric", TCUnitsMeasurementSystemMetric},
};

template <std::size_t count>
std::u16string_view constantForKey(const ConstantForKey (&table)[count], std::string_view key) {
    for (const ConstantForKey& row : table)
        if (row.key == key) return row.constant;
    return {};
}

// "si+3-metre"; the base is a view of the identifier.
struct PrefixedIdentifier {
    int64_t exponent;
    std::string_view base;
};

std::optional<PrefixedIdentifier> prefixedIdentifier(std::string_view identifier) {
    constexpr std::string_view start = "si";
    if (!identifier.starts_with(start)) return std::nullopt;
    std::string_view rest = identifier.substr(start.size());
    if (!rest.starts_with('+') && !rest.starts_with('-')) return std::nullopt;
    if (rest.starts_with('+')) rest.remove_prefix(1);
    PrefixedIdentifier parts{};
    const auto parsed = std::from_chars(rest.data(), rest.data() + rest.size(), parts.exponent);
    rest.remove_prefix(static_cast<std::size_t>(parsed.ptr - rest.data()));
    if (parsed.ec != std::errc() || !rest.starts_with('-')) return std::nullopt;
    parts.base = rest.substr(1);
    return parts;
}

// A number other than 0; none for what is no number.
TBF::Ref<TBF::Number> sizeOf(const PropertyList& value) {
    const auto text = TCDecimalTextOfValue(value);
    auto number = text ? TBF::Number::create(text->c_str(), TBFNumberTypeDecimal) : nullptr;
    return number && m_apm_sign(number->mapmRef()) != 0 ? number : nullptr;
}

std::optional<PropertyList> readList(const std::string& path, std::string* error) {
    std::error_code failed;
    const auto resolved = std::filesystem::canonical(path, failed);
    return PropertyList::read(failed ? path : resolved.string(), error);
}

// What is needed of a list stands under this key. Null, and a failure, for a list without it.
PropertyList listWith(std::string_view key, const std::string& path, std::vector<std::string>& failures) {
    std::string error;
    auto list = readList(path, &error);
    if (list && !(*list)[key].isNull()) return std::move(*list);
    failures.push_back(list ? path + ": it has no \"" + std::string(key) + "\"" : error);
    TBFErrorLog("Error while opening names or data of units: '%s'", failures.back().c_str());
    return {};
}

PropertyList localizationAt(const std::string& path, std::vector<std::string>& failures) {
    return path.empty() ? PropertyList() : listWith("Names", path, failures);
}

} // namespace

// One load. Names of methods follow the order of the work.
class TCUnitsFileParser::Loading {
public:
    Loading(const PropertyList& unitsFile, const PropertyList& namesFile, const PropertyList& fallbackNames)
        : unitsDataSource(unitsFile)
        , localization(namesFile)
        , fallbackLocalization(fallbackNames) {}

    TCUnitsFile load(const TCUnitsPreferenceChoices& preferences);

private:
    struct Entry {
        const PropertyList* values = nullptr;
        TCUnitType type = TCUnitTypeNone;
        enum class State { unseen, entered, done } state = State::unseen;
    };
    using Entries = std::map<std::string_view, Entry>;
    struct Visit {
        std::string_view identifier;
        std::vector<std::string_view> parts; // of a composition, the base units of prefixed ones
        std::size_t next = 0;
    };

    void loadSIPrefixes();
    void loadUnitDictionaries();
    void loadUnitsFromPreferences(const TCUnitsPreferenceChoices& preferences);
    TCUnitsPreference preferenceWithEntries(const PropertyList& options);
    void loadRegularUnits();
    std::map<TCUnitType, std::u16string> baseUnits() const;

    std::shared_ptr<TCUnit> getOrLoadUnit(std::string_view identifier);
    void loadWithParts(std::string_view identifier);
    void makeUnit(std::string_view identifier, const Entry& entry);
    std::shared_ptr<TCUnit> composedUnit(std::string_view identifier, const Entry& entry,
                                         const TCUnitNames& names);
    std::shared_ptr<TCUnit> basicUnit(std::string_view identifier, const Entry& entry,
                                      const TCUnitNames& names);
    bool collectUnits(const PropertyList& identifiers, std::vector<std::shared_ptr<TCUnit>>& units);
    void loadSIPrefixedUnits(const std::shared_ptr<TCBasicUnit>& unit, const Exponents& exponents);
    std::shared_ptr<TCUnit> prefixedUnit(const PrefixedIdentifier& parts);
    std::optional<Exponents> allowedExponents(std::string_view key, std::string_view identifier) const;

    std::shared_ptr<TCUnit> loadedUnit(std::string_view identifier) const;
    void enter(std::shared_ptr<TCUnit> unit);

    const PropertyList& localizedValue(std::string_view key) const;
    const PropertyList& localizedValueForUnit(std::string_view key, std::string_view identifier) const;
    const PropertyList& localizedNames(std::string_view identifier) const;

    const PropertyList& unitsDataSource;
    const PropertyList& localization;
    const PropertyList& fallbackLocalization;
    std::map<int64_t, TCUnitPrefix> prefixes;
    Entries entries;
    std::vector<std::shared_ptr<TCUnit>> units; // in order
    // The keys are the units' own identifiers.
    std::unordered_map<std::string_view, std::shared_ptr<TCUnit>> loadedUnitsByIdentifier;
};

TCUnitsFile TCUnitsFileParser::Loading::load(const TCUnitsPreferenceChoices& preferences) {
    loadSIPrefixes();
    loadUnitDictionaries();
    loadUnitsFromPreferences(preferences);
    loadRegularUnits();
    return {std::move(units), baseUnits(), {}};
}

// The first of three places that has the value.
const PropertyList& TCUnitsFileParser::Loading::localizedValue(std::string_view key) const {
    for (const PropertyList* const place : {&localization, &fallbackLocalization})
        if (const PropertyList& value = (*place)[key]; !value.isNull()) return value;
    return unitsDataSource[key];
}

const PropertyList& TCUnitsFileParser::Loading::localizedValueForUnit(std::string_view key,
                                                                      std::string_view identifier) const {
    for (const PropertyList* const place : {&localization, &fallbackLocalization})
        if (const PropertyList& value = (*place)["Names"][identifier][key]; !value.isNull()) return value;
    const auto entry = entries.find(identifier);
    static const PropertyList nothing;
    return entry == entries.end() || !entry->second.values ? nothing : (*entry->second.values)[key];
}

const PropertyList& TCUnitsFileParser::Loading::localizedNames(std::string_view identifier) const {
    for (const PropertyList* const place : {&localization, &fallbackLocalization})
        if (const PropertyList& names = (*place)["Names"][identifier]; !names.isNull()) return names;
    const auto entry = entries.find(identifier);
    static const PropertyList nothing;
    return entry == entries.end() || !entry->second.values ? nothing : *entry->second.values;
}

void TCUnitsFileParser::Loading::loadSIPrefixes() {
    const auto text = [](const PropertyList& value) {
        const auto string = value.string();
        return string ? TBF::String::createWithUTF8(*string) : nullptr;
    };
    for (const PropertyList& entry : localizedValue("SIPrefixes").array()) {
        const auto exponent = entry["exponent"].asInteger();
        if (!exponent) continue;
        prefixes[*exponent] = {*exponent, text(entry["prefix"]), text(entry["symbol"]),
                               sizeOf(entry["factor"])};
    }
}

void TCUnitsFileParser::Loading::loadUnitDictionaries() {
    for (const PropertyList::Entry& category : unitsDataSource["Units"].dictionary()) {
        const TCUnitType type = TCUnitTypeFromCategory(category.key);
        for (const PropertyList::Entry& unit : category.value.dictionary())
            if (!unit.key.empty()) entries[unit.key] = {&unit.value, type};
    }
}

void TCUnitsFileParser::Loading::loadRegularUnits() {
    // In the order of the file's keys, so that units that clash come out in the same order every time.
    for (const auto& [identifier, entry] : entries)
        getOrLoadUnit(identifier);
}

std::map<TCUnitType, std::u16string> TCUnitsFileParser::Loading::baseUnits() const {
    std::map<TCUnitType, std::u16string> identifiers;
    for (const PropertyList::Entry& entry : unitsDataSource["Base Units"].dictionary())
        if (const auto identifier = entry.value.string()) {
            identifiers[TCUnitTypeFromCategory(entry.key)] = TBF::utf16(*identifier);
        }
    return identifiers;
}

std::shared_ptr<TCUnit> TCUnitsFileParser::Loading::loadedUnit(std::string_view identifier) const {
    const auto found = loadedUnitsByIdentifier.find(identifier);
    return found == loadedUnitsByIdentifier.end() ? nullptr : found->second;
}

void TCUnitsFileParser::Loading::enter(std::shared_ptr<TCUnit> unit) {
    if (!unit || !loadedUnitsByIdentifier.try_emplace(unit->identifierBytes(), unit).second) return;
    units.push_back(std::move(unit));
}

// Only the units of the chosen options exist. A regular unit of the same identifier isn't loaded any more,
// and one that is composed of it takes the alias.
void TCUnitsFileParser::Loading::loadUnitsFromPreferences(const TCUnitsPreferenceChoices& choices) {
    std::map<std::u16string_view, TCUnitsPreference> preferences;
    for (const PropertyList::Entry& entry : unitsDataSource["Preferences"].dictionary()) {
        const std::u16string_view constant = constantForKey(preferenceConstants, entry.key);
        if (!constant.empty()) preferences[constant] = preferenceWithEntries(entry.value);
    }
    for (const auto& [preference, optionName] : choices) {
        const auto found = preferences.find(preference);
        if (found == preferences.end()) continue;
        const TCUnitsPreferenceOption* const option = found->second.optionNamed(optionName);
        if (!option) continue;
        for (const auto& alias : option->aliasUnits)
            enter(alias->unitWithAliasUnitValue());
    }
}

TCUnitsPreference TCUnitsFileParser::Loading::preferenceWithEntries(const PropertyList& options) {
    TCUnitsPreference preference;
    for (const PropertyList::Entry& optionEntry : options.dictionary()) {
        const std::u16string_view constant = constantForKey(optionConstants, optionEntry.key);
        if (constant.empty()) continue;
        TCUnitsPreferenceOption& option = preference.options[std::u16string(constant)];
        for (const PropertyList::Entry& alias : optionEntry.value.dictionary()) {
            if (alias.key.empty()) continue;
            const auto targetIdentifier = alias.value.string();
            auto target = targetIdentifier ? getOrLoadUnit(*targetIdentifier) : nullptr;
            if (!target) {
                TBFErrorLog("Unit %s stands for a unit that isn't there", alias.key.c_str());
                continue;
            }
            option.aliasUnits.push_back(
                std::make_shared<TCAliasUnit>(TBF::utf16(alias.key), std::move(target),
                                              TCUnitNamesFromDictionary(localizedNames(alias.key))));
        }
    }
    return preference;
}

std::shared_ptr<TCUnit> TCUnitsFileParser::Loading::getOrLoadUnit(std::string_view identifier) {
    if (auto unit = loadedUnit(identifier)) return unit;
    const auto prefixed = prefixedIdentifier(identifier);
    loadWithParts(prefixed ? prefixed->base : identifier);
    if (auto unit = loadedUnit(identifier)) return unit;
    return prefixed ? prefixedUnit(*prefixed) : nullptr;
}

// What a composed unit is made of is loaded before it, however long the chain; a unit that is made of itself
// isn't loaded.
void TCUnitsFileParser::Loading::loadWithParts(std::string_view first) {
    std::vector<Visit> visits;
    const auto visit = [&](std::string_view identifier) {
        const auto found = entries.find(identifier);
        if (found == entries.end() || found->second.state != Entry::State::unseen) return;
        Entry& entry = found->second;
        entry.state = Entry::State::entered;
        Visit& made = visits.emplace_back(Visit{found->first, {}});
        for (const char* const side : {"numerator", "denominator"}) {
            for (const PropertyList& part : (*entry.values)["composition"][side].array()) {
                const std::string_view name = part.string().value_or(std::string_view());
                const auto prefixed = prefixedIdentifier(name);
                made.parts.push_back(prefixed ? prefixed->base : name);
            }
        }
    };
    visit(first);
    while (!visits.empty()) {
        Visit& top = visits.back();
        if (top.next < top.parts.size()) {
            visit(top.parts[top.next++]);
            continue;
        }
        Entry& entry = entries[top.identifier];
        if (!loadedUnit(top.identifier)) makeUnit(top.identifier, entry);
        entry.state = Entry::State::done;
        visits.pop_back();
    }
}

void TCUnitsFileParser::Loading::makeUnit(std::string_view identifier, const Entry& entry) {
    TCUnitNames names;
    if ((*entry.values)["expect-names"].asBoolean().value_or(true)) {
        names = TCUnitNamesFromDictionary(localizedNames(identifier));
        if (!names.singular) return;
    }
    const bool isComposed = !(*entry.values)["composition"].isNull();
    auto unit = isComposed ? composedUnit(identifier, entry, names) : basicUnit(identifier, entry, names);
    if (!unit) return;
    constexpr int64_t limit = 1'000'000;
    const int64_t factor = (*entry.values)["ambiguousTieBreakFactor"].asInteger().value_or(0);
    unit->setAmbiguousTieBreakFactor(static_cast<int32_t>(std::clamp(factor, -limit, limit)));
    enter(std::move(unit));
}

bool TCUnitsFileParser::Loading::collectUnits(const PropertyList& identifiers,
                                              std::vector<std::shared_ptr<TCUnit>>& result) {
    for (const PropertyList& item : identifiers.array()) {
        const auto identifier = item.string();
        auto unit = identifier ? loadedUnit(*identifier) : nullptr;
        if (const auto prefixed = identifier && !unit ? prefixedIdentifier(*identifier) : std::nullopt) {
            unit = prefixedUnit(*prefixed);
        }
        if (!unit) return false;
        result.push_back(std::move(unit));
    }
    return true;
}

std::shared_ptr<TCUnit> TCUnitsFileParser::Loading::composedUnit(std::string_view identifier,
                                                                 const Entry& entry,
                                                                 const TCUnitNames& names) {
    const PropertyList& composition = (*entry.values)["composition"];
    std::vector<std::shared_ptr<TCUnit>> numerators;
    std::vector<std::shared_ptr<TCUnit>> denominators;
    if (!collectUnits(composition["numerator"], numerators) ||
        !collectUnits(composition["denominator"], denominators)) {
        TBFErrorLog("Unit %s is composed of a unit that isn't there", std::string(identifier).c_str());
        return nullptr;
    }
    return TCUnitComposer::composeUnitWithIdentifier(TBF::utf16(identifier), entry.type, names, numerators,
                                                     denominators);
}

std::shared_ptr<TCUnit> TCUnitsFileParser::Loading::basicUnit(std::string_view identifier, const Entry& entry,
                                                              const TCUnitNames& names) {
    const PropertyList& values = *entry.values;
    const auto factor = sizeOf(values["factor"]) ? TCTextOfValue(values["factor"]) : std::nullopt;
    if (!factor) return nullptr;
    const auto offset = TCDecimalTextOfValue(values["offset"]);
    const std::u16string offsetText = TBF::utf16(offset.value_or(std::string()));
    auto unit = TCBasicUnit::unitWithIdentifier(TBF::utf16(identifier), entry.type, *factor, names,
                                                offset ? std::optional<std::u16string_view>(offsetText)
                                                       : std::nullopt);
    if (!unit) return nullptr;
    const auto exponents = allowedExponents("SIPrefixExponents", identifier);
    if (exponents || values["SIPrefixes"].asBoolean().value_or(false)) {
        loadSIPrefixedUnits(unit, exponents ? *exponents : defaultExponents());
    }
    return unit;
}

std::optional<Exponents> TCUnitsFileParser::Loading::allowedExponents(std::string_view key,
                                                                      std::string_view identifier) const {
    const auto text = localizedValueForUnit(key, identifier).string();
    return text ? std::optional(TCIntegersOfText(*text)) : std::nullopt;
}

void TCUnitsFileParser::Loading::loadSIPrefixedUnits(const std::shared_ptr<TCBasicUnit>& unit,
                                                     const Exponents& exponents) {
    const auto ownShort = allowedExponents("SIPrefixExponents-veryShort", unit->identifierBytes());
    const Exponents& shortExponents = ownShort ? *ownShort : defaultExponents();
    const TCPrefixedUnits prefixedUnits(unit);
    for (const int64_t exponent : exponents) {
        const auto prefix = prefixes.find(exponent);
        if (prefix == prefixes.end()) continue;
        if (loadedUnit(TCPrefixedUnits::identifier(exponent, unit->identifierBytes()))) continue;
        const bool allowsShort =
            std::find(shortExponents.begin(), shortExponents.end(), exponent) != shortExponents.end();
        enter(prefixedUnits.unitWithPrefix(prefix->second, allowsShort));
    }
}

// A prefixed unit that isn't among those of its base's list, for a composition that names it.
std::shared_ptr<TCUnit> TCUnitsFileParser::Loading::prefixedUnit(const PrefixedIdentifier& parts) {
    const auto base = std::dynamic_pointer_cast<TCBasicUnit>(loadedUnit(parts.base));
    if (!base) return nullptr;
    loadSIPrefixedUnits(base, {parts.exponent});
    return loadedUnit(TCPrefixedUnits::identifier(parts.exponent, base->identifierBytes()));
}

TCUnitsFile TCUnitsFileParser::readUnits(const PropertyList& units, const PropertyList& localization,
                                         const PropertyList& fallbackLocalization,
                                         const TCUnitsPreferenceChoices& preferences) {
    return Loading(units, localization, fallbackLocalization).load(preferences);
}

TCUnitsFile TCUnitsFileParser::readUnitsFile(const std::string& path, const std::string& localizationFile,
                                             const std::string& fallbackLocalizationFile,
                                             const TCUnitsPreferenceChoices& preferences) {
    std::vector<std::string> failures;
    const PropertyList units = listWith("Units", path, failures);
    const PropertyList names = localizationAt(localizationFile, failures);
    const PropertyList fallbackNames = localizationAt(fallbackLocalizationFile, failures);
    TCUnitsFile file = readUnits(units, names, fallbackNames, preferences);
    file.failures = std::move(failures);
    return file;
}

std::vector<std::shared_ptr<TCMutableBasicUnit>>
TCUnitsFileParser::loadCurrencyUnits(const PropertyList& localization) {
    std::vector<std::shared_ptr<TCMutableBasicUnit>> units;
    for (const PropertyList::Entry& entry : localization["Currencies"].dictionary()) {
        const std::u16string code = TBF::utf16(entry.key);
        if (auto unit = TCMutableBasicUnit::unitWithIdentifier(
                code, TCUnitTypeMoney, u"1.0", TCCurrencyNamesFromDictionary(code, entry.value))) {
            units.push_back(std::move(unit));
        }
    }
    return units;
}

std::vector<std::shared_ptr<TCMutableBasicUnit>>
TCUnitsFileParser::loadCurrencyUnitsFromLocalizationFile(const std::string& path,
                                                         std::vector<std::string>* failures) {
    std::vector<std::string> unheard;
    return loadCurrencyUnits(listWith("Currencies", path, failures ? *failures : unheard));
}
