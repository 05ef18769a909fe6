#pragma once

// Writes a unit as text: the front of the foundation's formatter.

#include "units/TCUnitTypes.h"

#include <map>
#include <optional>
#include <string>

class TCUnit;

class TCUnitStringFormatter {
public:
    // For units of a type where the unit is spelled out, instead of the format asked for.
    void setUnitNameFormat(TCUnitNameFormat format, TCUnitType unitType);

    // None for a null unit. Without a format the long names are meant.
    std::optional<std::u16string> stringForUnit(const TCUnit* unit, TCUnitNameForm form) const;
    std::optional<std::u16string> stringForUnit(const TCUnit* unit, TCUnitNameFormat format,
                                                TCUnitNameForm form) const;

private:
    std::map<TCUnitType, TCUnitNameFormat> unitNameFormatsByUnitType;
};
