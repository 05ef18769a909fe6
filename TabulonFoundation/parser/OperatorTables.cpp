#include "parser/OperatorTables.h"

#include "analysis/TBFTokenTypes.h"
#include "runtime/TBFLog.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace {

struct OperatorRow {
    TBFOperatorType type;
    TBFOperatorNotation notation;
    TBFOperatorPrecedence precedence;
    TBFOperatorType typeInTree;
    std::string_view printed;
};

// Modulo has no class of its own, and so the least strength: its only use is between brackets.
constexpr std::array operatorRows = std::to_array<OperatorRow>({
    {TBFOperatorTypeAdd, TBFOperatorNotationInfix, TBFOperatorPrecedenceAddSubtract, TBFOperatorTypeAdd, "+"},
    {TBFOperatorTypeSubtract, TBFOperatorNotationInfix, TBFOperatorPrecedenceAddSubtract,
     TBFOperatorTypeSubtract, "-"},
    {TBFOperatorTypeMultiply, TBFOperatorNotationInfix, TBFOperatorPrecedenceMultiply,
     TBFOperatorTypeMultiply, "*"},
    {TBFOperatorTypeDivide, TBFOperatorNotationInfix, TBFOperatorPrecedenceDivide, TBFOperatorTypeDivide,
     "/"},
    {TBFOperatorTypePower, TBFOperatorNotationInfix, TBFOperatorPrecedencePower, TBFOperatorTypePower, "^"},
    {TBFOperatorTypeUnaryMinus, TBFOperatorNotationPrefix, TBFOperatorPrecedenceUnaryMinus,
     TBFOperatorTypeUnaryMinus, "`u-`"},
    {TBFOperatorTypeUnaryPlus, TBFOperatorNotationPrefix, TBFOperatorPrecedenceUnaryPlus,
     TBFOperatorTypeUnaryPlus, "`u+`"},
    {TBFOperatorTypeFactorial, TBFOperatorNotationPostfix, TBFOperatorPrecedenceFactorial,
     TBFOperatorTypeFactorial, "`fact`"},
    {TBFOperatorTypeE10, TBFOperatorNotationInfix, TBFOperatorPrecedenceE10, TBFOperatorTypeE10, "`e10`"},
    {TBFOperatorTypePercent, TBFOperatorNotationPostfix, TBFOperatorPrecedencePercent, TBFOperatorTypePercent,
     "%"},
    {TBFOperatorTypeUnitPostfix, TBFOperatorNotationPostfix, TBFOperatorPrecedenceUnitPostfix,
     TBFOperatorTypeUnitPostfix, ""},
    {TBFOperatorTypeUnitPrefix, TBFOperatorNotationPrefix, TBFOperatorPrecedenceUnitPrefix,
     TBFOperatorTypeUnitPrefix, ""},
    {TBFOperatorTypeUnitConversion, TBFOperatorNotationInfix, TBFOperatorPrecedenceUnitConversion,
     TBFOperatorTypeUnitConversion, "`uc`"},
    {TBFOperatorTypeModulo, TBFOperatorNotationInfix, TBFOperatorPrecedenceNone, TBFOperatorTypeModulo, ""},
    {TBFOperatorTypeImplicitAdd, TBFOperatorNotationInfix, TBFOperatorPrecedenceImplicitAdd,
     TBFOperatorTypeAdd, ""},
    {TBFOperatorTypeImplicitMultiply, TBFOperatorNotationInfix, TBFOperatorPrecedenceImplicitMultiply,
     TBFOperatorTypeMultiply, ""},
    {TBFOperatorTypeImplicitMultiplyHigh, TBFOperatorNotationInfix, TBFOperatorPrecedenceImplicitMultiplyHigh,
     TBFOperatorTypeMultiply, ""},
    {TBFOperatorTypeDivideHigh, TBFOperatorNotationInfix, TBFOperatorPrecedenceImplicitMultiply,
     TBFOperatorTypeDivide, ""},
    {TBFOperatorTypeUnitConversionHigh, TBFOperatorNotationInfix, TBFOperatorPrecedenceUnitConversionHigh,
     TBFOperatorTypeUnitConversion, ""},
});

