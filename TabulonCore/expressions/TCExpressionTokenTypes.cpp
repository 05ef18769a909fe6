#include "expressions/TCExpressionTokenTypes.h"

#include <array>
#include <cstddef>

namespace {

// By foundation type, from 0 on.
constexpr std::array<TCExpressionTokenType, 24> coreTypes = {
    TCExpressionTokenTypeUnknown,      TCExpressionTokenTypeOperator,     TCExpressionTokenTypeVariable,
    TCExpressionTokenTypeNumber,       TCExpressionTokenTypeUnknown,      TCExpressionTokenTypeUnknown,
    TCExpressionTokenTypeFunction,     TCExpressionTokenTypeUnknown,      TCExpressionTokenTypeWord,
    TCExpressionTokenTypeUnknown,      TCExpressionTokenTypeWhitespace,   TCExpressionTokenTypeUnit,
    TCExpressionTokenTypeFoundation12, TCExpressionTokenTypeEquals,       TCExpressionTokenTypeBracket,
    TCExpressionTokenTypeComment,      TCExpressionTokenTypeUnknown,      TCExpressionTokenTypeUnknown,
    TCExpressionTokenTypeUnknown,      TCExpressionTokenTypeWord,         TCExpressionTokenTypeFoundation20,
    TCExpressionTokenTypeUnknown,      TCExpressionTokenTypeFoundation22, TCExpressionTokenTypeFoundation23,
};
static_assert(coreTypes[TBFTokenTypeCommentStart] == TCExpressionTokenTypeWord);

// By core type, from 0 on. The numbers without a name are types that nothing produces.
constexpr std::array<int32_t, 19> foundationTypes = {
    TBFTokenTypeNone,
    TBFTokenTypeNumber,
    TBFTokenTypeOperator,
    TBFTokenTypeWhitespace,
    TBFTokenTypeNone,
    TBFTokenTypeUnit,
    TBFTokenTypeFunction,
    TBFTokenTypeVariable,
    TBFTokenTypeNone,
    TBFTokenTypeNone,
    TBFTokenTypeNone,
    TBFTokenTypeBracket,
    TBFTokenTypeComment,
    TBFTokenTypeNone,
    TBFTokenTypeNone,
    12,
    22,
    23,
    20,
};

// By foundation subtype, from 0 on; those behind the end have no counterpart.
constexpr std::array<TCExpressionTokenSubType, 29> coreSubTypes = {
    TCExpressionTokenSubTypeNone,
    TCExpressionTokenSubTypeOpenBracket,
    TCExpressionTokenSubTypeCloseBracket,
    TCExpressionTokenSubTypeRightwardsTitle,
    TCExpressionTokenSubTypeLeftwardsTitle,
    TCExpressionTokenSubTypeInlineComment,
    TCExpressionTokenSubTypeLeftwardsComment,
    TCExpressionTokenSubTypeRightwardsComment,
    TCExpressionTokenSubTypeDecimalNumber,
    TCExpressionTokenSubTypePrefixedNumber,
    TCExpressionTokenSubTypePlus,
    TCExpressionTokenSubTypeMinus,
    TCExpressionTokenSubTypeMultiply,
    TCExpressionTokenSubTypeDivide,
    TCExpressionTokenSubTypePower,
    TCExpressionTokenSubTypeE10,
    TCExpressionTokenSubTypeFactorial,
    TCExpressionTokenSubTypeUnaryPlus,
    TCExpressionTokenSubTypeUnaryMinus,
    TCExpressionTokenSubTypeUnitConversion,
    TCExpressionTokenSubTypeNone,
    TCExpressionTokenSubTypeWordOperator,
    TCExpressionTokenSubTypePercent,
    TCExpressionTokenSubTypeDivide,
    TCExpressionTokenSubTypeMultiply,
    TCExpressionTokenSubTypeNone,
    TCExpressionTokenSubTypeUnitPrefix,
    TCExpressionTokenSubTypeUnitPostfix,
    TCExpressionTokenSubTypeUnitAlone,
};
static_assert(coreSubTypes[TBFTokenSubTypeUnitAlone] == TCExpressionTokenSubTypeUnitAlone);
static_assert(coreSubTypes[TBFTokenSubTypeUnitConversion] == TCExpressionTokenSubTypeUnitConversion);

template <typename Value, std::size_t count>
Value valueAt(const std::array<Value, count>& table, int32_t index, Value otherwise) {
    return index >= 0 && static_cast<std::size_t>(index) < count ? table[static_cast<std::size_t>(index)]
                                                                 : otherwise;
}

} // namespace

TCExpressionTokenType TCExpressionTokenTypeFromTBFTokenType(token_type type) {
    return valueAt(coreTypes, type, TCExpressionTokenTypeUnknown);
}

token_type TCExpressionTokenTypeToTBFTokenType(TCExpressionTokenType type) {
    return static_cast<token_type>(valueAt(foundationTypes, type, int32_t{TBFTokenTypeNone}));
}

TCExpressionTokenSubType TCExpressionTokenSubTypeFromTBFTokenSubType(TBFTokenSubType subType) {
    return valueAt(coreSubTypes, subType, TCExpressionTokenSubTypeNone);
}
