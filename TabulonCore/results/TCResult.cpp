#include "results/TCResult.h"

#include "bundle/LocalizedStrings.h"
#include "results/Result.h"
#include "results/TCResultFormatter.h"
#include "runtime/ObjectPool.h"
#include "runtime/String.h"
#include "runtime/TBFLog.h"
#include "units/TCCompositeUnit.h"
#include "units/TCUnitFilter.h"
#include "units/TCUnitStringFormatter.h"
#include "units/UnitFraction.h"

#include <algorithm>
#include <functional>

namespace {

struct ErrorText {
    TCErrorType type;
    std::u16string_view text;
};

constexpr ErrorText errorTexts[] = {
    {TCErrorTypeExponentTooLarge, u"Error: Exponent too large"},
    {TCErrorTypeDivideByZero, u"Error: Divide by Zero"},
    {TCErrorTypeIncompatibleUnits, u"Error: Incompatible Units"},
    {TCErrorTypeOther, u"Error"},
    {TCErrorTypeTakesTooLong, u"Error: Takes too long"},
    {TCErrorTypeLineTooLong, u"Error: Line too long"},
};

TCErrorType errorTypeOf(TBFEvaluationError error) {
    switch (error) {
    case TBFEvaluationErrorNone:
        return TCErrorTypeNone;
    case TBFEvaluationErrorExponentTooLarge:
        return TCErrorTypeExponentTooLarge;
    case TBFEvaluationErrorDivideByZero:
        return TCErrorTypeDivideByZero;
    case TBFEvaluationErrorIncompatibleUnits:
        return TCErrorTypeIncompatibleUnits;
    case TBFEvaluationErrorTakesTooLong:
        return TCErrorTypeTakesTooLong;
    case TBFEvaluationErrorTooFewOperands:
    case TBFEvaluationErrorTooManyOperands:
    case TBFEvaluationErrorOutsideDomain:
    case TBFEvaluationErrorFactorialOfFraction:
    case TBFEvaluationErrorFactorialOfNegative:
    case TBFEvaluationErrorLogarithmOfNegative:
    case TBFEvaluationErrorNoConversionTarget:
    case TBFEvaluationErrorRootOfUnit:
        return TCErrorTypeOther;
    }
    TBFErrorLog("Unexpected error type %d", static_cast<int>(error));
    return TCErrorTypeOther;
}

struct ErrorCodeRow {
    uint32_t error;
    uint32_t mask;
    TCErrorType type;
};

// What the bits of an error code stand for; the first row that fits wins.
constexpr ErrorCodeRow errorCodes[] = {
    {TBFParseErrorNoRecovery | 0x2701, 0xFFFFFF, TCErrorTypeOther},
    {TBFEvaluatorErrorCodeExponentTooLarge, 0xFFFF00, TCErrorTypeExponentTooLarge},
    {TBFEvaluatorErrorCodeDivideByZero, 0xFFFF00, TCErrorTypeDivideByZero},
    {TBFEvaluatorErrorCodeUnitTypeMismatch, 0xFFFF00, TCErrorTypeIncompatibleUnits},
};

bool isSpace(char16_t character) {
    return character == u' ' || (character >= u'\t' && character <= u'\r') || character == u'\u00A0';
}

std::u16string_view trimmed(std::u16string_view text) {
    while (!text.empty() && isSpace(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isSpace(text.back()))
        text.remove_suffix(1);
    return text;
}

} // namespace

std::u16string errorStringForTCResultErrorType(int32_t errorType) {
    for (const ErrorText& row : errorTexts)
        if (row.type == errorType) return platform::localizedString(row.text);
    return {};
}

TCResult::TCResult() = default;
TCResult::~TCResult() = default;

std::shared_ptr<TCResult> TCResult::resultWithContentsOfTBFResult(TBF::Ref<TBF::Result> result) {
    auto wrapped = TBF::makeShared<TCResult>();
    if (const TBF::String* const text = TBFResultGetStringReference(result.get())) {
        wrapped->rawText = text->utf16();
        wrapped->type = text->isEmpty() ? TCResultTypeEmpty : TCResultTypeNumber;
        wrapped->takeUnitFrom(result.get());
    } else {
        wrapped->takeErrorFrom(result.get());
        wrapped->type = wrapped->error == TCErrorTypeNone ? TCResultTypeEmpty : TCResultTypeError;
    }
    if (TBFResultGetFlags(result.get()) & TBFResultFlagPercent) wrapped->flagBits = TBFResultFlagPercent;
    if (wrapped->rawText) wrapped->foundationResult = std::move(result);
    return wrapped;
}

void TCResult::takeErrorFrom(TBFResultRef result) {
    if (!result) return;
    if (const TBFEvaluationError evaluationError = TBFResultGetEvaluationError(result)) {
        error = errorTypeOf(evaluationError);
        return;
    }
    const uint32_t code = TBFResultGetErrorCode(result);
    const auto row =
        std::find_if(std::begin(errorCodes), std::end(errorCodes), [&](const ErrorCodeRow& each) {
            return TBFErrorContainsErrorMask(code, each.error, each.mask);
        });
    if (row != std::end(errorCodes)) error = row->type;
}

void TCResult::takeUnitFrom(TBFResultRef result) {
    TBF::UnitFraction* const fraction = TBFResultGetUnitFraction(result);
    if (!fraction || fraction->unitType() == TBFUnitTypeNone) return;
    setUnit(TCValueUnit::unitWithUnitFraction(TBF::retain(fraction)));
    for (const TBF::UnitFraction::UnitDegree& each : fraction->unitDegrees()) {
        const TBFUnitFormatType format = TBFResultGetUnitComponentNameFormat(result, each.unit.get());
        if (format != TBFUnitFormatTypeNone)
            unitNameFormats.insert_or_assign(TCUnitTypeFromTBFUnitType(each.unit->type()),
                                             TCUnitNameFormatFromTBFUnitFormatType(format));
    }
}

std::shared_ptr<TCResult> TCResult::resultWithRawResultString(std::optional<std::u16string_view> text,
                                                              std::shared_ptr<TCUnit> unit, uint32_t flags) {
    auto result = TBF::makeShared<TCResult>();
    if (text) result->rawText = std::u16string(trimmed(*text));
    result->type = result->rawText && !result->rawText->empty() ? TCResultTypeNumber : TCResultTypeEmpty;
    result->setUnit(std::move(unit));
    result->flagBits = flags;
    return result;
}

std::shared_ptr<TCResult> TCResult::resultWithErrorType(TCErrorType errorType) {
    auto result = TBF::makeShared<TCResult>();
    result->type = TCResultTypeError;
    result->error = errorType;
    return result;
}

const std::shared_ptr<TCResult>& TCResult::emptyResult() {
    static const auto& result = *new std::shared_ptr<TCResult>(resultWithRawResultString(std::nullopt));
    return result;
}

TBFResultRef TCResult::tbfResult() const {
    if (!foundationResult && rawText) {
        foundationResult = TBF::adopt(TBFResultCreate());
        TBFResultSetString(foundationResult.get(), TBF::String::create(*rawText).get());
    }
    if (rawPrecision >= 0) TBFResultSetPrecision(foundationResult.get(), rawPrecision);
    return foundationResult.get();
}

std::optional<std::u16string> TCResult::completeStringValue() const {
    if (!completeText)
        if (const TBF::String* const text = TBFResultGetCompleteStringReference(tbfResult()))
            completeText = text->utf16();
    return completeText;
}

bool TCResult::isUnity() const {
    return completeStringValue() == u"1";
}

uint32_t TCResult::wholeNumberLength() const {
    if (cachedWholeNumberLength == 0 && rawText) {
        const std::size_t point = rawText->find(u'.');
        const std::size_t length =
            point == std::u16string::npos ? rawText->size() : std::max<std::size_t>(point, 1);
        cachedWholeNumberLength = static_cast<uint32_t>(length);
    }
    return cachedWholeNumberLength;
}

std::optional<std::u16string> TCResult::decimalValue(uint32_t places, bool withUnit) const {
    TCResultFormattingOptions options;
    options.acquireValuesFromFormattingOptions(formattingOptions.get());
    options.setDecimalPlaces(places);
    options.setThousandsSeparator(showsThousandsSeparator);
    options.setTrailingZeros(showsTrailingZeros);
    options.setShowUnit(withUnit);
    options.setScientificNotationMode(0);
    return TCResultFormatter::sharedInstance().stringValueForResult(this, options);
}

void TCResult::setResultFormattingOptions(std::shared_ptr<const TCResultFormattingOptions> options) {
    formattingOptions = std::move(options);
}

void TCResult::setUnit(std::shared_ptr<TCUnit> unit) {
    unfiltered = std::move(unit);
    filtered = TCUnitFilter::filteredUnit(unfiltered);
}

std::optional<std::u16string> TCResult::unitString() const {
    if (!filtered) return std::nullopt;
    TCUnitStringFormatter formatter;
    for (const auto& [unitType, format] : unitNameFormats)
        formatter.setUnitNameFormat(format, unitType);
    return formatter.stringForUnit(filtered.get(), isUnity() ? TCUnitNameFormSingular : TCUnitNameFormPlural);
}

TCUnitNameFormat TCResult::unitNameFormatForComponentUnitType(TCUnitType unitType) const {
    const auto found = unitNameFormats.find(unitType);
    return found == unitNameFormats.end() ? TCUnitNameFormatNone : found->second;
}

bool TCResult::isEqual(const TCResult* other) const {
    if (!other) return false;
    if (this == other) return true;
    if (type != other->type || error != other->error) return false;
    if (!TCUnitsAreEqual(filtered.get(), other->filtered.get())) return false;
    return TBFResultEqualToResult(tbfResult(), other->tbfResult());
}

std::size_t TCResult::hash() const {
    return rawText ? std::hash<std::u16string>()(*rawText) : 0;
}
