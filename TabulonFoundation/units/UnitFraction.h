#pragma once

// The unit of a value: which units of which types stand above and below the line, and the decimal that leads
// from a number in this unit to one in base units. Made by a `UnitFractionBuilder`, immutable, shared between
// threads. Units cancel by type, not by unit: a metre over a foot has no units but a multiplier. A type
// shows the last unit that was written for it. An extra multiplier is a pure number that the units don't
// explain; the evaluator moves it into the value.
//
// A type that cancels in part, in different units, leaves a factor too: a kilometre over a square metre is
// "per metre", a thousand times. That residue belongs to the multiplier of the units, and goes with the
// fraction wherever it is copied, multiplied or raised.
//
// A number x in a fraction stands for (x + offset) * multiplier in base units.

#include "runtime/Object.h"
#include "runtime/Ref.h"
#include "units/TBFUnitTypes.h"
#include "units/Unit.h"

#include "m_apm.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace TBF {

class Number;
class UnitTypeFraction;

// At most one unit for each type, borrowed.
using UnitsByType = std::map<TBFUnitType, Unit*>;

class UnitFraction final : public Object<UnitFraction> {
public:
    // A unit that survived cancelling, with its degree, which isn't 0.
    struct UnitDegree {
        Ref<Unit> unit;
        int32_t degree;
    };

    // A type, the unit to show for it, and its degree: 0 where the type was cancelled away.
    struct TypeDegree {
        TBFUnitType type;
        int32_t degree;
        Ref<Unit> unit;
    };

    struct Contents {
        std::vector<UnitDegree> unitDegrees; // by identifier
        std::vector<TypeDegree> typeDegrees; // by type; each degree is the sum over the units of the type
        Ref<Number> unitMultiplier;          // null without units
        Ref<Number> residue;                 // what it has beyond the factors of `unitDegrees`; null for 1
        Ref<Number> extraMultiplier;         // null if it would be 1
        Ref<Number> multiplier;              // null stands for 1
        bool isCanonical = false;            // see isCanonical()
    };

    // For the builder, which keeps the degrees within `minimalDegree` and `maximalDegree`.
    static Ref<UnitFraction> create(Contents contents);

    // Of one unit with degree 1: what a builder makes of it, at a small part of the cost.
    static Ref<UnitFraction> createOfUnit(Unit& unit);

    static constexpr int32_t minimalDegree = -128;
    static constexpr int32_t maximalDegree = 127;

    // Degrees by type. The signed degree of a type; 0 if it isn't there.
    int32_t degree(TBFUnitType type) const noexcept;
    const std::vector<TypeDegree>& typeDegrees() const noexcept { return contents.typeDegrees; }
    int32_t numeratorTotalDegree() const noexcept { return aboveTotal; }
    int32_t denominatorTotalDegree() const noexcept { return belowTotal; } // as a positive number
    int32_t countOfNumeratorTypes() const noexcept { return aboveCount; }
    int32_t countOfDenominatorTypes() const noexcept { return belowCount; }
    bool isScalar() const noexcept { return aboveTotal == 0 && belowTotal == 0; }

    // Units, borrowed; null where there is none. `unitOfType` knows cancelled types too.
    Unit* unitOfType(TBFUnitType type) const noexcept;
    Unit* numeratorUnitOfType(TBFUnitType type) const noexcept;
    Unit* denominatorUnitOfType(TBFUnitType type) const noexcept;
    Unit* onlyNumeratorUnit() const noexcept; // the first one of degree 1 above the line
    bool hasOnlyOneUnityDegreeNumeratorUnit() const noexcept { return aboveTotal == 1 && belowTotal == 0; }
    UnitsByType unitsByType() const;
    const std::vector<UnitDegree>& unitDegrees() const noexcept { return contents.unitDegrees; }

    // Each unit as often as its degree.
    std::vector<Unit*> numeratorUnits() const;
    std::vector<Unit*> denominatorUnits() const;

    // Decimals, borrowed. The multiplier includes the extra one. Null: no units, or 1.
    M_APM multiplier() const noexcept;
    M_APM unitMultiplier() const noexcept;
    M_APM extraMultiplier() const noexcept;
    bool hasExtraMultiplier() const noexcept { return contents.extraMultiplier != nullptr; }
    M_APM residue() const noexcept;

    // The offset of the numerator's only unit that has one; null if none or several have.
    bool hasOnlyOneOffsetNumeratorUnit() const noexcept;
    Ref<Number> offset() const;

    // 0 without units, 1 for units that aren't of one of the single types.
    TBFUnitType unitType() const noexcept;

    // Whether numbers can be converted from one to the other. `inverted` tells that this takes the
    // reciprocal. Without units both are true.
    static bool typesCompare(const UnitFraction& a, const UnitFraction& b, bool& inverted) noexcept;

    // The same degrees, not inverse, and equal multipliers.
    bool isEqualTo(const UnitFraction& other) const;

    // The degrees as text: "[length:1][time:-1]".
    std::string stringRepresentation() const;

    // Built anew from the surviving units, so with their present factors and without an extra multiplier. The
    // residue stays: the copy times the extra multiplier is this fraction again.
    Ref<UnitFraction> copyWithRecomputedMultiplier() const;

    // True if building a fraction from the units of `typeDegrees`, in their order, gives this very
    // fraction again, to the last digit. So it need not be done.
    bool isCanonical() const noexcept { return contents.isCanonical; }

private:
    friend class Object<UnitFraction>;
    explicit UnitFraction(Contents contents);
    ~UnitFraction() override;

    const TypeDegree* typeDegree(TBFUnitType type) const noexcept;

    // One slot more than there are array indexes; the last one stays 0.
    static constexpr std::size_t slotCount = 22;
    using Degrees = std::array<uint8_t, slotCount>;

    Contents contents;
    Degrees above{};
    Degrees below{};
    int32_t aboveTotal = 0;
    int32_t belowTotal = 0;
    int32_t aboveCount = 0;
    int32_t belowCount = 0;
};

} // namespace TBF
