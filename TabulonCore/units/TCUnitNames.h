#pragma once

// What a unit is called: the names that the data of a language has for it. A plain value.

#include "units/TCUnit.h"
#include "units/UnitContainer.h"

#include <optional>
#include <set>
#include <string>

struct TCUnitNames {
    std::optional<std::u16string> singular;
    std::optional<std::u16string> plural;
    std::optional<std::u16string> veryShort;
    std::optional<std::u16string> symbol;
    TCUnit::Aliases aliases;
    std::set<std::u16string> caseSensitiveNames; // names and aliases that match only as written

    // The same as strings of the foundation.
    TBF::UnitContainer::Names containerNames() const;
};
