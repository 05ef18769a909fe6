#pragma once

// What is known of operators between certain types: when the operands hold these types, one of the operands
// is of that type. The disambiguator asks it. Immutable, shared between threads.

#include "numbers/TBFOperatorType.h"
#include "runtime/Object.h"
#include "runtime/Ref.h"
#include "units/TBFUnitTypeBitmap.h"

#include <cstdint>
#include <vector>

namespace TBF {

class UnitDisambiguationMap final : public Object<UnitDisambiguationMap> {
public:
    struct Key {
        TBFUnitTypeBitmap leftBitmap;
        TBFOperatorType operatorType;
        TBFUnitTypeBitmap rightBitmap;

        bool operator==(const Key&) const = default;
    };

    struct Value {
        TBFUnitType unitType;
        int8_t operandIndex; // 0 for the left operand, 1 for the right one
    };

    struct Entry {
        Key key;
        Value value;
    };

    static Ref<UnitDisambiguationMap> create(std::vector<Entry> entries);

    // The map of the process.
    static const UnitDisambiguationMap& shared();

    // The type that the entry with exactly these three names, and through `operandIndex`, which may be null,
    // which operand is of it. 0 without such an entry.
    TBFUnitType findDisambiguation(TBFUnitTypeBitmap leftBitmap, TBFOperatorType operatorType,
                                   TBFUnitTypeBitmap rightBitmap, int8_t* operandIndex) const;

private:
    friend class Object<UnitDisambiguationMap>;
    explicit UnitDisambiguationMap(std::vector<Entry> entries) noexcept;
    ~UnitDisambiguationMap() override = default;

    std::vector<Entry> entries;
};

} // namespace TBF
