#include "units/UnitFractionFactorizer.h"

#include "numbers/KernelLock.h"
#include "numbers/MAPMAccumulator.h"
#include "numbers/Number.h"
#include "runtime/ContainerFunctions.h"
#include "units/UnitCollection.h"
#include "units/UnitContainer.h"
#include "units/UnitFractionBuilder.h"
#include "units/UnitTypeFactorings.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace TBF {

namespace {

// What speaks for and against a candidate. The division by the square of a degree is one of integers: 8 for a
// degree of 1, 2 for 2, nothing above.
constexpr int32_t requiredUnitScore = 500;
constexpr int32_t negativeFrequencyScore = -10000;
constexpr int32_t compoundRateScore = -50; // a speed or a frequency beside other types
constexpr int32_t knownUnitScore = 8;      // divided by the square of the degree
constexpr int32_t allKnownScore = 6;
constexpr int32_t derivedScore = 3;
constexpr int32_t trivialDefinitionScore = 6;
constexpr int32_t fewTypesScore = 8; // divided by the number of types
constexpr int32_t writtenFormScore = 1;

bool has(const UnitsByType& units, TBFUnitType type) {
    return units.find(type) != units.end();
}

Unit* find(const UnitsByType& units, TBFUnitType type) {
    const auto found = units.find(type);
    return found == units.end() ? nullptr : found->second;
}

// The unit for a type where no base unit of the collection is needed; null otherwise.
Unit* knownUnit(const UnitFraction& source, const UnitsByType& units, TBFUnitType type) {
    Unit* const given = find(units, type);
    return given ? given : source.unitOfType(type);
}

// Whether a new fraction of the types would be the source again.
bool isSourceAgain(const UnitFraction& source, const UnitsByType& units, const UnitTypeFraction& types) {
    if (!source.isCanonical() || !types.hasSameDegrees(UnitTypeFraction(source))) return false;
    return std::all_of(source.typeDegrees().begin(), source.typeDegrees().end(), [&](const auto& component) {
        return knownUnit(source, units, component.type) == component.unit.get();
    });
}

// Whether the text of the fraction, with one unit for each type, says all that is in it. The base unit of a
// type may bring units of its own (m/s^2 for accelerations) beside others of their types.
bool showsItsUnits(const UnitFraction& fraction) {
    const auto& units = fraction.unitDegrees();
    return !fraction.residue() && std::all_of(units.begin(), units.end(), [&](const auto& component) {
        return fraction.unitOfType(component.unit->type())->isSameUnit(*component.unit);
    });
}

// A type fraction beside its score.
struct Candidate {
    const UnitTypeFraction* types;
    int32_t score;
};

} // namespace

Ref<UnitFraction> createUnitFractionFromTypeFraction(const UnitCollection* collection,
                                                     Ref<MAPMAccumulator>& accumulator, UnitFraction* source,
                                                     const UnitsByType& units,
                                                     const UnitTypeFraction& types) {
    if (!source) return {};
    if (isSourceAgain(*source, units, types)) return TBF::retain(source);
    if (!accumulator) accumulator = MAPMAccumulator::create(UnitFractionBuilder::defaultPrecision);
    Ref<UnitFractionBuilder> builder = UnitFractionBuilder::create(accumulator);
    types.forEachComponent([&](TBFUnitType type, int32_t degree) {
        if (degree == 0) return;
        if (Unit* const unit = knownUnit(*source, units, type)) {
            builder->addUnit(unit, degree);
        } else if (collection) {
            builder->addUnit(collection->baseUnit(type), degree);
        }
    });
    Ref<UnitFraction> plain = builder->unitFraction();
    if (plain && !showsItsUnits(*plain)) {
        builder = UnitFractionBuilder::create(accumulator);
        for (const auto& component : plain->typeDegrees()) {
            Unit* const known = knownUnit(*source, units, component.type);
            builder->addUnit(known ? known : component.unit.get(), component.degree);
        }
        plain = builder->unitFraction();
    }
    if (!plain) return {};
    {
        const KernelLock lock;
        accumulator->initialize(source->multiplier());
        accumulator->divideBy(plain->multiplier());
        builder->setExtraMultiplier(accumulator->result());
    }
    return builder->unitFraction();
}

UnitFractionFactorizer::UnitFractionFactorizer(UnitCollection* unitCollection,
                                               Ref<UnitTypeFactorings> unitTypeFactorings)
    : factorings(std::move(unitTypeFactorings))
    , collection(TBF::retain(unitCollection)) {}

