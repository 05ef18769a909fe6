#pragma once

// The words that are part of the language itself, such as "%" and "^", with the types that they have and
// what they demand of their surroundings. Constant, for use on any thread.

#include "analysis/TBFOperatorOptions.h"
#include "analysis/TBFTokenTypes.h"

#include <cstdint>
#include <string_view>

namespace TBF {

enum SpecialWordType : int32_t {
    TBFSpecialWordTypeSeparator = 1,
    TBFSpecialWordTypePercent = 2,
    TBFSpecialWordTypeFactorial = 3,
    TBFSpecialWordTypeUnitConversion = 4,
    TBFSpecialWordTypeE10 = 5,
    TBFSpecialWordTypePower = 6,
    TBFSpecialWordTypeModulo = 7,
};

struct SpecialWord {
    SpecialWordType type;
    std::u16string_view word;
    token_type tokenType;
    TBFTokenSubType tokenSubType;
    TBFOperatorOptions operatorOptions;
};

// Null if `word` is none. Case counts.
const SpecialWord* findSpecialWord(std::u16string_view word);

} // namespace TBF
