#pragma once

// A small invented vocabulary for the tests of units: enough types to see every rule, with factors that are
// easy to check, and a base unit for each type that stands in a relation between types. Made once and shared
// by all tests of the process, which don't change it.

#include "numbers/Number.h"
#include "numbers/TBFMAPMExtensions.h"
#include "runtime/Ref.h"
#include "runtime/String.h"
#include "units/Unit.h"
#include "units/UnitCollection.h"
#include "units/UnitContainer.h"
#include "units/UnitFraction.h"
#include "units/UnitFractionBuilder.h"
#include "units/UnitTypeFraction.h"

#include <cstddef>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>

namespace UnitTesting {

struct Row {
    const char* symbol; // very short name, and the key of the vocabulary
    const char* singular;
    const char* plural;
    TBFUnitType type;
    const char* factor;
    const char* offset; // null for none
};

inline constexpr Row rows[] = {
    {"m", "metre", "metres", TBFUnitTypeLength, "1", nullptr},
    {"km", "kilometre", "kilometres", TBFUnitTypeLength, "1000", nullptr},
    {"ft", "foot", "feet", TBFUnitTypeLength, "0.3048", nullptr},
    {"kg", "kilogram", "kilograms", TBFUnitTypeMass, "1", nullptr},
    {"$", "dollar", "dollars", TBFUnitTypeMoney, "1", nullptr},
    {"s", "second", "seconds", TBFUnitTypeTime, "1", nullptr},
    {"min", "minute", "minutes", TBFUnitTypeTime, "60", nullptr},
    {"h", "hour", "hours", TBFUnitTypeTime, "3600", nullptr},
    {"K", "kelvin", "kelvins", TBFUnitTypeTemperature, "1", nullptr},
    {"degC", "degree Celsius", "degrees Celsius", TBFUnitTypeTemperature, "1", "273.15"},
    {"degF", "degree Fahrenheit", "degrees Fahrenheit", TBFUnitTypeTemperature, "0.5", "459.67"},
    {"B", "byte", "bytes", TBFUnitTypeComputerStorage, "1", nullptr},
    {"N", "newton", "newtons", TBFUnitTypeForce, "1", nullptr},
    {"J", "joule", "joules", TBFUnitTypeEnergy, "1", nullptr},
    {"W", "watt", "watts", TBFUnitTypePower, "1", nullptr},
    {"Hz", "hertz", "hertz", TBFUnitTypeFrequency, "1", nullptr},
    {"V", "volt", "volts", TBFUnitTypeVoltage, "1", nullptr},
    {"A", "ampere", "amperes", TBFUnitTypeCurrent, "1", nullptr},
    {"ohm", "ohm", "ohms", TBFUnitTypeResistance, "1", nullptr},
    {"kn", "knot", "knots", TBFUnitTypeVelocity, "0.5", nullptr},
    {"mps", "metre a second", "metres a second", TBFUnitTypeVelocity, "1", nullptr},
    {"mps2", "metre a square second", "metres a square second", TBFUnitTypeAcceleration, "1", nullptr},
    {"gee", "gee", "gees", TBFUnitTypeAcceleration, "10", nullptr},
    {"m2", "square metre", "square metres", TBFUnitTypeArea, "1", nullptr},
    {"m3", "cubic metre", "cubic metres", TBFUnitTypeVolume, "1", nullptr},
    {"l", "litre", "litres", TBFUnitTypeVolume, "0.001", nullptr},
};

// A container with names and aliases by their types.
inline TBF::Ref<TBF::UnitContainer> container(const std::string& identifier,
                                              const std::map<TBFUnitNameType, std::string>& names,
                                              const std::multimap<TBFUnitNameType, std::string>& aliases = {},
                                              const std::set<std::string>& caseSensitive = {}) {
    TBF::UnitContainer::Names all;
    for (const auto& [type, name] : names)
        all.byType[static_cast<std::size_t>(type)] = TBF::String::createWithUTF8(name);
    for (const auto& [type, alias] : aliases)
        all.aliases.push_back({type, TBF::String::createWithUTF8(alias)});
    for (const std::string& name : caseSensitive)
        all.caseSensitive.push_back(TBF::String::createWithUTF8(name));
    return TBF::UnitContainer::create(identifier, std::move(all));
}

class Vocabulary {
public:
    static const Vocabulary& shared() {
        static const Vocabulary vocabulary;
        return vocabulary;
    }

