#include "units/TCCompositeUnit.h"

#include "runtime/Unicode.h"
#include "units/UnitFraction.h"

#include <utility>

TCCompositeUnit::TCCompositeUnit(Passkey, TCUnitType type, TBF::Ref<TBF::UnitContainer> unitContainer)
    : TCUnit(type, std::move(unitContainer)) {}

TCCompositeUnit::~TCCompositeUnit() = default;

std::shared_ptr<TCCompositeUnit> TCCompositeUnit::unitWithIdentifier(std::u16string_view identifier,
                                                                     TCUnitType type,
                                                                     TBF::Ref<TBF::UnitFraction> fraction,
                                                                     const TCUnitNames& names) {
    auto container = TBF::UnitContainer::create(TBF::utf8(identifier), names.containerNames());
    container->setUnitFraction(std::move(fraction));
    return std::make_shared<TCCompositeUnit>(Passkey(), type, std::move(container));
}

TCValueUnit::TCValueUnit(Passkey, TCUnitType type, TBF::Ref<TBF::UnitContainer> unitContainer)
    : TCUnit(type, std::move(unitContainer)) {}

TCValueUnit::~TCValueUnit() = default;

std::shared_ptr<TCValueUnit> TCValueUnit::unitWithUnitFraction(TBF::Ref<TBF::UnitFraction> fraction) {
    if (!fraction) return nullptr;
    const auto type = static_cast<TCUnitType>(fraction->unitType());
    auto container = TBF::UnitContainer::create();
    container->setUnitFraction(std::move(fraction));
    return std::make_shared<TCValueUnit>(Passkey(), type, std::move(container));
}
