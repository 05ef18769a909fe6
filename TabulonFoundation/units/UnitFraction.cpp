#include "units/UnitFraction.h"

#include "numbers/Number.h"
#include "units/UnitFractionBuilder.h"
#include "units/UnitTypeFraction.h"

#include <algorithm>
#include <utility>

namespace TBF {

namespace {

std::size_t slotOf(TBFUnitType type) {
    return static_cast<std::size_t>(TBFUnitTypeToArrayIndex(type));
}

M_APM digitsOf(const Ref<Number>& number) {
    return number ? number->mapmRef() : nullptr;
}

std::vector<Unit*> repeatedUnits(const std::vector<UnitFraction::UnitDegree>& unitDegrees, int32_t sign) {
    std::vector<Unit*> units;
    for (const UnitFraction::UnitDegree& component : unitDegrees) {
        const int32_t times = std::max(component.degree * sign, 0);
        units.insert(units.end(), static_cast<std::size_t>(times), component.unit.get());
    }
    return units;
}

} // namespace

UnitFraction::UnitFraction(Contents newContents)
    : contents(std::move(newContents)) {
    if (!contents.multiplier) contents.multiplier = Number::one();
    for (const TypeDegree& component : contents.typeDegrees) {
        const int32_t degree = component.degree;
        if (degree == 0) continue;
        Degrees& side = degree > 0 ? above : below;
        side[slotOf(component.type)] = static_cast<uint8_t>(degree > 0 ? degree : -degree);
        (degree > 0 ? aboveTotal : belowTotal) += degree > 0 ? degree : -degree;
        (degree > 0 ? aboveCount : belowCount) += 1;
    }
}

UnitFraction::~UnitFraction() = default;

Ref<UnitFraction> UnitFraction::create(Contents contents) {
    return make<UnitFraction>(std::move(contents));
}

Ref<UnitFraction> UnitFraction::createOfUnit(Unit& unit) {
    Contents contents;
    contents.unitDegrees.push_back({TBF::retain(&unit), 1});
    contents.typeDegrees.push_back({unit.type(), 1, TBF::retain(&unit)});
    contents.unitMultiplier = unit.baseFactorNumber();
    contents.multiplier = contents.unitMultiplier;
    contents.isCanonical = true;
    return make<UnitFraction>(std::move(contents));
}

const UnitFraction::TypeDegree* UnitFraction::typeDegree(TBFUnitType type) const noexcept {
    // A handful at most.
    for (const TypeDegree& component : contents.typeDegrees) {
        if (component.type == type) return &component;
    }
    return nullptr;
}

int32_t UnitFraction::degree(TBFUnitType type) const noexcept {
    const TypeDegree* const component = typeDegree(type);
    return component ? component->degree : 0;
}

Unit* UnitFraction::unitOfType(TBFUnitType type) const noexcept {
    const TypeDegree* const component = typeDegree(type);
    return component ? component->unit.get() : nullptr;
}

Unit* UnitFraction::numeratorUnitOfType(TBFUnitType type) const noexcept {
    return degree(type) > 0 ? unitOfType(type) : nullptr;
}

Unit* UnitFraction::denominatorUnitOfType(TBFUnitType type) const noexcept {
    return degree(type) < 0 ? unitOfType(type) : nullptr;
}

Unit* UnitFraction::onlyNumeratorUnit() const noexcept {
    for (const TypeDegree& component : contents.typeDegrees) {
        if (component.degree == 1) return component.unit.get();
    }
    return nullptr;
}

UnitsByType UnitFraction::unitsByType() const {
    UnitsByType units;
    for (const TypeDegree& component : contents.typeDegrees) {
        units.emplace_hint(units.end(), component.type, component.unit.get());
    }
    return units;
}

std::vector<Unit*> UnitFraction::numeratorUnits() const {
    return repeatedUnits(contents.unitDegrees, 1);
}

std::vector<Unit*> UnitFraction::denominatorUnits() const {
    return repeatedUnits(contents.unitDegrees, -1);
}

M_APM UnitFraction::multiplier() const noexcept {
    return digitsOf(contents.multiplier);
}

M_APM UnitFraction::unitMultiplier() const noexcept {
    return digitsOf(contents.unitMultiplier);
}

M_APM UnitFraction::extraMultiplier() const noexcept {
    return digitsOf(contents.extraMultiplier);
}

M_APM UnitFraction::residue() const noexcept {
    return digitsOf(contents.residue);
}

bool UnitFraction::hasOnlyOneOffsetNumeratorUnit() const noexcept {
    return std::count_if(contents.typeDegrees.begin(), contents.typeDegrees.end(),
                         [](const TypeDegree& component) {
                             return component.degree > 0 && component.unit->hasOffset();
                         }) == 1;
}

Ref<Number> UnitFraction::offset() const {
    if (!hasOnlyOneOffsetNumeratorUnit()) return {};
    for (const TypeDegree& component : contents.typeDegrees) {
        if (component.degree > 0 && component.unit->hasOffset()) return component.unit->offsetNumber();
    }
    return {};
}

TBFUnitType UnitFraction::unitType() const noexcept {
    const int32_t timeDegree = degree(TBFUnitTypeTime);
    // Other units may stand beside these two pairs.
    if (timeDegree == -1) {
        if (degree(TBFUnitTypeLength) == 1) return TBFUnitTypeVelocity;
        if (degree(TBFUnitTypeComputerStorage) == 1) return TBFUnitTypeComputerThroughput;
        if (aboveTotal == 0 && belowTotal == 1) return TBFUnitTypeFrequency;
    }
    if (hasOnlyOneUnityDegreeNumeratorUnit()) {
        for (const TypeDegree& component : contents.typeDegrees) {
            if (component.degree > 0) return component.type;
        }
    }
    return isScalar() ? TBFUnitTypeNone : TBFUnitTypeCompound;
}

bool UnitFraction::typesCompare(const UnitFraction& a, const UnitFraction& b, bool& inverted) noexcept {
    inverted = a.above == b.below && a.below == b.above;
    return inverted || (a.above == b.above && a.below == b.below);
}

bool UnitFraction::isEqualTo(const UnitFraction& other) const {
    bool inverted = false;
    return typesCompare(*this, other, inverted) && !inverted &&
           m_apm_compare(multiplier(), other.multiplier()) == 0;
}

std::string UnitFraction::stringRepresentation() const {
    return UnitTypeFraction(*this).stringRepresentation();
}

Ref<UnitFraction> UnitFraction::copyWithRecomputedMultiplier() const {
    const Ref<UnitFractionBuilder> builder = UnitFractionBuilder::create();
    builder->addUnit(const_cast<UnitFraction*>(this), 1); // reads it only
    return builder->unitFraction();
}

} // namespace TBF
