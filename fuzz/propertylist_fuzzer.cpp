// Reads any bytes as a property list. What can be read must come out of the writer so that it reads alike;
// and whatever it holds, it may be given to the loader of units as units, names and currencies.

#include "environment/TCSettings.h"
#include "propertylist/PropertyList.h"
#include "runtime/TBFLog.h"
#include "units/TCNewUnitManager.h"
#include "units/TCUnit.h"
#include "units/TCUnitsFileParser.h"
#include "units/UnitContainer.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string_view>

using platform::PropertyList;

namespace {

void checkUnits(const PropertyList& list) {
    const TCUnitsFile file =
        TCUnitsFileParser::readUnits(list, list, {}, TCUnitsPreferences::defaultPreferences());
    TCNewUnitManager manager;
    manager.addContentsOfLoadedUnitsFile(file);
    for (const auto& unit : file.units) {
        if (!unit->tbfUnitFraction() || unit->identifierBytes().empty()) std::abort();
        unit->nameForFormat(TCUnitNameFormatLong, TCUnitNameFormPlural);
        if (manager.unitWithIdentifier(unit->identifier().value_or(u"")) != unit) continue;
        manager.removeUnit(unit);
    }
    for (const auto& unit : TCUnitsFileParser::loadCurrencyUnits(list))
        manager.addUnit(unit);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
    if (!TCSettings::isSet()) TCSettings::make()->set();
    TBFErrorLogSetEnabled(0);
    std::string error;
    const auto list = PropertyList::parse({reinterpret_cast<const char*>(data), size}, &error);
    if (list.has_value() != error.empty()) std::abort();
    if (!list) return 0;
    // The text has whole seconds, and replacements for what XML can't hold, also in keys, which may then
    // stand in another order. From there on nothing changes any more.
    const auto text = list->text();
    const auto again = text ? PropertyList::parse(*text) : std::nullopt;
    const auto settled = again ? again->text() : std::nullopt;
    const auto last = settled ? PropertyList::parse(*settled) : std::nullopt;
    if (!last || last->text() != settled) std::abort();
    checkUnits(*list);
    return 0;
}
