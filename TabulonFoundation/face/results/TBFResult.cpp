#include "face/results/TBFResult.h"

#include "numbers/DecimalText.h"
#include "results/Result.h"
#include "results/ResultParts.h"
#include "units/TBFUnitTypes.h"
#include "units/Unit.h"

#include <optional>
#include <string_view>

using TBF::Result;

namespace {

// As a malloc text; null for no text. Who doesn't want it gives no place.
void give(std::optional<std::string_view> text, char** out) {
    if (out) *out = text ? TBF::mallocText(*text) : nullptr;
}

} // namespace

TBFResultRef TBFResultCreate() {
    return Result::create().leak();
}
TBFResultRef TBFResultCreate(const std::string& text) {
    return Result::create(text).leak();
}
TBFResultRef TBFResultRetain(TBFResultRef result) {
    return TBF::retain(result).leak();
}

void TBFResultRelease(const Result* result) {
    if (result) result->release();
}

void TBFResultSetString(TBFResultRef result, TBF::String* string) {
    if (result) result->setString(TBF::retain(string));
}

TBF::String* TBFResultGetStringReference(const Result* result) {
    return result ? result->string().get() : nullptr;
}

TBF::String* TBFResultGetCompleteStringReference(TBFResultRef result) {
    return result ? result->completeString().get() : nullptr;
}

M_APM TBFResultGetMAPM(TBFResultRef result) {
    return result ? result->mapm() : nullptr;
}
int32_t TBFResultGetExponent(TBFResultRef result) {
    return result ? result->exponent() : 0;
}

void TBFResultSetPrecision(TBFResultRef result, int32_t precision) {
    if (result) result->setPrecision(precision);
}

int32_t TBFResultGetPrecision(const Result* result) {
    return result ? result->precision() : -1;
}

void TBFResultSetErrorCode(TBFResultRef result, uint32_t errorCode) {
    if (result) result->setErrorCode(errorCode);
}

uint32_t TBFResultGetErrorCode(const Result* result) {
    return result ? result->errorCode() : static_cast<uint32_t>(TBFEvaluatorErrorCodeNone);
}

void TBFResultSetEvaluationError(TBFResultRef result, TBFEvaluationError error) {
    if (result) result->setEvaluationError(error);
}

TBFEvaluationError TBFResultGetEvaluationError(const Result* result) {
    return result ? result->evaluationError() : TBFEvaluationErrorNone;
}

void TBFResultSetFlags(TBFResultRef result, uint32_t flags) {
    if (result) result->setFlags(flags);
}

uint32_t TBFResultGetFlags(const Result* result) {
    return result ? result->flags() : 0;
}

void TBFResultSetUnitFraction(TBFResultRef result, const TBF::UnitFraction* fraction) {
    if (result) result->setUnitFraction(fraction);
}

TBF::UnitFraction* TBFResultGetUnitFraction(const Result* result) {
    return result ? result->unitFraction() : nullptr;
}

void TBFResultSetUnitNameFormats(TBFResultRef result, const TBF::UnitNameFormats& formats) {
    if (result) result->setUnitNameFormats(formats);
}

TBFUnitFormatType TBFResultGetUnitComponentNameFormat(const Result* result, const TBF::Unit* unit) {
    return result && unit ? result->nameFormat(*unit) : TBFUnitFormatTypeNone;
}

bool TBFResultEqualToResult(TBFResultRef a, TBFResultRef b) {
    return a == b || (a && b && a->isEqualTo(*b));
}

void TBFResultGetDegreesMinutesSeconds(TBFResultRef result, char** degrees, char** minutes, char** seconds,
                                       int32_t secondsPlaces, bool trailingZeros, bool groupThousands,
                                       int32_t groupSize) {
    for (char** const out : {degrees, minutes, seconds})
        give(std::nullopt, out);
    if (!result) return;
    const auto parts =
        TBF::degreesMinutesSeconds(*result, secondsPlaces, trailingZeros, groupThousands ? groupSize : 0);
    if (!parts) return;
    give(parts->degrees, degrees);
    give(parts->minutes, minutes);
    give(parts->seconds, seconds);
}

void TBFResultGetFraction(TBFResultRef result, char** whole, char** numerator, char** denominator, int32_t,
                          int32_t, bool mixed) {
    for (char** const out : {whole, numerator, denominator})
        give(std::nullopt, out);
    if (!result) return;
    const auto fraction = TBF::fractionOf(*result, mixed);
    if (!fraction) return;
    give(fraction->whole, whole);
    give(fraction->numerator, numerator);
    give(fraction->denominator, denominator);
}
