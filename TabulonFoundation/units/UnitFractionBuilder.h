#pragma once

// Makes unit fractions: takes units for both sides of the line, cancels them by type and works out the
// multipliers. Used by whatever multiplies, divides or names units; by one thread at a time.
//
//     const Ref<UnitFractionBuilder> builder = UnitFractionBuilder::create();
//     builder->addUnit(left, 1);
//     builder->addUnit(right, -1);
//     const Ref<UnitFraction> quotient = builder->unitFraction();
//     if (!quotient) ... // a degree too large to be held

#include "runtime/Object.h"
#include "runtime/Ref.h"

#include "m_apm.h"

#include <cstdint>
#include <vector>

namespace TBF {

class MAPMAccumulator;
class Number;
class Unit;
class UnitContainer;
class UnitFraction;

class UnitFractionBuilder final : public Object<UnitFractionBuilder> {
public:
    // The precision of divisions where no accumulator is given.
    static constexpr int32_t defaultPrecision = 100;

    static Ref<UnitFractionBuilder> create();
    static Ref<UnitFractionBuilder> create(Ref<MAPMAccumulator> accumulator);

    // Holding the argument with degree 1. Null is nothing.
    static Ref<UnitFractionBuilder> create(Unit* unit);
    static Ref<UnitFractionBuilder> create(UnitContainer* container);
    static Ref<UnitFractionBuilder> create(UnitFraction* fraction);

    // Add something as often as `degree` says, below the line if that is negative. Null is ignored. Of a
    // fraction the units are added with their residue, but not its extra multiplier.
    void addUnit(Unit* unit, int32_t degree);
    void addUnit(UnitContainer* container, int32_t degree);
    void addUnit(UnitFraction* fraction, int32_t degree);

    // Copies the digits; null clears it. It isn't touched by `invert`.
    void setExtraMultiplier(M_APM multiplier);
    void setExtraMultiplier(const char* text);

    // Exchanges what is above the line with what is below.
    void invert();

    // The fraction of what has been added so far. Null if the degree of a type is outside of -128 to 127:
    // the answer of a line with such a unit is an error.
    Ref<UnitFraction> unitFraction();

    // The multiplier of that fraction, borrowed until the next change; null with a degree too large.
    M_APM multiplier();

private:
    friend class Object<UnitFractionBuilder>;
    explicit UnitFractionBuilder(Ref<MAPMAccumulator> accumulator) noexcept;
    ~UnitFractionBuilder() override;

    // `count` times the same unit in a row; count is above 0.
    struct Run {
        Ref<Unit> unit;
        int32_t count;
    };
    using Side = std::vector<Run>;

    struct Counting;
    struct Multipliers;

    static void append(Side& side, Unit* unit, int32_t count);
    Ref<UnitFraction> build();
    Multipliers computeMultipliers(const Counting& counting);
    Ref<Number> product(const Counting& counting, bool includingCancelled);
    Ref<Number> computeResidue(const Counting& counting);
    void addResidue(M_APM added, int32_t degree);
    MAPMAccumulator& startAt(const Number& number);
    void changed() noexcept;

    Ref<MAPMAccumulator> accumulator; // made when first needed
    Side numerators;
    Side denominators;
    Ref<Number> extraMultiplier;
    Ref<Number> addedResidue; // of all fractions added; null for 1
    bool hasExcessiveDegree = false;
    bool isBuilt = false;
    Ref<UnitFraction> built;
};

} // namespace TBF
