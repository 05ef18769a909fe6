#include "units/TCBasicUnit.h"

#include "runtime/String.h"
#include "runtime/Unicode.h"
#include "units/Unit.h"
#include "units/UnitFraction.h"

#include <utility>

namespace {

// No atomic unit can have the types of fractions that are always composed.
TBF::Ref<TBF::Unit> makeAtomicUnit(std::u16string_view identifier, TCUnitType type,
                                   std::u16string_view factor, std::optional<std::u16string_view> offset) {
    TBFUnitType foundationType = TBFUnitTypeNone;
    if (type != TCUnitTypeNone) {
        foundationType = TCUnitTypeToTBFUnitType(type);
        if (foundationType == TBFUnitTypeNone || foundationType >= TBFUnitTypeCount) return nullptr;
    }
    auto unit = TBF::Unit::create(foundationType, TBF::utf8(factor), TBF::String::create(identifier));
    if (offset) unit->setOffset(TBF::String::create(*offset));
    return unit;
}

} // namespace

template <typename Unit>
std::shared_ptr<Unit> TCBasicUnit::make(TCUnitType type, TBF::Ref<TBF::Unit> unit,
                                        TBF::UnitContainer::Names names) {
    if (!unit) return nullptr;
    for (int32_t slot = TBFUnitNameTypeSingular; slot < TBFUnitNameTypeSlotCount; ++slot)
        unit->setName(names.byType[static_cast<std::size_t>(slot)], static_cast<TBFUnitNameType>(slot));
    for (const TBF::UnitContainer::Alias& alias : names.aliases)
        unit->addAlias(alias.text, alias.nameType);
    auto container = TBF::UnitContainer::create(unit->identifier().string(), std::move(names));
    container->setUnitFraction(TBF::UnitFraction::createOfUnit(*unit));
    if (type == TCUnitTypeMoney) container->setCanBePrefixUnit(true);
    return std::make_shared<Unit>(Passkey(), type, std::move(container), std::move(unit));
}

std::shared_ptr<TCBasicUnit> TCBasicUnit::unitWithIdentifier(std::u16string_view identifier, TCUnitType type,
                                                             std::u16string_view factor,
                                                             const TCUnitNames& names,
                                                             std::optional<std::u16string_view> offset) {
    return make<TCBasicUnit>(type, makeAtomicUnit(identifier, type, factor, offset), names.containerNames());
}

std::shared_ptr<TCBasicUnit> TCBasicUnit::unitWithAtomicUnit(TCUnitType type, TBF::Ref<TBF::Unit> unit,
                                                             TBF::UnitContainer::Names names) {
    return make<TCBasicUnit>(type, std::move(unit), std::move(names));
}

TCBasicUnit::TCBasicUnit(Passkey, TCUnitType type, TBF::Ref<TBF::UnitContainer> unitContainer,
                         TBF::Ref<TBF::Unit> unit)
    : TCUnit(type, std::move(unitContainer))
    , atomicUnit(std::move(unit)) {}

TCBasicUnit::~TCBasicUnit() = default;

std::u16string TCBasicUnit::factor() const {
    return atomicUnit->baseFactor()->utf16();
}

std::optional<std::u16string> TCBasicUnit::offset() const {
    const auto text = atomicUnit->offset();
    return text ? std::optional(text->utf16()) : std::nullopt;
}

std::set<std::u16string> TCBasicUnit::caseSensitiveNames() const {
    std::set<std::u16string> names;
    for (const auto& name : tbfUnitContainer()->caseSensitiveNames())
        names.insert(name->utf16());
    return names;
}

void TCBasicUnit::setUnderlyingAmbiguousTieBreakFactor(int32_t factor) {
    TCUnit::setUnderlyingAmbiguousTieBreakFactor(factor);
    atomicUnit->setAmbiguousTieBreakFactor(factor);
}

std::shared_ptr<TCMutableBasicUnit>
TCMutableBasicUnit::unitWithIdentifier(std::u16string_view identifier, TCUnitType type,
                                       std::u16string_view factor, const TCUnitNames& names,
                                       std::optional<std::u16string_view> offset) {
    return make<TCMutableBasicUnit>(type, makeAtomicUnit(identifier, type, factor, offset),
                                    names.containerNames());
}

void TCMutableBasicUnit::setFactor(std::u16string_view factor) {
    atomicUnit->setBaseFactor(TBF::utf8(factor));
    // Anew, for the fraction holds the multiplier that was made of the old factor.
    tbfUnitContainer()->setUnitFraction(TBF::UnitFraction::createOfUnit(*atomicUnit));
}
