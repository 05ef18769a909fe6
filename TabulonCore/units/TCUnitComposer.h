#pragma once

// Makes composite units. No state.

#include "units/TCCompositeUnit.h"

#include <memory>
#include <span>
#include <string_view>

class TCUnitComposer {
public:
    // A unit that appears several times has that degree. The type isn't compared with the units. Null, with
    // a log, if a degree is too large.
    static std::shared_ptr<TCCompositeUnit>
    composeUnitWithIdentifier(std::u16string_view identifier, TCUnitType type, const TCUnitNames& names,
                              std::span<const std::shared_ptr<TCUnit>> numeratorUnits,
                              std::span<const std::shared_ptr<TCUnit>> denominatorUnits);
};
