#include "units/TCUnitCollection.h"

#include "environment/TCEnvironment.h"
#include "units/TCNewUnitManager.h"
#include "units/TCUnit.h"
#include "units/TCUnitsFile.h"

std::shared_ptr<TCUnitCollection> TCUnitCollection::sharedManager() {
    const auto environment = TCEnvironment::current();
    return environment ? environment->unitManager() : nullptr;
}

std::shared_ptr<TCUnitCollection> TCUnitCollection::create() {
    return std::make_shared<TCNewUnitManager>();
}

void TCUnitCollection::addContentsOfLoadedUnitsFile(const TCUnitsFile& file) {
    addUnits(file.units);
    for (const auto& [type, identifier] : file.baseUnitIdentifiersByType)
        if (const auto unit = unitWithIdentifier(identifier)) setDefaultUnitForType(unit, type);
}

void TCUnitCollection::removeUnitWithIdentifier(std::u16string_view identifier) {
    removeUnit(unitWithIdentifier(identifier));
}
