#pragma once

// An atomic unit: a type, the decimal factor to the base unit of that type, for temperatures an offset, and
// its names. Unit fractions are made of these; what a user can write is a `UnitContainer` around a fraction.
//
// A unit is filled by its loader on one thread and then shared read-only, with one exception: the factor of
// a currency may be replaced at any time, on any thread. Fractions made before keep the old factor.

#include "runtime/Object.h"
#include "runtime/Ref.h"
#include "runtime/String.h"
#include "runtime/StringId.h"
#include "units/TBFUnitTypes.h"

#include <array>
#include <atomic>
#include <cstdint>
#include <string_view>
#include <vector>

namespace TBF {

class Number;

class Unit final : public Object<Unit> {
public:
    // `factor` is decimal text with `.` as decimal point. Without an identifier the unit can't be told from
    // other units but by its address. Null, with a line in the log, for a type that no atomic unit has.
    static Ref<Unit> create(TBFUnitType type, std::string_view factor);
    static Ref<Unit> create(TBFUnitType type, std::string_view factor, Ref<String> identifier);
    // The same from digits, which aren't a special number; the text is made at the first question.
    static Ref<Unit> create(TBFUnitType type, Ref<Number> factor, Ref<String> identifier);
    static Ref<Unit> createWithSingularName(Ref<String> name, TBFUnitType type, std::string_view factor);

    TBFUnitType type() const noexcept { return unitType; }

    // The key by which fractions order their units; empty if none was set.
    const tbf::StringId<Unit>& identifier() const noexcept { return ownIdentifier; }
    const Ref<String>& identifierString() const noexcept { return ownIdentifierString; } // may be null
    void setIdentifier(Ref<String> identifier);

    // Whether both are the same unit as far as fractions are concerned: one object, or one
    // type and identifier.
    bool isSameUnit(const Unit& other) const noexcept {
        return this == &other || (unitType == other.unitType && !ownIdentifier.isEmpty() &&
                                  ownIdentifier == other.ownIdentifier);
    }

    // Name types 0 to 4; null where there is no name. A null name changes nothing.
    const Ref<String>& name(TBFUnitNameType nameType) const;
    void setName(Ref<String> name, TBFUnitNameType nameType);

    // The name of the type if there is one; for a symbol then the very short name; then the singular name;
    // last the identifier, which may be null.
    const Ref<String>& namePreferringType(TBFUnitNameType nameType) const;

    const std::vector<Ref<String>>& aliases(TBFUnitNameType nameType) const;
    void addAlias(Ref<String> alias, TBFUnitNameType nameType);

    // The factor to the base unit, 1 for a base unit itself. Parsed at the first question.
    Ref<String> baseFactor() const;
    Ref<Number> baseFactorNumber() const;
    void setBaseFactor(std::string_view factor);

    // What is added to a number in this unit before it is multiplied by the factor; null for most units.
    bool hasOffset() const noexcept { return ownOffset != nullptr; }
    const Ref<String>& offset() const noexcept { return ownOffset; }
    Ref<Number> offsetNumber() const;
    void setOffset(Ref<String> offset);

    // The power of ten that the factor is, where a prefix stands for it: -2, -1, 1, 2 or a multiple of 3 from
    // -24 to 24. 117 (`noSIExponent`) for any other factor.
    int8_t siExponent() const;
    bool isSIBaseUnit() const { return siExponent() != noSIExponent; }
    static constexpr int8_t noSIExponent = 117;
    static constexpr bool isSIExponent(int32_t exponent) {
        if (exponent < -24 || exponent > 24) return false;
        return exponent % 3 == 0 || (exponent >= -2 && exponent <= 2);
    }

    // Equal type and equal factor; names don't count.
    bool isEqualTo(const Unit& other) const;

    int32_t ambiguousTieBreakFactor() const noexcept { return tieBreakFactor; }
    void setAmbiguousTieBreakFactor(int32_t factor) noexcept { tieBreakFactor = factor; }

private:
    friend class Object<Unit>;
    Unit(TBFUnitType type, std::string_view factor);
    Unit(TBFUnitType type, Ref<Number> factor);
    ~Unit() override;

    static constexpr int8_t unknownSIExponent = 127;

    TBFUnitType unitType;
    int32_t tieBreakFactor = 0;
    tbf::StringId<Unit> ownIdentifier;
    Ref<String> ownIdentifierString;
    std::array<Ref<String>, TBFUnitNameTypeSlotCount> names;
    std::array<std::vector<Ref<String>>, TBFUnitNameTypeSlotCount> ownAliases;
    Ref<String> ownOffset;

    // All below is read and written under the lock of the source file; the decimals are made when first asked
    // for.
    // Of text and number at least one is there.
    mutable Ref<String> factorText;
    mutable Ref<Number> factorNumber;
    mutable Ref<Number> ownOffsetNumber;
    mutable std::atomic<int8_t> cachedSIExponent{unknownSIExponent};
};

} // namespace TBF