// For each operator type its row's index, or -1: parsing looks rows up for every operator of every line.
constexpr std::size_t operatorTypeLimit = TBFOperatorTypeUnitConversionHigh + 1;
constexpr std::array<int8_t, operatorTypeLimit> operatorRowIndexes = [] {
    std::array<int8_t, operatorTypeLimit> indexes{};
    indexes.fill(-1);
    for (std::size_t i = 0; i < operatorRows.size(); ++i) {
        indexes[static_cast<std::size_t>(operatorRows[i].type)] = static_cast<int8_t>(i);
    }
    return indexes;
}();

const OperatorRow* findOperator(TBFOperatorType type) {
    const auto value = static_cast<std::size_t>(type);
    if (value >= operatorTypeLimit || operatorRowIndexes[value] < 0) return nullptr;
    return &operatorRows[static_cast<std::size_t>(operatorRowIndexes[value])];
}

struct SubTypeRow {
    TBFTokenSubType subType;
    TBFOperatorType type;
};

// Each pair reads in both directions.
constexpr std::array subTypeRows = std::to_array<SubTypeRow>({
    {TBFTokenSubTypePlus, TBFOperatorTypeAdd},
    {TBFTokenSubTypeMinus, TBFOperatorTypeSubtract},
    {TBFTokenSubTypeMultiply, TBFOperatorTypeMultiply},
    {TBFTokenSubTypeDivide, TBFOperatorTypeDivide},
    {TBFTokenSubTypePower, TBFOperatorTypePower},
    {TBFTokenSubTypeE10, TBFOperatorTypeE10},
    {TBFTokenSubTypeFactorial, TBFOperatorTypeFactorial},
    {TBFTokenSubTypeUnaryPlus, TBFOperatorTypeUnaryPlus},
    {TBFTokenSubTypeUnaryMinus, TBFOperatorTypeUnaryMinus},
    {TBFTokenSubTypeUnitConversion, TBFOperatorTypeUnitConversion},
    {TBFTokenSubTypeModulo, TBFOperatorTypeModulo},
    {TBFTokenSubTypePercent, TBFOperatorTypePercent},
    {TBFTokenSubTypeHighPriorityDivide, TBFOperatorTypeDivideHigh},
    {TBFTokenSubTypeHighPriorityMultiply, TBFOperatorTypeImplicitMultiply},
    {TBFTokenSubTypeHighPriorityUnitConversion, TBFOperatorTypeUnitConversionHigh},
    {TBFTokenSubTypeUnitPrefix, TBFOperatorTypeUnitPrefix},
    {TBFTokenSubTypeUnitPostfix, TBFOperatorTypeUnitPostfix},
});

struct NotationRow {
    TBFOperatorNotation notation;
    int32_t arity;
    int32_t allowedDiff;
};

// A prefix operator stands where its operand is still to come.
constexpr std::array notationRows = std::to_array<NotationRow>({
    {TBFOperatorNotationPrefix, 1, -1},
    {TBFOperatorNotationPostfix, 1, 0},
    {TBFOperatorNotationInfix, 2, 0},
});

const NotationRow* findNotation(TBFOperatorNotation notation) {
    const auto row = std::ranges::find(notationRows, notation, &NotationRow::notation);
    return row == notationRows.end() ? nullptr : &*row;
}

constexpr bool rightAssociative = true;

struct StrengthRow {
    TBFOperatorPrecedence precedence;
    int32_t strength;
    bool rightAssociative = false;
};

