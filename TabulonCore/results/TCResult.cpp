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

// Null without a result, or without a text in it.
const TBF::String* textOf(const TBF::Ref<TBF::Result>& result) {
    return result ? result->string().get() : nullptr;
}

const TBF::String* completeTextOf(const TBF::Ref<TBF::Result>& result) {
    return result ? result->completeString().get() : nullptr;
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
    if (const TBF::String* const text = textOf(result)) {
        wrapped->type = text->isEmpty() ? TCResultTypeEmpty : TCResultTypeNumber;
    } else {
        wrapped->takeErrorFrom(result.get());
        wrapped->type = wrapped->error == TCErrorTypeNone ? TCResultTypeEmpty : TCResultTypeError;
    }
    if (result && (result->flags() & TBFResultFlagPercent)) wrapped->flagBits = TBFResultFlagPercent;
    if (textOf(result)) wrapped->foundationResult = std::move(result);
    return wrapped;
}

void TCResult::takeErrorFrom(TBF::Result* result) {
    if (!result) return;
    if (const TBFEvaluationError evaluationError = result->evaluationError()) {
        error = errorTypeOf(evaluationError);
        return;
    }
    const uint32_t code = result->errorCode();
    const auto row =
        std::find_if(std::begin(errorCodes), std::end(errorCodes), [&](const ErrorCodeRow& each) {
            return TBFErrorContainsErrorMask(code, each.error, each.mask);
        });
    if (row != std::end(errorCodes)) error = row->type;
}

TCResult::UnitForms TCResult::unitFormsOf(const TBF::Result& result) {
    UnitForms forms;
    TBF::UnitFraction* const fraction = result.unitFraction();
    if (!fraction || fraction->unitType() == TBFUnitTypeNone) return forms;
    forms.unfiltered = TCValueUnit::unitWithUnitFraction(TBF::retain(fraction));
    forms.filtered = TCUnitFilter::filteredUnit(forms.unfiltered);
    for (const TBF::UnitFraction::UnitDegree& each : fraction->unitDegrees()) {
        const TBFUnitFormatType format = result.nameFormat(*each.unit);
        if (format != TBFUnitFormatTypeNone)
            forms.nameFormats.insert_or_assign(TCUnitTypeFromTBFUnitType(each.unit->type()),
                                               TCUnitNameFormatFromTBFUnitFormatType(format));
    }
    return forms;
}

std::shared_ptr<TCResult> TCResult::resultWithRawResultString(std::optional<std::u16string_view> text,
                                                              std::shared_ptr<TCUnit> unit, uint32_t flags) {
    auto result = TBF::makeShared<TCResult>();
    result->type = TCResultTypeEmpty;
    if (text) {
        const std::u16string_view value = trimmed(*text);
        result->foundationResult = TBF::Result::create();
        result->foundationResult->setString(TBF::String::create(value));
        if (!value.empty()) result->type = TCResultTypeNumber;
    }
    if (unit) result->setUnit(std::move(unit));
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

TBF::Result* TCResult::tbfResult() const {
    return foundationResult.get();
}

void TCResult::setRawResultPrecision(int32_t places) {
    if (foundationResult) foundationResult->setPrecision(std::max(places, -1));
}

void TCResult::dropDerivedForms() const {
    if (foundationResult) foundationResult->dropDigits();
    if (!hasOwnUnits) units.reset();
}

std::optional<std::u16string> TCResult::rawResult() const {
    const TBF::String* const text = textOf(foundationResult);
    return text ? std::optional(text->utf16()) : std::nullopt;
}

TBF::Ref<TBF::String> TCResult::completeText() const {
    return foundationResult ? foundationResult->completeString() : nullptr;
}

std::optional<std::u16string> TCResult::completeStringValue() const {
    const TBF::String* const text = completeTextOf(foundationResult);
    return text ? std::optional(text->utf16()) : std::nullopt;
}

bool TCResult::isUnity() const {
    const TBF::String* const text = completeTextOf(foundationResult);
    return text && text->view() == u"1";
}

uint32_t TCResult::wholeNumberLength() const {
    const TBF::String* const text = textOf(foundationResult);
    if (!text) return 0;
    const std::size_t point = text->view().find(u'.');
    return point == std::u16string_view::npos ? static_cast<uint32_t>(text->length())
                                              : static_cast<uint32_t>(std::max<std::size_t>(point, 1));
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

void* TCResult::UnitForms::operator new(std::size_t size) {
    return TBF::ObjectPool::take(size);
}

void TCResult::UnitForms::operator delete(void* memory, std::size_t size) {
    TBF::ObjectPool::give(memory, size);
}

const TCResult::UnitForms& TCResult::unitForms() const {
    static const UnitForms& none = *std::make_unique<UnitForms>().release();
    if (units) return *units;
    const TBF::UnitFraction* const fraction = foundationResult ? foundationResult->unitFraction() : nullptr;
    if (!fraction || fraction->unitType() == TBFUnitTypeNone) return none;
    units = std::make_unique<UnitForms>(unitFormsOf(*foundationResult));
    return *units;
}

TCResult::UnitForms& TCResult::ownUnitForms() {
    if (!units) units = std::make_unique<UnitForms>(unitForms());
    hasOwnUnits = true;
    return *units;
}

const std::shared_ptr<TCUnit>& TCResult::unit() const {
    return unitForms().filtered;
}

const std::shared_ptr<TCUnit>& TCResult::unfilteredUnit() const {
    return unitForms().unfiltered;
}

void TCResult::setUnit(std::shared_ptr<TCUnit> unit) {
    UnitForms& forms = ownUnitForms();
    forms.unfiltered = std::move(unit);
    forms.filtered = TCUnitFilter::filteredUnit(forms.unfiltered);
}

void TCResult::setFilteredUnit(std::shared_ptr<TCUnit> unit) {
    ownUnitForms().filtered = std::move(unit);
}

void TCResult::setUnfilteredUnit(std::shared_ptr<TCUnit> unit) {
    ownUnitForms().unfiltered = std::move(unit);
}

std::optional<std::u16string> TCResult::unitString() const {
    const UnitForms& forms = unitForms();
    if (!forms.filtered) return std::nullopt;
    TCUnitStringFormatter formatter;
    for (const auto& [unitType, format] : forms.nameFormats)
        formatter.setUnitNameFormat(format, unitType);
    return formatter.stringForUnit(forms.filtered.get(),
                                   isUnity() ? TCUnitNameFormSingular : TCUnitNameFormPlural);
}

TCUnitNameFormat TCResult::unitNameFormatForComponentUnitType(TCUnitType unitType) const {
    const UnitNameFormats& formats = unitForms().nameFormats;
    const auto found = formats.find(unitType);
    return found == formats.end() ? TCUnitNameFormatNone : found->second;
}

bool TCResult::isEqual(const TCResult* other) const {
    if (!other) return false;
    if (this == other) return true;
    if (type != other->type || error != other->error) return false;
    if (!TCUnitsAreEqual(unit().get(), other->unit().get())) return false;
    TBF::Result* const own = tbfResult();
    TBF::Result* const others = other->tbfResult();
    return own == others || (own && others && own->isEqualTo(*others));
}

std::size_t TCResult::hash() const {
    const TBF::String* const text = textOf(foundationResult);
    return text ? std::hash<std::u16string_view>()(text->view()) : 0;
}
