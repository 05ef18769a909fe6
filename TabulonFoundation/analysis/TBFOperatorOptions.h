#pragma once

// What an operator demands of its surroundings: bits that the check of operator arguments reads, kept on
// the nodes of an analysis tree. A plain value.

#include "numbers/TBFOperatorType.h"

#include <cstdint>

// The bits of TBFOperatorOptions::options.
enum TBFOperatorOption : uint32_t {
    TBFOperatorOptionReserved1 = 1, // the reserved ones stand in tables and have no effect
    TBFOperatorOptionReserved2 = 2,
    TBFOperatorOptionLookThroughSigns = 4,  // on the right, a plus or minus is looked through
    TBFOperatorOptionEndIsOperand = 8,      // on the right, the end of the children will do
    TBFOperatorOptionLookThroughWords = 16, // on both sides
    TBFOperatorOptionTight = 32,            // no whitespace between the operator and its operands
};

// The bits of TBFOperatorOptions::argumentConditions. 0 leaves an operator unchecked.
enum TBFArgumentCondition : uint32_t {
    TBFArgumentConditionUnit = 1,      // a unit counts as an operand
    TBFArgumentConditionExponent = 10, // two of the bits of a value, which serve alike
    TBFArgumentConditionValue = 30,    // any of these bits: a value counts as an operand
    TBFArgumentConditionValueOrUnit = 31,
};

// What stands before and after an operator, as tables tell it to hosts. No pass reads it: the check of
// operands goes by the argument conditions.
enum TBFOperatorCondition : uint32_t {
    TBFOperatorConditionNone = 0,
    TBFOperatorConditionAfterOperand = 9,
    TBFOperatorConditionAfterOperandOrStart = 41,
    TBFOperatorConditionBeforeExponent = 2816,
};

struct TBFOperatorOptions {
    uint32_t options = 0;
    uint32_t preConditions = 0;
    uint32_t preConditionsMatchAny = 0;
    uint32_t postConditions = 0;
    uint32_t postConditionsMatchAny = 0;
    uint32_t argumentConditions = 0;
    int32_t argumentType = TBFOperatorNotationNone; // a TBFOperatorNotation

    constexpr bool operator==(const TBFOperatorOptions&) const = default;
};

inline constexpr TBFOperatorOptions TBFOperatorOptionsNone = {};
