#include "units/UnitFractionBuilder.h"

#include "numbers/Decimal.h"
#include "numbers/KernelLock.h"
#include "numbers/MAPMAccumulator.h"
#include "numbers/Number.h"
#include "units/UnitContainer.h"
#include "units/UnitFraction.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdlib>
#include <utility>

namespace TBF {

namespace {

// No sum of degrees that fractions can hold makes up for more.
constexpr int64_t largestDegreeAdded = 256;

std::size_t slotOf(const Unit& unit) {
    return static_cast<std::size_t>(unit.type());
}

void applyFactor(const Unit& unit, int64_t count, MAPMAccumulator& accumulator,
                 void (MAPMAccumulator::*step)(M_APM_const)) {
    // Before the kernel's lock: the unit may have to parse it under a lock of its own.
    const Ref<Number> factor = unit.baseFactorNumber();
    const KernelLock lock;
    for (int64_t i = 0; i < count; ++i)
        (accumulator.*step)(factor->mapmRef());
}

} // namespace

// What stands on the two sides, by type.
struct UnitFractionBuilder::Counting {
    struct Type {
        int64_t above = 0;
        int64_t below = 0;
        Unit* last = nullptr;  // the last one written; below the line counts as later
        bool isUniform = true; // all units of the type are that one

        int64_t net() const { return above - below; }
    };
    std::array<Type, TBFUnitTypeCount> types; // by type

    // Whether what is below the line stands in ascending order of type. Above it order makes no difference:
    // products are exact, only quotients are cut.
    bool isOrdered;

    Counting(const Side& numerators, const Side& denominators) {
        count(numerators, &Type::above);
        isOrdered = count(denominators, &Type::below);
    }

    // Returns whether the side is in ascending order of type.
    bool count(const Side& side, int64_t Type::*sum) {
        bool isAscending = true;
        std::size_t previousSlot = 0;
        for (const Run& run : side) {
            const std::size_t slot = slotOf(*run.unit);
            Type& type = types[slot];
            type.*sum += run.count;
            if (type.last && type.last != run.unit.get()) type.isUniform = false;
            type.last = run.unit.get();
            if (slot < previousSlot) isAscending = false;
            previousSlot = slot;
        }
        return isAscending;
    }

    bool isCancelled(const Unit& unit) const { return types[slotOf(unit)].net() == 0; }

    template <typename Predicate>
    bool all(Predicate holds) const {
        return std::all_of(types.begin(), types.end(),
                           [&](const Type& type) { return !type.last || holds(type); });
    }

    bool fits() const {
        return all([](const Type& type) {
            return type.net() >= UnitFraction::minimalDegree && type.net() <= UnitFraction::maximalDegree;
        });
    }
    bool cancelsNothing() const {
        return all([](const Type& type) { return type.net() != 0; });
    }
    // Whether a type cancels in part, and not just by the same unit.
    bool cancelsInPart() const {
        return !all([](const Type& type) {
            return type.isUniform || type.above == 0 || type.below == 0 || type.net() == 0;
        });
    }
    bool cancelsEverything() const {
        return all([](const Type& type) { return type.net() == 0; });
    }
    bool isCanonical() const {
        return isOrdered &&
               all([](const Type& type) { return type.isUniform && (type.above == 0) != (type.below == 0); });
    }

    std::vector<UnitFraction::TypeDegree> typeDegrees() const {
        std::vector<UnitFraction::TypeDegree> result;
        for (std::size_t slot = 0; slot < types.size(); ++slot) {
            const Type& type = types[slot];
            if (!type.last) continue;
            result.push_back(
                {static_cast<TBFUnitType>(slot), static_cast<int32_t>(type.net()), TBF::retain(type.last)});
        }
        return result;
    }

    // Adds the last `net` units of each type on the side that has more of it, with the sign of that side.
    void collectSurvivors(const Side& side, int32_t sign,
                          std::vector<UnitFraction::UnitDegree>& survivors) const {
        std::array<int64_t, TBFUnitTypeCount> wanted{};
        for (std::size_t slot = 0; slot < types.size(); ++slot)
            wanted[slot] = types[slot].net() * sign;
        for (auto run = side.rbegin(); run != side.rend(); ++run) {
            int64_t& rest = wanted[slotOf(*run->unit)];
            const int64_t taken = std::min<int64_t>(rest, run->count);
            if (taken <= 0) continue;
            rest -= taken;
            add(*run->unit, static_cast<int32_t>(taken) * sign, survivors);
        }
    }

    static void add(Unit& unit, int32_t degree, std::vector<UnitFraction::UnitDegree>& survivors) {
        for (UnitFraction::UnitDegree& survivor : survivors) {
            if (survivor.unit->isSameUnit(unit)) {
                survivor.degree += degree;
                return;
            }
        }
        survivors.push_back({TBF::retain(&unit), degree});
    }

