#include "units/TCUnitComposer.h"

#include "runtime/TBFLog.h"
#include "runtime/Unicode.h"
#include "units/UnitContainer.h"
#include "units/UnitFraction.h"
#include "units/UnitFractionBuilder.h"

std::shared_ptr<TCCompositeUnit>
TCUnitComposer::composeUnitWithIdentifier(std::u16string_view identifier, TCUnitType type,
                                          const TCUnitNames& names,
                                          std::span<const std::shared_ptr<TCUnit>> numeratorUnits,
                                          std::span<const std::shared_ptr<TCUnit>> denominatorUnits) {
    const auto builder = TBF::UnitFractionBuilder::create();
    for (const auto& unit : numeratorUnits)
        if (unit) builder->addUnit(unit->tbfUnitContainer(), 1);
    for (const auto& unit : denominatorUnits)
        if (unit) builder->addUnit(unit->tbfUnitContainer(), -1);
    auto fraction = builder->unitFraction();
    if (!fraction) {
        TBFErrorLog("Unit %s has too large a degree", TBF::utf8(identifier).c_str());
        return nullptr;
    }
    return TCCompositeUnit::unitWithIdentifier(identifier, type, std::move(fraction), names);
}
