#pragma once

// Which units a line named, gathered node by node while the line is evaluated, so that the answer shows
// the units the user spoke of. Preferred units are those seen; required units are those asked for by a
// conversion. Written by the node evaluator and by functions that hand out metadata of their own; used by
// one thread at a time. The units are borrowed from the unit collection, which outlives an evaluation.

#include "runtime/Object.h"
#include "runtime/Ref.h"
#include "units/UnitNameFormats.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>

enum TBFUnitType : int32_t;
enum TBFOperatorType : int32_t;

namespace TBF {

class UnitFraction;

class EvalMetadata final : public Object<EvalMetadata> {
public:
    // At most one unit for each unit type.
    using UnitsByType = std::map<TBFUnitType, Unit*>;

    static Ref<EvalMetadata> create();

    // Every unit of the fraction becomes the preferred one of its type and side of the fraction line.
    void appendUnitFraction(const UnitFraction* fraction);
    void appendUnitNameFormatMapping(const Unit* unit, TBFUnitFormatType format);

    // Takes in what a later operand gathered; on a conflict the other one wins. The right-hand operand
    // of a conversion replaces all requirements by the units it names.
    void append(const EvalMetadata& other);
    void append(const EvalMetadata& other, TBFOperatorType operation);

    // The numerator's unit of the type if there is one, else the denominator's, else null.
    Unit* preferredUnit(TBFUnitType type) const;
    Unit* requiredUnit(TBFUnitType type) const;

    // The same for each of the unit types that are shown at all.
    UnitsByType preferredUnits() const;
    UnitsByType requiredUnits() const;

    const UnitNameFormats& unitNameFormats() const noexcept { return formats; }

private:
    friend class Object<EvalMetadata>;
    EvalMetadata() = default;
    ~EvalMetadata() override = default;

    // A slot for each unit type; null for none.
    static constexpr std::size_t slotCount = 21;
    struct Sides {
        std::array<Unit*, slotCount> numerator{};
        std::array<Unit*, slotCount> denominator{};

        Unit* unit(TBFUnitType type) const;
        void overlay(const Sides& other);
        void eraseNamedIn(const Sides& other);
        UnitsByType byType() const;
    };

    Sides preferred;
    Sides required;
    UnitNameFormats formats;
};

} // namespace TBF
