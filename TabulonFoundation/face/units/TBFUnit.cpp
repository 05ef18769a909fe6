#include "face/units/TBFUnit.h"

#include "numbers/Number.h"
#include "units/Unit.h"

#include <string>

using TBF::retain;
using TBF::Unit;

namespace {

// A missing factor parses as 0, like an empty one.
std::string utf8Of(const TBF::String* text) {
    return text ? text->utf8() : std::string();
}

} // namespace

TBFUnitRef TBFUnitCreate(TBFUnitType type, const TBF::String* factor) {
    return Unit::create(type, utf8Of(factor)).leak();
}

TBFUnitRef TBFUnitCreate(TBFUnitType type, const TBF::String* factor, TBF::String* identifier) {
    return Unit::create(type, utf8Of(factor), retain(identifier)).leak();
}

TBFUnitRef TBFUnitCreateWithSingularName(TBF::String* name, TBFUnitType type, const TBF::String* factor) {
    return Unit::createWithSingularName(retain(name), type, utf8Of(factor)).leak();
}

TBFUnitRef TBFUnitRetain(TBFUnitRef unit) {
    return retain(unit).leak();
}

void TBFUnitRelease(const TBF::Unit* unit) {
    if (unit) unit->release();
}

TBF::String* TBFUnitGetName(const TBF::Unit* unit, TBFUnitNameType nameType) {
    return unit ? unit->name(nameType).get() : nullptr;
}

TBF::String* TBFUnitGetNamePreferringType(const TBF::Unit* unit, TBFUnitNameType nameType) {
    return unit ? unit->namePreferringType(nameType).get() : nullptr;
}

void TBFUnitSetName(TBFUnitRef unit, TBF::String* name, TBFUnitNameType nameType) {
    if (unit) unit->setName(retain(name), nameType);
}

const std::vector<TBF::Ref<TBF::String>>& TBFUnitGetAliasesArrayReference(const TBF::Unit* unit,
                                                                          TBFUnitNameType nameType) {
    static const std::vector<TBF::Ref<TBF::String>> none;
    return unit ? unit->aliases(nameType) : none;
}

void TBFUnitAddAlias(TBFUnitRef unit, TBF::String* alias, TBFUnitNameType nameType) {
    if (unit) unit->addAlias(retain(alias), nameType);
}

TBF::String* TBFUnitCopyBaseFactor(const TBF::Unit* unit) {
    return unit ? unit->baseFactor().leak() : nullptr;
}

M_APM TBFUnitGetBaseFactorMAPMReference(const TBF::Unit* unit) {
    return unit ? unit->baseFactorNumber()->mapmRef() : nullptr;
}

void TBFUnitSetBaseFactor(TBFUnitRef unit, const TBF::String* factor) {
    if (unit) unit->setBaseFactor(utf8Of(factor));
}

M_APM TBFUnitGetOffsetMAPMReference(const TBF::Unit* unit) {
    return unit && unit->hasOffset() ? unit->offsetNumber()->mapmRef() : nullptr;
}

void TBFUnitSetOffset(TBFUnitRef unit, TBF::String* offset) {
    if (unit) unit->setOffset(retain(offset));
}

TBFUnitType TBFUnitGetType(const TBF::Unit* unit) {
    return unit ? unit->type() : TBFUnitTypeNone;
}

const tbf::StringId<TBF::Unit>& TBFUnitGetIdentifier(const TBF::Unit* unit) {
    static const tbf::StringId<TBF::Unit> noIdentifier;
    return unit ? unit->identifier() : noIdentifier;
}

void TBFUnitSetIdentifier(TBFUnitRef unit, TBF::String* identifier) {
    if (unit) unit->setIdentifier(retain(identifier));
}

int32_t TBFUnitGetAmbiguousTieBreakFactor(const TBF::Unit* unit) {
    return unit ? unit->ambiguousTieBreakFactor() : 0;
}

void TBFUnitSetAmbiguousTieBreakFactor(TBFUnitRef unit, int32_t factor) {
    if (unit) unit->setAmbiguousTieBreakFactor(factor);
}

bool TBFUnitIsEqualToUnit(const TBF::Unit* a, const TBF::Unit* b) {
    return a && b ? a->isEqualTo(*b) : a == b;
}

int8_t TBFUnitGetSIExponent(const TBF::Unit* unit) {
    return unit ? unit->siExponent() : int8_t{0};
}

bool TBFUnitIsSIBaseUnit(const TBF::Unit* unit) {
    return unit && unit->isSIBaseUnit();
}

bool isSIExponent(int32_t exponent) {
    return Unit::isSIExponent(exponent);
}
