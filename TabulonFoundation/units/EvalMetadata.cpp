#include "units/EvalMetadata.h"

#include "numbers/TBFOperatorType.h"
#include "units/TBFUnitTypes.h"
#include "units/Unit.h"
#include "units/UnitFraction.h"

namespace TBF {

Unit* EvalMetadata::Sides::unit(TBFUnitType type) const {
    const auto slot = static_cast<std::size_t>(type);
    if (slot >= slotCount) return nullptr;
    return numerator[slot] ? numerator[slot] : denominator[slot];
}

void EvalMetadata::Sides::overlay(const Sides& other) {
    for (std::size_t slot = 0; slot < slotCount; ++slot) {
        if (other.numerator[slot]) numerator[slot] = other.numerator[slot];
        if (other.denominator[slot]) denominator[slot] = other.denominator[slot];
    }
}

void EvalMetadata::Sides::eraseNamedIn(const Sides& other) {
    for (std::size_t slot = 0; slot < slotCount; ++slot) {
        if (other.numerator[slot]) numerator[slot] = nullptr;
        if (other.denominator[slot]) denominator[slot] = nullptr;
    }
}

EvalMetadata::UnitsByType EvalMetadata::Sides::byType() const {
    UnitsByType units;
    for (const TBFUnitType type : TBFUnitTypes()) {
        if (Unit* const found = unit(type)) units.emplace(type, found);
    }
    return units;
}

Ref<EvalMetadata> EvalMetadata::create() {
    return make<EvalMetadata>();
}

void EvalMetadata::appendUnitFraction(const UnitFraction* fraction) {
    if (!fraction) return;
    const auto enter = [](auto& slots, Unit* unit) {
        const auto slot = static_cast<std::size_t>(unit->type());
        if (slot < slotCount) slots[slot] = unit;
    };
    for (Unit* const unit : fraction->numeratorUnits())
        enter(preferred.numerator, unit);
    for (Unit* const unit : fraction->denominatorUnits())
        enter(preferred.denominator, unit);
}

void EvalMetadata::appendUnitNameFormatMapping(const Unit* unit, TBFUnitFormatType format) {
    if (unit) formats.insert_or_assign(unit->identifier(), format);
}

void EvalMetadata::append(const EvalMetadata& other) {
    append(other, TBFOperatorTypeNone);
}

void EvalMetadata::append(const EvalMetadata& other, TBFOperatorType operation) {
    if (operation == TBFOperatorTypeUnitConversion) {
        required = other.preferred;
        required.overlay(other.required);
        preferred.overlay(required);
    } else {
        preferred.overlay(other.preferred);
        required.eraseNamedIn(other.preferred);
        required.overlay(other.required);
    }
    for (const auto& [identifier, format] : other.formats)
        formats.insert_or_assign(identifier, format);
}

Unit* EvalMetadata::preferredUnit(TBFUnitType type) const {
    return preferred.unit(type);
}
Unit* EvalMetadata::requiredUnit(TBFUnitType type) const {
    return required.unit(type);
}

EvalMetadata::UnitsByType EvalMetadata::preferredUnits() const {
    return preferred.byType();
}
EvalMetadata::UnitsByType EvalMetadata::requiredUnits() const {
    return required.byType();
}

} // namespace TBF