    TBF::Unit* unit(std::string_view symbol) const { return units.find(symbol)->second.get(); }
    TBF::UnitContainer* container(std::string_view symbol) const {
        return containers.find(symbol)->second.get();
    }
    TBF::UnitCollection* collection() const { return all.get(); }

    // A builder of "km m^2 / s": units separated by spaces, the degree behind a circumflex.
    TBF::Ref<TBF::UnitFractionBuilder> builder(const std::string& text) const {
        auto builder = TBF::UnitFractionBuilder::create();
        std::istringstream words(text);
        int sign = 1;
        for (std::string word; words >> word;) {
            if (word == "/") {
                sign = -1;
                continue;
            }
            const auto circumflex = word.find('^');
            const int degree = circumflex == std::string::npos ? 1 : std::stoi(word.substr(circumflex + 1));
            builder->addUnit(unit(word.substr(0, circumflex)), sign * degree);
        }
        return builder;
    }
    TBF::Ref<TBF::UnitFraction> fraction(const std::string& text) const {
        return builder(text)->unitFraction();
    }

    // The units of "m s": the last one of each type.
    TBF::UnitsByType unitsByType(const std::string& text) const {
        TBF::UnitsByType result;
        std::istringstream words(text);
        for (std::string word; words >> word;)
            result[unit(word)->type()] = unit(word);
        return result;
    }

private:
    Vocabulary()
        : all(TBF::UnitCollection::create()) {
        for (const Row& row : rows)
            add(row);
    }

    void add(const Row& row) {
        const auto text = [](const char* bytes) { return TBF::String::createWithUTF8(bytes); };
        const auto unit = TBF::Unit::create(row.type, row.factor, text(row.symbol));
        unit->setName(text(row.singular), TBFUnitNameTypeSingular);
        unit->setName(text(row.plural), TBFUnitNameTypePlural);
        unit->setName(text(row.symbol), TBFUnitNameTypeVeryShort);
        if (row.offset) unit->setOffset(text(row.offset));
        TBF::UnitContainer::Names names;
        names.byType[TBFUnitNameTypeSingular] = text(row.singular);
        names.byType[TBFUnitNameTypePlural] = text(row.plural);
        names.byType[TBFUnitNameTypeVeryShort] = text(row.symbol);
        const auto container = TBF::UnitContainer::create(row.symbol, std::move(names));
        container->setUnitFraction(TBF::UnitFractionBuilder::create(unit.get())->unitFraction());
        all->addUnit(*container);
        units.emplace(row.symbol, unit);
        containers.emplace(row.symbol, container);
    }

    std::map<std::string, TBF::Ref<TBF::Unit>, std::less<>> units;
    std::map<std::string, TBF::Ref<TBF::UnitContainer>, std::less<>> containers;
    TBF::Ref<TBF::UnitCollection> all;
};

// Plain text of a decimal, "none" for null.
inline std::string plain(M_APM value) {
    return value ? TBF_mapm_to_fitted_string(value, 30) : "none";
}

// "km:1 s:-2": the unit shown for each type that is there, in ascending order of type.
inline std::string shownUnits(const TBF::UnitFraction& fraction) {
    std::string text;
    for (const auto& component : fraction.typeDegrees()) {
        if (component.degree == 0) continue;
        if (!text.empty()) text += ' ';
        text += component.unit->identifier().string() + ':' + std::to_string(component.degree);
    }
    return text;
}

} // namespace UnitTesting
