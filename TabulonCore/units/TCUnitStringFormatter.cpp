#include "units/TCUnitStringFormatter.h"

#include "runtime/String.h"
#include "units/TCUnit.h"
#include "units/UnitContainer.h"
#include "units/UnitStringFormatter.h"

void TCUnitStringFormatter::setUnitNameFormat(TCUnitNameFormat format, TCUnitType unitType) {
    unitNameFormatsByUnitType[unitType] = format;
}

std::optional<std::u16string> TCUnitStringFormatter::stringForUnit(const TCUnit* unit,
                                                                   TCUnitNameForm form) const {
    return stringForUnit(unit, TCUnitNameFormatLong, form);
}

std::optional<std::u16string>
TCUnitStringFormatter::stringForUnit(const TCUnit* unit, TCUnitNameFormat format, TCUnitNameForm form) const {
    if (!unit) return std::nullopt;
    const auto formatter = TBF::UnitStringFormatter::create();
    for (const auto& [type, typeFormat] : unitNameFormatsByUnitType) {
        formatter->setNameFormatForUnitType(TCUnitNameFormatToTBFUnitFormatType(typeFormat),
                                            TCUnitTypeToTBFUnitType(type));
    }
    const auto text =
        formatter->formattedString(unit->tbfUnitContainer(), TCUnitNameFormatToTBFUnitFormatType(format),
                                   TBFUnitStringFormFromTCUnitNameForm(form));
    return text ? std::optional(text->utf16()) : std::nullopt;
}
