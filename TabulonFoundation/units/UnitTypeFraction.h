#pragma once

// A fraction of unit types, with no units in sight: which types have which degree. The relations between
// types (UnitTypeFactorings) and the work on them (simplifier, factorizer) are told in these. A plain value.
//
// A type that an operation brought to degree 0 stays a component: it counts in `isSubsetOf` and nowhere
// else. Degrees are held wide enough that one which no unit fraction can hold is noticed there.

#include "units/TBFUnitTypes.h"

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

namespace TBF {

class UnitFraction;

class UnitTypeFraction {
public:
    using Component = std::pair<TBFUnitType, int32_t>;

    UnitTypeFraction() = default;
    // A later pair of a type replaces an earlier one.
    UnitTypeFraction(std::initializer_list<Component> components);
    explicit UnitTypeFraction(const UnitFraction& fraction);

    int32_t degree(TBFUnitType type) const { return degrees[slot(type)]; }
    void setDegree(TBFUnitType type, int32_t degree);
    void degreeOffset(TBFUnitType type, int32_t offset) { setDegree(type, degree(type) + offset); }
    void degreeIncrement(TBFUnitType type) { degreeOffset(type, 1); }
    void degreeDecrement(TBFUnitType type) { degreeOffset(type, -1); }

    // Adds `times` times the degrees of the other fraction.
    void add(const UnitTypeFraction& other, int32_t times);

    // All components, those of degree 0 included, in ascending order of type.
    std::vector<Component> components() const;

    // Calls `visit(type, degree)` for the same components in the same order.
    template <typename Visit>
    void forEachComponent(Visit visit) const {
        for (uint32_t rest = present; rest != 0; rest &= rest - 1) {
            const auto index = static_cast<std::size_t>(std::countr_zero(rest));
            visit(static_cast<TBFUnitType>(index), degrees[index]);
        }
    }

    // Components of a degree other than 0.
    int32_t countOfComponents() const;
    bool hasSameDegrees(const UnitTypeFraction& other) const { return degrees == other.degrees; }

    UnitTypeFraction inverse() const;

    // Whether `other` holds at least the degree of each component here: as much or more where it is 0 or
    // positive, as little or less where it is negative.
    bool isSubsetOf(const UnitTypeFraction& other) const;

    // "[length:1][time:-1]" in ascending order of type, without components of degree 0.
    std::string stringRepresentation() const;

    // For tables whose keys are the degrees.
    struct DegreesHash {
        std::size_t operator()(const UnitTypeFraction& fraction) const noexcept;
    };
    struct DegreesEqual {
        bool operator()(const UnitTypeFraction& a, const UnitTypeFraction& b) const noexcept {
            return a.hasSameDegrees(b);
        }
    };

private:
    static std::size_t slot(TBFUnitType type);

    std::array<int32_t, TBFUnitTypeCount> degrees{}; // by type
    uint32_t present = 0;                            // a bit for each component
};

} // namespace TBF
