#pragma once

// What an operator demands of its surroundings: bits that the check of operator arguments reads, kept on
// the nodes of an analysis tree. A plain value.

#include <cstdint>

// The bits of TBFOperatorOptions::options that have an effect. Bits 1 and 2 occur in tables as well.
enum TBFOperatorOption : uint32_t {
    TBFOperatorOptionLookThroughSigns = 4,  // on the right, a plus or minus is looked through
    TBFOperatorOptionEndIsOperand = 8,      // on the right, the end of the children will do
    TBFOperatorOptionLookThroughWords = 16, // on both sides
    TBFOperatorOptionTight = 32,            // no whitespace between the operator and its operands
};

// The bits of TBFOperatorOptions::argumentConditions. 0 leaves an operator unchecked.
enum TBFArgumentCondition : uint32_t {
    TBFArgumentConditionUnit = 1,   // a unit counts as an operand
    TBFArgumentConditionValue = 30, // any of these bits: a value counts as an operand
};

// How an operator stands to its operands.
enum TBFOperatorNotationValue : int32_t {
    TBFOperatorNotationValuePrefix = 1,
    TBFOperatorNotationValuePostfix = 2,
    TBFOperatorNotationValueInfix = 3,
};

struct TBFOperatorOptions {
    uint32_t options = 0;
    uint32_t preConditions = 0;
    uint32_t preConditionsMatchAny = 0;
    uint32_t postConditions = 0;
    uint32_t postConditionsMatchAny = 0;
    uint32_t argumentConditions = 0;
    int32_t argumentType = 0; // TBFOperatorNotationValue

    constexpr bool operator==(const TBFOperatorOptions&) const = default;
};

inline constexpr TBFOperatorOptions TBFOperatorOptionsNone = {};
