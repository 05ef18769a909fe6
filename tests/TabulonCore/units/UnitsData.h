#pragma once

// The small units data beside this file, loaded.

#include "environment/TCSettings.h"
#include "runtime/Unicode.h"
#include "units/TCBasicUnit.h"
#include "units/TCNewUnitManager.h"
#include "units/TCUnitsFileParser.h"

#include <algorithm>
#include <memory>
#include <string>

namespace UnitsData {

inline std::string path(const std::string& name) {
    return "tests/TabulonCore/units/data/" + name + ".plist";
}

inline TCUnitsFile load(const std::string& localization = "UnitLocalization",
                        const TCUnitsPreferenceChoices& choices = TCUnitsPreferences::defaultPreferences()) {
    if (!TCSettings::isSet()) TCSettings::make()->set();
    return TCUnitsFileParser::readUnitsFile(path("Units"), path(localization), path("UnitLocalization"),
                                            choices);
}

// With all units and currencies in it.
inline std::shared_ptr<TCNewUnitManager> manager() {
    const auto made = std::make_shared<TCNewUnitManager>();
    made->addContentsOfLoadedUnitsFile(load());
    for (const auto& unit :
         TCUnitsFileParser::loadCurrencyUnitsFromLocalizationFile(path("CurrencyLocalization")))
        made->addUnit(unit);
    return made;
}

inline std::shared_ptr<TCUnit> unit(const TCUnitsFile& file, std::string_view identifier) {
    for (const auto& each : file.units)
        if (each->identifierBytes() == identifier) return each;
    return nullptr;
}

inline std::shared_ptr<TCBasicUnit> basic(const TCUnitsFile& file, std::string_view identifier) {
    return std::dynamic_pointer_cast<TCBasicUnit>(unit(file, identifier));
}

} // namespace UnitsData
