#pragma once

// A recipe for a unit: another unit under an identifier and names of its own. What a gallon is, where that is
// a choice, is an alias of one of several gallons. Immutable.

#include "units/TCUnitNames.h"

#include <memory>

class TCBasicUnit;

class TCAliasUnit {
public:
    TCAliasUnit(std::u16string identifier, std::shared_ptr<TCUnit> aliasedUnit, TCUnitNames names);
    ~TCAliasUnit();

    const std::u16string& identifier() const { return ownIdentifier; }
    const std::shared_ptr<TCUnit>& aliasedUnit() const { return target; }
    const TCUnitNames& names() const { return ownNames; }

    // A new unit with the target's type and factor; an offset isn't taken over. Logged and null if the target
    // isn't a basic unit.
    std::shared_ptr<TCBasicUnit> unitWithAliasUnitValue() const;

private:
    std::u16string ownIdentifier;
    std::shared_ptr<TCUnit> target;
    TCUnitNames ownNames;
};
