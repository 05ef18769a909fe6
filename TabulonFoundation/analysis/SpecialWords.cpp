#include "analysis/SpecialWords.h"

#include <cstddef>

namespace TBF {

namespace {

constexpr SpecialWord specialWords[] = {
    {.type = TBFSpecialWordTypeSeparator,
     .word = u";",
     .tokenType = TBFTokenTypeSeparator,
     .tokenSubType = TBFTokenSubTypeNone,
     .operatorOptions = {}},
    {.type = TBFSpecialWordTypePercent,
     .word = u"%",
     .tokenType = TBFTokenTypeOperator,
     .tokenSubType = TBFTokenSubTypePercent,
     .operatorOptions = {}},
    {.type = TBFSpecialWordTypeFactorial,
     .word = u"!",
     .tokenType = TBFTokenTypeOperator,
     .tokenSubType = TBFTokenSubTypeFactorial,
     .operatorOptions = {}},
    {.type = TBFSpecialWordTypeUnitConversion,
     .word = u"__uc",
     .tokenType = TBFTokenTypeOperator,
     .tokenSubType = TBFTokenSubTypeUnitConversion,
     .operatorOptions = {.options = TBFOperatorOptionReserved1 | TBFOperatorOptionReserved2 |
                                    TBFOperatorOptionEndIsOperand,
                         .preConditions = TBFOperatorConditionAfterOperand,
                         .argumentConditions = TBFArgumentConditionValueOrUnit,
                         .argumentType = TBFOperatorNotationInfix}},
    {.type = TBFSpecialWordTypeE10,
     .word = u"e",
     .tokenType = TBFTokenTypeOperator,
     .tokenSubType = TBFTokenSubTypeE10,
     .operatorOptions = {.options = TBFOperatorOptionReserved1 | TBFOperatorOptionLookThroughSigns |
                                    TBFOperatorOptionEndIsOperand | TBFOperatorOptionTight,
                         .preConditions = TBFOperatorConditionAfterOperand,
                         .postConditions = TBFOperatorConditionBeforeExponent,
                         .postConditionsMatchAny = true,
                         .argumentConditions = TBFArgumentConditionExponent,
                         .argumentType = TBFOperatorNotationInfix}},
    {.type = TBFSpecialWordTypePower,
     .word = u"^",
     .tokenType = TBFTokenTypeOperator,
     .tokenSubType = TBFTokenSubTypePower,
     .operatorOptions = {.options = TBFOperatorOptionReserved1 | TBFOperatorOptionLookThroughSigns |
                                    TBFOperatorOptionEndIsOperand,
                         .preConditions = TBFOperatorConditionAfterOperand,
                         .argumentConditions = TBFArgumentConditionValueOrUnit,
                         .argumentType = TBFOperatorNotationInfix}},
    {.type = TBFSpecialWordTypeModulo,
     .word = u"__mod",
     .tokenType = TBFTokenTypeOperator,
     .tokenSubType = TBFTokenSubTypeModulo,
     .operatorOptions = {}},
};

constexpr std::size_t longestSpecialWord() {
    std::size_t longest = 0;
    for (const SpecialWord& special : specialWords) {
        if (special.word.size() > longest) longest = special.word.size();
    }
    return longest;
}

} // namespace

const SpecialWord* findSpecialWord(std::u16string_view word) {
    if (word.size() > longestSpecialWord()) return nullptr;
    for (const SpecialWord& special : specialWords) {
        if (special.word == word) return &special;
    }
    return nullptr;
}

} // namespace TBF
