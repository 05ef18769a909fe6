#include "face/units/TBFUnitFraction.h"

#include "numbers/Number.h"
#include "units/UnitFraction.h"

using TBF::Unit;
using TBF::UnitFraction;

namespace {

std::vector<Unit*> onlyOfType(std::vector<Unit*> units, TBFUnitType type) {
    std::erase_if(units, [type](const Unit* unit) { return unit->type() != type; });
    return units;
}

} // namespace

TBFUnitFractionRef TBFUnitFractionRetain(TBFUnitFractionRef fraction) {
    return TBF::retain(fraction).leak();
}

void TBFUnitFractionRelease(const UnitFraction* fraction) {
    if (fraction) fraction->release();
}

TBFUnitFractionRef TBFUnitFractionCopy(const UnitFraction* fraction) {
    return TBFUnitFractionCopyWithRecomputedMultiplier(fraction);
}

TBFUnitFractionRef TBFUnitFractionCopyWithRecomputedMultiplier(const UnitFraction* fraction) {
    return fraction ? fraction->copyWithRecomputedMultiplier().leak() : nullptr;
}

TBFUnitFractionRef TBFUnitFractionCopyWithoutExtraMultiplier(const UnitFraction* fraction) {
    return TBFUnitFractionCopyWithRecomputedMultiplier(fraction);
}

int32_t TBFUnitFractionGetUnitDegree(const UnitFraction* fraction, TBFUnitType type) {
    return fraction ? fraction->degree(type) : 0;
}

std::map<TBFUnitType, int32_t> TBFUnitFractionGetDegrees(const UnitFraction* fraction) {
    std::map<TBFUnitType, int32_t> degrees;
    if (!fraction) return degrees;
    for (const UnitFraction::TypeDegree& component : fraction->typeDegrees()) {
        if (component.degree != 0) degrees.emplace(component.type, component.degree);
    }
    return degrees;
}

int32_t TBFUnitFractionGetNumeratorTotalDegree(const UnitFraction* fraction) {
    return fraction ? fraction->numeratorTotalDegree() : 0;
}

int32_t TBFUnitFractionGetDenominatorTotalDegree(const UnitFraction* fraction) {
    return fraction ? fraction->denominatorTotalDegree() : 0;
}

int32_t TBFUnitFractionCountNumeratorUnits(const UnitFraction* fraction) {
    return fraction ? fraction->countOfNumeratorTypes() : 0;
}

int32_t TBFUnitFractionCountDenominatorUnits(const UnitFraction* fraction) {
    return fraction ? fraction->countOfDenominatorTypes() : 0;
}

bool TBFUnitFractionHasOnlyOneUnityDegreeNumeratorUnit(const UnitFraction* fraction) {
    return fraction && fraction->hasOnlyOneUnityDegreeNumeratorUnit();
}

bool TBFUnitFractionIsScalar(const UnitFraction* fraction) {
    return fraction && fraction->isScalar();
}

Unit* TBFUnitFractionGetOnlyNumeratorUnitOfType(const UnitFraction* fraction, TBFUnitType type) {
    return fraction ? fraction->numeratorUnitOfType(type) : nullptr;
}

Unit* TBFUnitFractionGetOnlyDenominatorUnitOfType(const UnitFraction* fraction, TBFUnitType type) {
    return fraction ? fraction->denominatorUnitOfType(type) : nullptr;
}

Unit* TBFUnitFractionGetOnlyNumeratorUnit(const UnitFraction* fraction) {
    return fraction ? fraction->onlyNumeratorUnit() : nullptr;
}

std::vector<Unit*> TBFUnitFractionGetNumeratorUnits(const UnitFraction* fraction) {
    return fraction ? fraction->numeratorUnits() : std::vector<Unit*>();
}

std::vector<Unit*> TBFUnitFractionGetDenominatorUnits(const UnitFraction* fraction) {
    return fraction ? fraction->denominatorUnits() : std::vector<Unit*>();
}

std::vector<Unit*> TBFUnitFractionGetNumeratorUnitsOfType(const UnitFraction* fraction, TBFUnitType type) {
    return onlyOfType(TBFUnitFractionGetNumeratorUnits(fraction), type);
}

std::vector<Unit*> TBFUnitFractionGetDenominatorUnitsOfType(const UnitFraction* fraction, TBFUnitType type) {
    return onlyOfType(TBFUnitFractionGetDenominatorUnits(fraction), type);
}

std::map<TBFUnitType, Unit*> TBFUnitFractionGetUnitsByType(const UnitFraction* fraction) {
    return fraction ? fraction->unitsByType() : TBF::UnitsByType();
}

std::vector<Unit*> TBFUnitFractionGetUnits(const UnitFraction* fraction) {
    std::vector<Unit*> units;
    if (!fraction) return units;
    for (const UnitFraction::UnitDegree& component : fraction->unitDegrees())
        units.push_back(component.unit.get());
    return units;
}

M_APM TBFUnitFractionGetMultiplier(const UnitFraction* fraction) {
    return fraction ? fraction->multiplier() : nullptr;
}

M_APM TBFUnitFractionGetUnitMultiplier(const UnitFraction* fraction) {
    return fraction ? fraction->unitMultiplier() : nullptr;
}

M_APM TBFUnitFractionGetExtraMultiplier(const UnitFraction* fraction) {
    return fraction ? fraction->extraMultiplier() : nullptr;
}

bool TBFUnitFractionHasExtraMultiplier(const UnitFraction* fraction) {
    return fraction && fraction->hasExtraMultiplier();
}

M_APM TBFUnitFractionGetOffsetMAPMReference(const UnitFraction* fraction) {
    // The unit keeps the decimal.
    const TBF::Ref<TBF::Number> offset = fraction ? fraction->offset() : TBF::Ref<TBF::Number>();
    return offset ? offset->mapmRef() : nullptr;
}

bool TBFUnitFractionHasOnlyOneOffsetNumeratorUnit(const UnitFraction* fraction) {
    return fraction && fraction->hasOnlyOneOffsetNumeratorUnit();
}

TBFUnitType TBFUnitFractionGetUnitType(const UnitFraction* fraction) {
    return fraction ? fraction->unitType() : TBFUnitTypeNone;
}

bool TBFUnitFractionTypesCompare(const UnitFraction* a, const UnitFraction* b, bool* inverted) {
    if (!a || !b) return false;
    bool isInverse = false;
    const bool compare = UnitFraction::typesCompare(*a, *b, isInverse);
    if (inverted) *inverted = isInverse;
    return compare;
}

bool TBFUnitFractionIsEqualToUnitFraction(const UnitFraction* a, const UnitFraction* b) {
    return a && b ? a->isEqualTo(*b) : a == b;
}

std::string TBFUnitFractionGetStringRepresentation(const UnitFraction* fraction) {
    return fraction ? fraction->stringRepresentation() : std::string();
}
