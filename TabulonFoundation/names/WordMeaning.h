#pragma once

// What one or several words can mean: the record that a namespace fills and that the nodes of an analysis
// tree carry. A plain record of references; it may be moved but not copied.

#include "runtime/Ref.h"

#include <cstdint>

namespace TBF {

class AmbiguousUnit;
class Function;
class ScopedVariable;
class UnitContainer;
class UnitFraction;
class WordOperator;

// Null where there is nothing of the kind.
struct WordMeaning {
    Ref<UnitFraction> unitFraction;   // of the unit, if there is exactly one
    Ref<UnitContainer> unitContainer; // if there is exactly one unit
    Ref<AmbiguousUnit> ambiguousUnit; // if there are several units
    Ref<ScopedVariable> variable;     // as it reads at a line
    Ref<WordOperator> wordOperator;
    Ref<Function> function;
    int32_t unitNameFormat = 0; // a TBFUnitFormatType: the format of the name that was written

    bool isEmpty() const noexcept {
        return !unitFraction && !unitContainer && !ambiguousUnit && !variable && !wordOperator && !function &&
               unitNameFormat == 0;
    }

    WordMeaning() noexcept;
    ~WordMeaning();
    WordMeaning(WordMeaning&&) noexcept;
    WordMeaning& operator=(WordMeaning&&) noexcept;
};

} // namespace TBF
