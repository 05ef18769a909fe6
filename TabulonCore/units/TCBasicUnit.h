#pragma once

// A unit of exactly one atomic unit: a factor to the base unit of its type, and for temperatures an offset.

#include "units/TCUnit.h"
#include "units/TCUnitNames.h"

#include <set>

namespace TBF {
class Unit;
} // namespace TBF

class TCBasicUnit : public TCUnit {
protected:
    struct Passkey {};

public:
    // Factor and offset are decimal text with "." as point. Null, with a log, for a type that no atomic unit
    // can have.
    static std::shared_ptr<TCBasicUnit> unitWithIdentifier(std::u16string_view identifier, TCUnitType type,
                                                           std::u16string_view factor,
                                                           const TCUnitNames& names,
                                                           std::optional<std::u16string_view> offset = {});

    // Around an atomic unit that has its identifier, factor and offset: gives it the names and puts a
    // container around it.
    static std::shared_ptr<TCBasicUnit> unitWithAtomicUnit(TCUnitType type, TBF::Ref<TBF::Unit> unit,
                                                           TBF::UnitContainer::Names names);

    TCBasicUnit(Passkey, TCUnitType type, TBF::Ref<TBF::UnitContainer> unitContainer,
                TBF::Ref<TBF::Unit> unit);
    ~TCBasicUnit() override;

    std::u16string factor() const;
    std::optional<std::u16string> offset() const;
    std::set<std::u16string> caseSensitiveNames() const;

    TBF::Unit* tbfUnit() const noexcept { return atomicUnit.get(); } // borrowed, never null

protected:
    template <typename Unit>
    static std::shared_ptr<Unit> make(TCUnitType type, TBF::Ref<TBF::Unit> unit,
                                      TBF::UnitContainer::Names names);

    void setUnderlyingAmbiguousTieBreakFactor(int32_t factor) override;

    TBF::Ref<TBF::Unit> atomicUnit;
};

// A basic unit whose factor can change: a currency.
class TCMutableBasicUnit final : public TCBasicUnit {
public:
    static std::shared_ptr<TCMutableBasicUnit>
    unitWithIdentifier(std::u16string_view identifier, TCUnitType type, std::u16string_view factor,
                       const TCUnitNames& names, std::optional<std::u16string_view> offset = {});

    using TCBasicUnit::TCBasicUnit;

    // What is looked up from now on has the new factor. Fractions made before keep the old one: values
    // computed earlier stay what they were. Not while something is evaluated.
    void setFactor(std::u16string_view factor);
};
