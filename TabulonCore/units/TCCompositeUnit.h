#pragma once

// Units around a ready fraction of other units.

#include "units/TCUnit.h"
#include "units/TCUnitNames.h"

// One of the data, with an identifier and perhaps names; without, its names are spelled out.
class TCCompositeUnit final : public TCUnit {
    struct Passkey {};

public:
    static std::shared_ptr<TCCompositeUnit> unitWithIdentifier(std::u16string_view identifier,
                                                               TCUnitType type,
                                                               TBF::Ref<TBF::UnitFraction> fraction,
                                                               const TCUnitNames& names);
    TCCompositeUnit(Passkey, TCUnitType type, TBF::Ref<TBF::UnitContainer> unitContainer);
    ~TCCompositeUnit() override;
};

// The unit of a result: without an identifier, its names spelled out from the fraction.
class TCValueUnit final : public TCUnit {
    struct Passkey {};

public:
    // Null for a null fraction.
    static std::shared_ptr<TCValueUnit> unitWithUnitFraction(TBF::Ref<TBF::UnitFraction> fraction);
    TCValueUnit(Passkey, TCUnitType type, TBF::Ref<TBF::UnitContainer> unitContainer);
    ~TCValueUnit() override;
};
