#pragma once

// The plain functions over results. A result is the outcome of one evaluation as text: decimal digits,
// unit fraction, error state, and how each unit was written. A null result is accepted everywhere. One
// thread uses a result at a time, because some of its fields are filled on demand.

#include "results/TBFEvaluationError.h"
#include "units/UnitNameFormats.h"

#include "m_apm.h"

#include <cstdint>
#include <string>

namespace TBF {
class Result;
class String;
class UnitFraction;
} // namespace TBF
using TBFResultRef = TBF::Result*;

// Create. The caller owns the result. The text is plain decimal text with '.' for the point.
TBFResultRef TBFResultCreate();
TBFResultRef TBFResultCreate(const std::string& text);
TBFResultRef TBFResultRetain(TBFResultRef result);
void TBFResultRelease(const TBF::Result* result);

// Text and digits. All are borrowed; null where there is no answer.
void TBFResultSetString(TBFResultRef result, TBF::String* string);
TBF::String* TBFResultGetStringReference(const TBF::Result* result);
TBF::String* TBFResultGetCompleteStringReference(TBFResultRef result); // without trailing zeros
M_APM TBFResultGetMAPM(TBFResultRef result);
int32_t TBFResultGetExponent(TBFResultRef result); // scientific; 0 without a value

// Decimal places that count in comparisons; -1 for all of them.
void TBFResultSetPrecision(TBFResultRef result, int32_t precision);
int32_t TBFResultGetPrecision(const TBF::Result* result); // -1 for null

void TBFResultSetErrorCode(TBFResultRef result, uint32_t errorCode);
uint32_t TBFResultGetErrorCode(const TBF::Result* result); // TBFEvaluatorErrorCodeNone for null
void TBFResultSetEvaluationError(TBFResultRef result, TBFEvaluationError error);
TBFEvaluationError TBFResultGetEvaluationError(const TBF::Result* result);
void TBFResultSetFlags(TBFResultRef result, uint32_t flags);
uint32_t TBFResultGetFlags(const TBF::Result* result); // TBFResultFlag

// A null fraction changes nothing.
void TBFResultSetUnitFraction(TBFResultRef result, const TBF::UnitFraction* fraction);
TBF::UnitFraction* TBFResultGetUnitFraction(const TBF::Result* result);
void TBFResultSetUnitNameFormats(TBFResultRef result, const TBF::UnitNameFormats& formats);
TBFUnitFormatType TBFResultGetUnitComponentNameFormat(const TBF::Result* result, const TBF::Unit* unit);

// Equal values at the larger of the two precisions; results without text compare by their errors.
bool TBFResultEqualToResult(TBFResultRef a, TBFResultRef b);

// The value, in degrees, as three new malloc texts, which the caller frees; all null when it has none. The
// sign stands on the degrees. Here and below a part without a place to go to, null, is left out.
void TBFResultGetDegreesMinutesSeconds(TBFResultRef result, char** degrees, char** minutes, char** seconds,
                                       int32_t secondsPlaces, bool trailingZeros, bool groupThousands,
                                       int32_t groupSize);

// The simplest fraction within 1E-23 of the value as new malloc texts, which the caller frees. All null
// when there is none, as for an integer. `whole` is only set for a mixed number that has a whole part. The
// two unused numbers have no effect.
void TBFResultGetFraction(TBFResultRef result, char** whole, char** numerator, char** denominator,
                          int32_t unused, int32_t unusedToo, bool mixed);
