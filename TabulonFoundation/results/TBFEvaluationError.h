#pragma once

// The codes by which an evaluation tells what went wrong, and the flags of a result. Operations and
// functions set a `TBFEvaluationError`; results carry it beside a set of error-code bits. The texts a
// user reads are made in the core layer alone. Plain constants, usable on any thread.

#include <cstdint>

// What stopped an evaluation.
enum TBFEvaluationError : int32_t {
    TBFEvaluationErrorNone = 0,
    TBFEvaluationErrorTooFewOperands = 1,
    TBFEvaluationErrorTooManyOperands = 2,
    TBFEvaluationErrorExponentTooLarge = 3,
    TBFEvaluationErrorOutsideDomain = 4, // of a function
    TBFEvaluationErrorIncompatibleUnits = 5,
    TBFEvaluationErrorFactorialOfFraction = 6,
    TBFEvaluationErrorFactorialOfNegative = 7,
    TBFEvaluationErrorLogarithmOfNegative = 8,
    TBFEvaluationErrorDivideByZero = 9,
    TBFEvaluationErrorNoConversionTarget = 10,
    TBFEvaluationErrorRootOfUnit = 11,
    TBFEvaluationErrorTakesTooLong = 12,
};

// Bits of a result's error code. Parse errors live in the low byte, evaluator errors in bits 8 to 23;
// the two None values are the masks that leave one family out.
enum TBFErrorCode : uint32_t {
    TBFParseErrorGeneral = 0x1,
    TBFParseErrorNoRecovery = 0x2,
    TBFParseErrorUnknownWord = 0x4,
    TBFParseErrorBracketBalance = 0x8,
    TBFEvaluatorErrorCodeNULLFunctionArgument = 0x100,
    TBFEvaluatorErrorCodeNonRecoverableParseError = 0x200,
    TBFEvaluatorErrorCodeUnrecognizedOperator = 0x400,
    TBFEvaluatorErrorCodeUnrecognizedToken = 0x800,
    TBFEvaluatorErrorCodeNothingToEvaluate = 0x1000,
    TBFEvaluatorErrorCodeNULLWordOperatorArgument = 0x2000,
    TBFEvaluatorErrorCodeExponentTooLarge = 0x4000,
    TBFEvaluatorErrorCodeDivideByZero = 0x8000,
    TBFEvaluatorErrorCodeUnitTypeMismatch = 0x10000,
    TBFEvaluatorErrorCodeNone = 0xFF0000FF,
    TBFParseErrorNone = 0xFFFFFF00,
};

enum TBFResultFlag : uint32_t {
    TBFResultFlagPercent = 0x1,
};

// How functions read angles.
enum TBFTrigonometryMode : int32_t {
    TBFTrigonometryModeNone = 0,
    TBFTrigonometryModeDegrees = 1,
    TBFTrigonometryModeRadians = 2,
};

// True if, within `mask`, `code` equals `error`, or `error` has bits and `code` has all of them.
constexpr bool TBFErrorContainsErrorMask(uint32_t code, uint32_t error, uint32_t mask) {
    const uint32_t wanted = error & mask;
    if ((code & mask) == wanted) return true;
    return wanted != 0 && (code & wanted) == wanted;
}