    std::vector<UnitFraction::UnitDegree> unitDegrees(const Side& above, const Side& below) const {
        std::vector<UnitFraction::UnitDegree> survivors;
        collectSurvivors(above, 1, survivors);
        collectSurvivors(below, -1, survivors);
        std::stable_sort(survivors.begin(), survivors.end(), [](const auto& a, const auto& b) {
            return a.unit->identifier() < b.unit->identifier();
        });
        return survivors;
    }
};

struct UnitFractionBuilder::Multipliers {
    Ref<Number> ofUnits;
    Ref<Number> residue;
    Ref<Number> extra;
    Ref<Number> total;
};

UnitFractionBuilder::UnitFractionBuilder(Ref<MAPMAccumulator> givenAccumulator) noexcept
    : accumulator(std::move(givenAccumulator)) {}

UnitFractionBuilder::~UnitFractionBuilder() = default;

Ref<UnitFractionBuilder> UnitFractionBuilder::create() {
    return make<UnitFractionBuilder>(Ref<MAPMAccumulator>());
}

Ref<UnitFractionBuilder> UnitFractionBuilder::create(Ref<MAPMAccumulator> accumulator) {
    return make<UnitFractionBuilder>(std::move(accumulator));
}

Ref<UnitFractionBuilder> UnitFractionBuilder::create(Unit* unit) {
    Ref<UnitFractionBuilder> builder = create();
    builder->addUnit(unit, 1);
    return builder;
}

Ref<UnitFractionBuilder> UnitFractionBuilder::create(UnitContainer* container) {
    Ref<UnitFractionBuilder> builder = create();
    builder->addUnit(container, 1);
    return builder;
}

Ref<UnitFractionBuilder> UnitFractionBuilder::create(UnitFraction* fraction) {
    Ref<UnitFractionBuilder> builder = create();
    builder->addUnit(fraction, 1);
    return builder;
}

void UnitFractionBuilder::changed() noexcept {
    isBuilt = false;
    built.reset();
}

void UnitFractionBuilder::append(Side& side, Unit* unit, int32_t count) {
    if (!side.empty() && side.back().unit == unit) {
        side.back().count += count;
    } else {
        side.push_back({TBF::retain(unit), count});
    }
}

void UnitFractionBuilder::addUnit(Unit* unit, int32_t degree) {
    if (!unit || degree == 0) return;
    changed();
    const int64_t times = std::abs(int64_t{degree});
    if (times > largestDegreeAdded) {
        hasExcessiveDegree = true;
        return;
    }
    append(degree > 0 ? numerators : denominators, unit, static_cast<int32_t>(times));
}

void UnitFractionBuilder::addUnit(UnitContainer* container, int32_t degree) {
    if (container) addUnit(container->unitFraction(), degree);
}

void UnitFractionBuilder::addUnit(UnitFraction* fraction, int32_t degree) {
    if (!fraction || degree == 0 || fraction->isScalar()) return;
    changed();
    const int64_t times = std::abs(int64_t{degree});
    if (times > largestDegreeAdded) {
        hasExcessiveDegree = true;
        return;
    }
    Side& above = degree > 0 ? numerators : denominators;
    Side& below = degree > 0 ? denominators : numerators;
    for (int64_t i = 0; i < times; ++i) {
        for (const UnitFraction::UnitDegree& component : fraction->unitDegrees()) {
            append(component.degree > 0 ? above : below, component.unit.get(), std::abs(component.degree));
        }
    }
    if (M_APM residue = fraction->residue()) addResidue(residue, degree);
}

MAPMAccumulator& UnitFractionBuilder::startAt(const Number& number) {
    if (!accumulator) accumulator = MAPMAccumulator::create(defaultPrecision);
    accumulator->initialize(number.mapmRef());
    return *accumulator;
}

void UnitFractionBuilder::addResidue(M_APM added, int32_t degree) {
    const KernelLock lock;
    MAPMAccumulator& product = startAt(addedResidue ? *addedResidue : *Number::one());
    for (int32_t i = 0; i < std::abs(degree); ++i) {
        if (degree > 0) {
            product.multiplyBy(added);
        } else {
            product.divideBy(added);
        }
    }
    addedResidue = Number::create(product.result(), TBFNumberTypeDecimal);
}

void UnitFractionBuilder::setExtraMultiplier(M_APM multiplier) {
    changed();
    extraMultiplier = multiplier ? Number::create(multiplier, TBFNumberTypeDecimal) : Ref<Number>();
}

void UnitFractionBuilder::setExtraMultiplier(const char* text) {
    changed();
    extraMultiplier = text ? Number::create(text, TBFNumberTypeDecimal) : Ref<Number>();
}

void UnitFractionBuilder::invert() {
    changed();
    numerators.swap(denominators);
    if (!addedResidue) return;
    const Ref<Number> upright = std::move(addedResidue);
    addResidue(upright->mapmRef(), -1);
}

Ref<UnitFraction> UnitFractionBuilder::unitFraction() {
    if (!isBuilt) {
        built = build();
        isBuilt = true;
    }
    return built;
}

M_APM UnitFractionBuilder::multiplier() {
    const Ref<UnitFraction> fraction = unitFraction();
    return fraction ? fraction->multiplier() : nullptr;
}

Ref<UnitFraction> UnitFractionBuilder::build() {
    if (hasExcessiveDegree) return {};
    const Counting counting(numerators, denominators);
    if (!counting.fits()) return {};
    Multipliers multipliers = computeMultipliers(counting);
    UnitFraction::Contents contents;
    contents.unitDegrees = counting.unitDegrees(numerators, denominators);
    contents.typeDegrees = counting.typeDegrees();
    contents.unitMultiplier = std::move(multipliers.ofUnits);
    contents.residue = std::move(multipliers.residue);
    contents.extraMultiplier = std::move(multipliers.extra);
    contents.multiplier = std::move(multipliers.total);
    contents.isCanonical = !extraMultiplier && !addedResidue && counting.isCanonical();
    return UnitFraction::create(std::move(contents));
}

// Cancelled types explain no part of the units' multiplier, but their factors stay in the total: they are
// what the extra multiplier is made of, besides the one that was set.
UnitFractionBuilder::Multipliers UnitFractionBuilder::computeMultipliers(const Counting& counting) {
    Multipliers multipliers;
    multipliers.residue = computeResidue(counting);
    multipliers.ofUnits = product(counting, false);
    if (!extraMultiplier && counting.cancelsNothing()) {
        multipliers.total = multipliers.ofUnits;
    } else {
        multipliers.total = product(counting, true);
        const KernelLock lock;
        accumulator->divideBy(multipliers.ofUnits->mapmRef());
        multipliers.extra = Number::create(accumulator->result(), TBFNumberTypeDecimal);
        if (m_apm_compare(multipliers.extra->mapmRef(), MM_One) == 0) multipliers.extra.reset();
    }
    if (counting.cancelsEverything()) multipliers.ofUnits.reset();
    return multipliers;
}

// The factors of what was cancelled beside surviving units of the same type, which are the last ones written.
Ref<Number> UnitFractionBuilder::computeResidue(const Counting& counting) {
    const bool survives = !counting.cancelsEverything();
    if (!counting.cancelsInPart()) return survives ? addedResidue : nullptr;
    startAt(addedResidue ? *addedResidue : *Number::one());
    const auto apply = [&](const Side& side, int64_t Counting::Type::*other,
                           void (MAPMAccumulator::*step)(M_APM_const)) {
        std::array<int64_t, TBFUnitTypeCount> cancelled{};
        for (std::size_t slot = 0; slot < cancelled.size(); ++slot) {
            if (counting.types[slot].net() != 0) cancelled[slot] = counting.types[slot].*other;
        }
        for (const Run& run : side) {
            int64_t& rest = cancelled[slotOf(*run.unit)];
            const int64_t taken = std::min<int64_t>(rest, run.count);
            if (taken > 0) applyFactor(*run.unit, taken, *accumulator, step);
            rest -= taken;
        }
    };
    apply(numerators, &Counting::Type::below, &MAPMAccumulator::multiplyBy);
    apply(denominators, &Counting::Type::above, &MAPMAccumulator::divideBy);
    const KernelLock lock;
    if (m_apm_compare(accumulator->result(), MM_One) == 0) return {};
    return Number::create(accumulator->result(), TBFNumberTypeDecimal);
}

// The product of the factors: of all units and the extra multiplier, or only of those whose type isn't
// cancelled. Where that is all, the accumulator holds the result too. A residue counts among the units as
// long as there are any.
Ref<Number> UnitFractionBuilder::product(const Counting& counting, bool includingCancelled) {
    const bool isOneUnit = numerators.size() == 1 && numerators[0].count == 1 && denominators.empty();
    if (!includingCancelled && isOneUnit && !addedResidue) return numerators[0].unit->baseFactorNumber();
    startAt(*Number::one());
    const auto apply = [&](const Side& side, void (MAPMAccumulator::*step)(M_APM_const)) {
        for (const Run& run : side) {
            if (!includingCancelled && counting.isCancelled(*run.unit)) continue;
            applyFactor(*run.unit, run.count, *accumulator, step);
        }
    };
    apply(numerators, &MAPMAccumulator::multiplyBy);
    apply(denominators, &MAPMAccumulator::divideBy);
    if (addedResidue && (includingCancelled || !counting.cancelsEverything())) {
        accumulator->multiplyBy(addedResidue->mapmRef());
    }
    if (includingCancelled && extraMultiplier) accumulator->multiplyBy(extraMultiplier->mapmRef());
    return Number::create(accumulator->result(), TBFNumberTypeDecimal);
}

} // namespace TBF
