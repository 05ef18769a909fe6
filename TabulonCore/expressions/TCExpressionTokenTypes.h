#pragma once

// The token types of the core layer, by which lines are coloured and exported, and their conversion from
// and to those of the foundation. Constant, for use on any thread.

#include "analysis/TBFTokenTypes.h"

#include <cstdint>

// 13 and 14 are not used. 15 to 18 stand for foundation types that nothing produces.
enum TCExpressionTokenType : int32_t {
    TCExpressionTokenTypeNone = 0,
    TCExpressionTokenTypeNumber = 1,
    TCExpressionTokenTypeOperator = 2,
    TCExpressionTokenTypeWhitespace = 3,
    TCExpressionTokenTypeWord = 4,
    TCExpressionTokenTypeUnit = 5,
    TCExpressionTokenTypeFunction = 6,
    TCExpressionTokenTypeVariable = 7,
    TCExpressionTokenTypeEquals = 8,
    TCExpressionTokenTypeUnknown = 9,
    TCExpressionTokenTypeLineReference = 10,
    TCExpressionTokenTypeBracket = 11,
    TCExpressionTokenTypeComment = 12,
    TCExpressionTokenTypeFoundation12 = 15,
    TCExpressionTokenTypeFoundation22 = 16,
    TCExpressionTokenTypeFoundation23 = 17,
    TCExpressionTokenTypeFoundation20 = 18,
};

// 18, 19 and 27 are not used.
enum TCExpressionTokenSubType : int32_t {
    TCExpressionTokenSubTypeNone = 0,
    TCExpressionTokenSubTypeOpenBracket = 1,
    TCExpressionTokenSubTypeCloseBracket = 2,
    TCExpressionTokenSubTypeRightwardsTitle = 3,
    TCExpressionTokenSubTypeLeftwardsTitle = 4,
    TCExpressionTokenSubTypeInlineComment = 5,
    TCExpressionTokenSubTypeLeftwardsComment = 6,
    TCExpressionTokenSubTypeRightwardsComment = 7,
    TCExpressionTokenSubTypeLineNumberReference = 8, // a reference to a line by its number
    TCExpressionTokenSubTypeLineReference = 9,       // any other reference to a line
    TCExpressionTokenSubTypeDecimalNumber = 10,
    TCExpressionTokenSubTypePrefixedNumber = 11,
    TCExpressionTokenSubTypePlus = 12,
    TCExpressionTokenSubTypeMinus = 13,
    TCExpressionTokenSubTypeUnaryPlus = 14,
    TCExpressionTokenSubTypeUnaryMinus = 15,
    TCExpressionTokenSubTypeMultiply = 16,
    TCExpressionTokenSubTypeDivide = 17,
    TCExpressionTokenSubTypePercent = 20,
    TCExpressionTokenSubTypePower = 21,
    TCExpressionTokenSubTypeE10 = 22,
    TCExpressionTokenSubTypeFactorial = 23,
    TCExpressionTokenSubTypeUnitConversion = 24,
    TCExpressionTokenSubTypeWordOperator = 25,
    TCExpressionTokenSubTypeVariable = 26,
    TCExpressionTokenSubTypeUnitPrefix = 28,
    TCExpressionTokenSubTypeUnitPostfix = 29,
    TCExpressionTokenSubTypeUnitAlone = 30,
};

// Unknown for types that have no counterpart.
TCExpressionTokenType TCExpressionTokenTypeFromTBFTokenType(token_type type);

// None for types that have no counterpart, words and line references among them.
token_type TCExpressionTokenTypeToTBFTokenType(TCExpressionTokenType type);

// Operators of high priority become plain ones. None for subtypes that have no counterpart.
TCExpressionTokenSubType TCExpressionTokenSubTypeFromTBFTokenSubType(TBFTokenSubType subType);