UnitFractionFactorizer::~UnitFractionFactorizer() = default;

Ref<UnitFractionFactorizer> UnitFractionFactorizer::create(UnitCollection* collection) {
    return create(collection, UnitTypeFactorings::instance());
}

Ref<UnitFractionFactorizer> UnitFractionFactorizer::create(UnitCollection* collection,
                                                           Ref<UnitTypeFactorings> factorings) {
    return make<UnitFractionFactorizer>(collection, std::move(factorings));
}

std::vector<UnitTypeFraction>
UnitFractionFactorizer::findAllFactorizations(const UnitTypeFraction& fraction) const {
    return *factorings->allFactorizations(fraction);
}

int32_t UnitFractionFactorizer::score(const UnitTypeFraction& candidate, const UnitsByType& preferredUnits,
                                      const UnitsByType& requiredUnits) const {
    const int32_t count = candidate.countOfComponents();
    if (count == 0) return std::numeric_limits<int32_t>::min();
    int32_t score = 0;
    int32_t matches = 0;
    int32_t sum = 0;
    candidate.forEachComponent([&](TBFUnitType type, int32_t degree) {
        if (degree == 0) return;
        const bool isRate = type == TBFUnitTypeVelocity || type == TBFUnitTypeFrequency;
        sum += degree;
        if (type == TBFUnitTypeFrequency && degree < 0) {
            score += negativeFrequencyScore;
        } else if (has(requiredUnits, type)) {
            score += requiredUnitScore + knownUnitScore / (degree * degree);
            ++matches;
        } else if (isRate && count > 1) {
            score += compoundRateScore;
        } else if (has(preferredUnits, type)) {
            score += knownUnitScore / (degree * degree);
            ++matches;
        }
    });
    if (matches == count) score += allKnownScore;
    const UnitTypeFactoring* const factorized = factorings->factoringForFactorizedUnitTypeFraction(candidate);
    if (factorized && !factorized->isTrivial()) {
        score += derivedScore;
    } else {
        const UnitTypeFactoring* const decomposed =
            factorings->factoringForDecomposedUnitTypeFraction(candidate);
        if (decomposed && decomposed->isTrivial()) score += trivialDefinitionScore;
    }
    score += fewTypesScore / count;
    return sum < 0 ? score + sum : score;
}

UnitTypeFraction UnitFractionFactorizer::chooseTypes(const UnitTypeFraction& simplified,
                                                     const UnitTypeFraction& written,
                                                     const UnitsByType& preferredUnits,
                                                     const UnitsByType& requiredUnits) const {
    const auto scoreOf = [&](const UnitTypeFraction& types) {
        return score(types, preferredUnits, requiredUnits);
    };
    // In the order that decides between equals: the written form, the simplified one, then the others by
    // their text.
    Candidate best{&written, scoreOf(written) + writtenFormScore};
    const int32_t simplifiedScore = scoreOf(simplified) + writtenFormScore;
    if (simplifiedScore > best.score) best = {&simplified, simplifiedScore};
    const auto others = factorings->allFactorizations(simplified);
    for (const UnitTypeFraction& other : *others) {
        const int32_t otherScore = scoreOf(other);
        if (otherScore < best.score) continue;
        const bool isEqual = otherScore == best.score;
        if (isEqual && (best.types == &written || best.types == &simplified)) continue;
        if (isEqual && best.types->stringRepresentation() <= other.stringRepresentation()) continue;
        best = {&other, otherScore};
    }
    return *best.types;
}

Ref<UnitFraction> UnitFractionFactorizer::undecompose(UnitFraction* fraction,
                                                      const UnitsByType& preferredUnits,
                                                      const UnitsByType& requiredUnits,
                                                      UnitFraction* writtenFraction) {
    if (!fraction) return {};
    UnitFraction& written = writtenFraction ? *writtenFraction : *fraction;
    const UnitTypeFraction types =
        chooseTypes(UnitTypeFraction(*fraction), UnitTypeFraction(written), preferredUnits, requiredUnits);
    UnitsByType units = preferredUnits;
    tbf::insertAndOverride(units, requiredUnits.begin(), requiredUnits.end());
    return createUnitFractionFromTypeFraction(collection.get(), accumulator, &written, units, types);
}

} // namespace TBF