constexpr std::array strengthRows = std::to_array<StrengthRow>({
    {TBFOperatorPrecedenceNone, 0},
    {TBFOperatorPrecedenceAddSubtract, 10},
    {TBFOperatorPrecedenceUnitConversion, 10},
    {TBFOperatorPrecedenceMultiply, 20},
    {TBFOperatorPrecedenceDivide, 20},
    {TBFOperatorPrecedenceUnitConversionHigh, 25},
    {TBFOperatorPrecedencePercentageWordOperator, 30},
    {TBFOperatorPrecedencePercent, 40},
    {TBFOperatorPrecedenceImplicitAdd, 50},
    {TBFOperatorPrecedenceImplicitMultiply, 60},
    {TBFOperatorPrecedenceReserved, 70},
    {TBFOperatorPrecedenceImplicitMultiplyHigh, 90},
    {TBFOperatorPrecedenceE10, 100, rightAssociative},
    {TBFOperatorPrecedenceFunction, 100, rightAssociative},
    {TBFOperatorPrecedenceUnaryMinus, 100, rightAssociative},
    {TBFOperatorPrecedenceUnaryPlus, 100, rightAssociative},
    {TBFOperatorPrecedencePower, 100, rightAssociative},
    {TBFOperatorPrecedenceUnitPrefix, 110, rightAssociative},
    {TBFOperatorPrecedenceUnitPostfix, 110},
    {TBFOperatorPrecedenceFactorial, 120},
    {TBFOperatorPrecedenceFunctionWithArguments, 135},
});

constexpr std::array implicitMultiplications = {TBFOperatorTypeMultiply, TBFOperatorTypeImplicitMultiply,
                                                TBFOperatorTypeImplicitMultiplyHigh};

} // namespace

TBFOperatorType TBFOperatorTypeForTBFTokenSubType(TBFTokenSubType subType) {
    const auto row = std::ranges::find(subTypeRows, subType, &SubTypeRow::subType);
    if (row != subTypeRows.end()) return row->type;
    TBFErrorLog("Unexpected subtype %d", static_cast<int>(subType));
    return TBFOperatorTypeNone;
}

TBFTokenSubType TBFTokenSubTypeForTBFOperatorType(TBFOperatorType type) {
    const auto row = std::ranges::find(subTypeRows, type, &SubTypeRow::type);
    if (row != subTypeRows.end()) return row->subType;
    TBFErrorLog("Unexpected operator type %d", static_cast<int>(type));
    return TBFTokenSubTypeNone;
}

namespace TBF {

TBFOperatorNotation operatorNotation(TBFOperatorType type) {
    if (const OperatorRow* const row = findOperator(type)) return row->notation;
    TBFErrorLog("Unexpected operator type %d", static_cast<int>(type));
    return TBFOperatorNotationNone;
}

TBFOperatorPrecedence operatorPrecedence(TBFOperatorType type) {
    if (const OperatorRow* const row = findOperator(type)) return row->precedence;
    TBFErrorLog("Unexpected operator type");
    return TBFOperatorPrecedenceNone;
}

OperatorStrength TBFOperatorPrecedenceGet_new(TBFOperatorPrecedence precedence) {
    const auto row = std::ranges::find(strengthRows, precedence, &StrengthRow::precedence);
    if (row != strengthRows.end()) return {row->strength, row->rightAssociative};
    TBFErrorLog("Unexpected precedence type");
    return {};
}

int32_t operatorArity(TBFOperatorNotation notation) {
    if (const NotationRow* const row = findNotation(notation)) return row->arity;
    TBFErrorLog("Unexpected notation type %d", static_cast<int>(notation));
    return 0;
}

int32_t operatorNotationAllowedDiff(TBFOperatorNotation notation) {
    if (const NotationRow* const row = findNotation(notation)) return row->allowedDiff;
    TBFErrorLog("Unexpected operator notation %d", static_cast<int>(notation));
    return 0;
}

TBFOperatorType operatorTypeInTree(TBFOperatorType type) {
    const OperatorRow* const row = findOperator(type);
    return row ? row->typeInTree : type;
}

TBFOperatorType multiplyOperatorForImplicitOperatorPriority(int32_t priority) {
    const auto index = static_cast<std::size_t>(priority);
    if (index < implicitMultiplications.size()) return implicitMultiplications[index];
    TBFErrorLog("Unexpected type %d", static_cast<int>(priority));
    return TBFOperatorTypeNone;
}

std::string_view operatorPrintedForm(TBFOperatorType type) {
    if (type == TBFOperatorTypeUnitPostfix || type == TBFOperatorTypeUnitPrefix) return {};
    const OperatorRow* const row = findOperator(type);
    if (row && !row->printed.empty()) return row->printed;
    TBFErrorLog("Unexpected operator type %d", static_cast<int>(type));
    return {};
}

} // namespace TBF
