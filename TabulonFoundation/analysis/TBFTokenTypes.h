#pragma once

// The types of the two kinds of tokens: basic tokens, which the scanner cuts out of a text, and
// expression tokens, which the analyzer and the parser work on. Masks, ranges and tables rest on the
// numbers. Everything here is constant, for use on any thread.

#include <cstdint>

enum TBFBasicTokenType : int32_t {
    TBFBasicTokenTypeNone = 0, // what a null token answers
    TBFBasicTokenTypeNumber = 1,
    TBFBasicTokenTypeWord = 2,     // a word, or one word-breaker character
    TBFBasicTokenTypeOperator = 3, // one of + - * /
    TBFBasicTokenTypeWhitespace = 4,
    TBFBasicTokenTypeSubstitutionMark = 5,
    TBFBasicTokenTypeBracket = 6,
    TBFBasicTokenTypeOther = 7, // = or //
};

// 10 and 14 are not used.
enum TBFBasicTokenSubType : int32_t {
    TBFBasicTokenSubTypeNone = 0,
    TBFBasicTokenSubTypeDecimalNumber = 1,
    TBFBasicTokenSubTypePrefixedNumber = 2, // "0x" or "0b" and the digits behind it
    TBFBasicTokenSubTypePlus = 3,
    TBFBasicTokenSubTypeMinus = 4,
    TBFBasicTokenSubTypeMultiply = 5,
    TBFBasicTokenSubTypeDivide = 6,
    TBFBasicTokenSubTypeOpenBracket = 7,
    TBFBasicTokenSubTypeCloseBracket = 8,
    TBFBasicTokenSubTypeWhitespace = 9,
    TBFBasicTokenSubTypeMarkOpen = 11,  // code unit 0x16
    TBFBasicTokenSubTypeMarkClose = 12, // code unit 0x17
    TBFBasicTokenSubTypeWord = 13,
    TBFBasicTokenSubTypeWordBreaker = 15,  // one character of the word-breaker set
    TBFBasicTokenSubTypeLetterE = 16,      // a word that begins with a lower-case e, however long
    TBFBasicTokenSubTypeCommentStart = 17, // two slashes
    TBFBasicTokenSubTypeEquals = 18,
};

// 4, 5, 9, 12, 16 and 20 to 23 are never produced; the core's table of types knows some of them.
enum token_type : int32_t {
    TBFTokenTypeNone = 0, // also what a null token answers
    TBFTokenTypeOperator = 1,
    TBFTokenTypeVariable = 2,
    TBFTokenTypeNumber = 3,
    TBFTokenTypeFunction = 6,
    TBFTokenTypeSeparator = 7, // ";" between the arguments inside of brackets
    TBFTokenTypeWord = 8,      // a word with no meaning, or a word-breaker character
    TBFTokenTypeWhitespace = 10,
    TBFTokenTypeUnit = 11,
    TBFTokenTypeEquals = 13,
    TBFTokenTypeBracket = 14,
    TBFTokenTypeComment = 15, // a comment or title, one token for its whole text
    TBFTokenTypeGroup = 17,   // a bracketed group; only in the analyzer's tree, never in a list
    TBFTokenTypeSubstitutionMark = 18,
    TBFTokenTypeCommentStart = 19, // "//" that isn't a comment yet, or is none
};

// 30 is not used.
enum TBFTokenSubType : int32_t {
    TBFTokenSubTypeNone = 0,
    TBFTokenSubTypeOpenBracket = 1,
    TBFTokenSubTypeCloseBracket = 2,
    TBFTokenSubTypeRightwardsTitle = 3,   // the whole line behind a leading "@"
    TBFTokenSubTypeLeftwardsTitle = 4,    // the text up to and with the last ":"
    TBFTokenSubTypeInlineComment = 5,     // the text between two double quotes, and the quotes
    TBFTokenSubTypeLeftwardsComment = 6,  // the whole line before a closing ";"
    TBFTokenSubTypeRightwardsComment = 7, // everything from "//" on
    TBFTokenSubTypeDecimalNumber = 8,
    TBFTokenSubTypePrefixedNumber = 9,
    TBFTokenSubTypePlus = 10,  // binary or unary
    TBFTokenSubTypeMinus = 11, // binary or unary
    TBFTokenSubTypeMultiply = 12,
    TBFTokenSubTypeDivide = 13,
    TBFTokenSubTypePower = 14,
    TBFTokenSubTypeE10 = 15, // the letter e between a number and its exponent
    TBFTokenSubTypeFactorial = 16,
    TBFTokenSubTypeUnaryPlus = 17,
    TBFTokenSubTypeUnaryMinus = 18,
    TBFTokenSubTypeUnitConversion = 19,
    TBFTokenSubTypeModulo = 20,
    TBFTokenSubTypeWordOperator = 21,
    TBFTokenSubTypePercent = 22,
    TBFTokenSubTypeHighPriorityDivide = 23,
    TBFTokenSubTypeHighPriorityMultiply = 24,
    TBFTokenSubTypeHighPriorityUnitConversion = 25,
    TBFTokenSubTypeUnitPrefix = 26,  // a unit before its number
    TBFTokenSubTypeUnitPostfix = 27, // a unit after its number
    TBFTokenSubTypeUnitAlone = 28,   // a unit with no number of its own
    TBFTokenSubTypeWhitespace = 29,
    TBFTokenSubTypeMarkOpen = 31,
    TBFTokenSubTypeMarkClose = 32,
    TBFTokenSubTypeCommentStart = 33,
    TBFTokenSubTypeWordBreaker = 34, // one word-breaker character that is still a word
    TBFTokenSubTypeGroup = 35,
};

// True for what can stand as an operand by itself: a variable, a number, a group.
constexpr bool TBFTokenTypeIsNumeric(token_type type) {
    return type == TBFTokenTypeVariable || type == TBFTokenTypeNumber || type == TBFTokenTypeGroup;
}

// The types that a token has before any analysis. A basic type out of range, or a null output, leaves
// both outputs as they are.
void TBFBasicTokenTypesToTokenTypes(TBFBasicTokenType basicType, TBFBasicTokenSubType basicSubType,
                                    token_type* outType, TBFTokenSubType* outSubType);
