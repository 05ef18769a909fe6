#pragma once

// The operators of the engine's language, their notations and their precedence classes. The numbers are
// part of tables elsewhere and of word operators, and stay as they are. No state.

#include <cstdint>

// Values 10 and 12 to 16 have no operator. The types 21 to 25 order the tree while it is built and are
// replaced by their base type when an operator gets its operands: a finished tree has none of them.
enum TBFOperatorType : int32_t {
    TBFOperatorTypeNone = 0,
    TBFOperatorTypeAdd = 1,
    TBFOperatorTypeSubtract = 2,
    TBFOperatorTypeMultiply = 3,
    TBFOperatorTypeDivide = 4,
    TBFOperatorTypePower = 5,
    TBFOperatorTypeUnaryMinus = 6,
    TBFOperatorTypeUnaryPlus = 7,
    TBFOperatorTypeFactorial = 8,
    TBFOperatorTypeE10 = 9,
    TBFOperatorTypePercent = 11,
    TBFOperatorTypeUnitPostfix = 17,
    TBFOperatorTypeUnitPrefix = 18,
    TBFOperatorTypeUnitConversion = 19,
    TBFOperatorTypeModulo = 20,
    TBFOperatorTypeImplicitAdd = 21,
    TBFOperatorTypeImplicitMultiply = 22,
    TBFOperatorTypeImplicitMultiplyHigh = 23,
    TBFOperatorTypeDivideHigh = 24,
    TBFOperatorTypeUnitConversionHigh = 25,
};

enum TBFOperatorNotation : int32_t {
    TBFOperatorNotationNone = 0,
    TBFOperatorNotationPrefix = 1,
    TBFOperatorNotationPostfix = 2,
    TBFOperatorNotationInfix = 3,
};

// What an operator binds by. The classes 3, 13 and 19 are unused; 12 has a strength and no operator.
enum TBFOperatorPrecedence : int32_t {
    TBFOperatorPrecedenceNone = 1,
    TBFOperatorPrecedenceAddSubtract = 2,
    TBFOperatorPrecedenceUnitConversion = 4,
    TBFOperatorPrecedenceUnitConversionHigh = 5,
    TBFOperatorPrecedenceMultiply = 6,
    TBFOperatorPrecedenceDivide = 7,
    TBFOperatorPrecedencePercentageWordOperator = 8,
    TBFOperatorPrecedencePercent = 9,
    TBFOperatorPrecedenceImplicitAdd = 10,
    TBFOperatorPrecedenceImplicitMultiply = 11,
    TBFOperatorPrecedenceReserved = 12,
    TBFOperatorPrecedenceUnitPrefix = 14,
    TBFOperatorPrecedenceUnitPostfix = 15,
    TBFOperatorPrecedenceE10 = 16,
    TBFOperatorPrecedenceFunctionWithArguments = 17,
    TBFOperatorPrecedenceFunction = 18,
    TBFOperatorPrecedenceUnaryMinus = 20,
    TBFOperatorPrecedenceUnaryPlus = 21,
    TBFOperatorPrecedencePower = 22,
    TBFOperatorPrecedenceFactorial = 23,
    TBFOperatorPrecedenceImplicitMultiplyHigh = 24,
};
