#include "results/TCResultFormatter.h"

#include "results/Result.h"
#include "results/ResultFormatter.h"
#include "results/ResultParts.h"
#include "results/TCAttributedResultFormatter.h"
#include "results/TCResult.h"
#include "runtime/Unicode.h"
#include "units/TCUnit.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <string>
#include <vector>

namespace {

// Of the degrees, in their groups.
constexpr int32_t digitsInGroup = 3;

// Takes a place in a text while two characters change places.
constexpr char16_t placeholder = u'\u0011';

constexpr std::u16string_view superscripts = u"⁰¹²³⁴⁵⁶⁷⁸⁹";
constexpr char16_t superscriptMinus = u'⁻';

// Letters by a third of the exponent; the first one stands for the exponent 0.
constexpr std::u16string_view siLetters[] = {u"", u"k", u"M", u"G", u"T", u"P"};

struct Components {
    TBF::PooledVector<std::string> texts; // none, the whole number, or mantissa, base and exponent

    std::u16string text(std::size_t index) const { return TBF::utf16(texts[index]); }
};

Components componentsOf(const TBF::ResultFormatter& formatter, const TCResult& result,
                        const TCResultFormattingOptions& options) {
    TBF::Result* const value = result.tbfResult();
    if (!value) return {};
    // Old documents don't say which base, and mean the usual one; so does any that there is no text in.
    const int32_t chosen = options.displayBase();
    const uint8_t base = chosen == 2 || chosen == 16 ? static_cast<uint8_t>(chosen) : uint8_t{10};
    const auto significantDigits = static_cast<uint16_t>(options.significantDigits());
    const auto decimalPlaces = static_cast<uint16_t>(options.decimalPlaces());
    return {formatter.components(*value, base, significantDigits == 0 ? decimalPlaces : uint16_t{0},
                                 significantDigits)};
}

int16_t within16Bits(uint32_t number) {
    return static_cast<int16_t>(std::min<uint32_t>(number, std::numeric_limits<int16_t>::max()));
}

std::u16string superscript(std::u16string_view exponent) {
    std::u16string raised;
    for (const char16_t character : exponent) {
        if (character == u'-')
            raised += superscriptMinus;
        else if (character >= u'0' && character <= u'9')
            raised += superscripts[character - u'0'];
        else
            raised += character;
    }
    return raised;
}

// Mantissa and exponent as one text, with the ranges of its parts.
std::u16string scientificText(const Components& components, const TCResultFormattingOptions& options,
                              TCResultRanges& ranges) {
    std::u16string text = components.text(0);
    const std::u16string exponent = components.text(2);
    if (options.scientificNotationStyle() == 0)
        if (const auto letter = exponentSIString(exponent)) return text += *letter;

    const auto mantissaLength = static_cast<int32_t>(text.size());
    text += options.scientificNotationBaseString();
    const auto baseLength = static_cast<int32_t>(text.size()) - mantissaLength;
    text += options.scientificNotationConvertsExponentCharactersIntoSuperscript() ? superscript(exponent)
                                                                                  : exponent;
    text += options.scientificNotationExponentSuffixString();
    ranges.ranges = {TBFRange{0, mantissaLength}, TBFRange{mantissaLength, baseLength},
                     TBFRange{mantissaLength + baseLength, static_cast<int32_t>(exponent.size())}};
    ranges.count = 3;
    return text;
}

void replaceAll(std::u16string& text, char16_t from, char16_t to) {
    if (to == 0)
        std::erase(text, from);
    else
        for (char16_t& character : text)
            if (character == from) character = to;
}

} // namespace

TCResultFormatter& TCResultFormatter::sharedInstance() {
    static TCResultFormatter& formatter = *new TCResultFormatter;
    return formatter;
}

TCResultFormatter::TCResultFormatter(std::string localeIdentifier)
    : resultFormatter(TBF::ResultFormatter::create())
    , currencySymbols(std::move(localeIdentifier)) {}

TCResultFormatter::~TCResultFormatter() = default;

std::optional<std::u16string>
TCResultFormatter::stringValueForResult(const TCResult* result,
                                        const TCResultFormattingOptions& withOptions) {
    std::optional<std::u16string> text;
    TBF::Result* const value = result ? result->tbfResult() : nullptr;
    const bool isEndless = value && TBF::ResultFormatter::isEndless(*value);
    switch (isEndless ? int32_t{TCDisplayFormatNormal} : withOptions.displayFormat()) {
    case TCDisplayFormatNormal:
    case TCDisplayFormatBase:
        text = normalFormattedResult(result, withOptions);
        break;
    case TCDisplayFormatDegreesMinutesSeconds:
        text = degreesMinutesSecondsFormattedResult(result, withOptions);
        break;
    case TCDisplayFormatFraction:
        text = fractionFormattedResult(result, withOptions);
        break;
    default:
        break;
    }
    if (!text && withOptions.fallbackToDefaultDisplayFormat())
        text = normalFormattedResult(result, withOptions);
    return text;
}

void TCResultFormatter::configure(const TCResultFormattingOptions& options) {
    TBF::ResultFormatter& formatter = *resultFormatter;
    const bool inGroupsOfFour = options.displayFormat() == TCDisplayFormatBase;
    formatter.setThousandsSeparator(options.thousandsSeparator());
    formatter.setGroupSize(inGroupsOfFour ? int8_t{4} : static_cast<int8_t>(options.thousandsGroupSize()));
    formatter.setBasePrefix(options.showBasePrefix());
    formatter.setTrailingZeros(options.trailingZeros());

    const int32_t mode = options.scientificNotationMode();
    formatter.setScientificNotation(mode == 1 || mode == 2);
    if (mode == 2)
        formatter.setScientificNotationThresholds(within16Bits(options.scientificNotationSmallThreshold()),
                                                  within16Bits(options.scientificNotationBigThreshold()));
    else if (mode == 1)
        formatter.setScientificNotationThresholds(0, 0);

    const bool inStepsOfThree = options.scientificNotationStyle() == 0;
    formatter.setSnGranularity(
        inStepsOfThree ? int16_t{3} : within16Bits(options.scientificNotationExponentGranularity()));
}

std::optional<std::u16string>
TCResultFormatter::normalFormattedResult(const TCResult* result, const TCResultFormattingOptions& options,
                                         TCResultRanges* ranges) {
    TCResultRanges unused;
    TCResultRanges& parts = ranges ? *ranges : unused;
    parts = {};
    if (!result) return std::nullopt;
    if (result->resultType() == TCResultTypeEmpty) return std::u16string();

    configure(options);
    const Components components = componentsOf(*resultFormatter, *result, options);
    const std::size_t count = components.texts.size();
    if (count == 0) return std::nullopt;

    std::u16string text;
    if (count == 3) {
        text = scientificText(components, options, parts);
    } else {
        text = components.text(0);
        parts.ranges[0] = {0, static_cast<int32_t>(text.size())};
        parts.count = 1;
    }
    const char16_t separator =
        options.displayFormat() == TCDisplayFormatBase ? u' ' : options.thousandsSeparatorCharacter();
    TCResultFormatterReplaceDecimalPointAndThousandsSeparator(text, u'.', u',',
                                                              options.decimalPlaceCharacter(), separator);

    if (result->isPercent()) {
        if (count >= 2) text += u' ';
        if (options.showPercentSign()) text += u'%';
    } else if (options.showUnit() && result->unit()) {
        addUnit(*result, options, text, parts);
    }
    return text;
}

TCUnitNameFormat
TCResultFormatter::currencyUnitNameFormatForResult(const TCResult& result,
                                                   const TCResultFormattingOptions& formattingOptions) {
    if (!result.unit() || result.unit()->type() != TCUnitTypeMoney) return TCUnitNameFormatNone;
    if (const uint32_t chosen = formattingOptions.unitNameFormat())
        return static_cast<TCUnitNameFormat>(chosen);
    return result.unitNameFormatForComponentUnitType(TCUnitTypeMoney);
}

void TCResultFormatter::addUnit(const TCResult& result, const TCResultFormattingOptions& options,
                                std::u16string& text, TCResultRanges& ranges) const {
    const TCUnit& unit = *result.unit();
    if (currencyUnitNameFormatForResult(result, options) == TCUnitNameFormatSymbol) {
        addCurrencySymbol(unit.currencyCode().value_or(u""), text, ranges);
        return;
    }
    const auto chosen = static_cast<TCUnitNameFormat>(options.unitNameFormat());
    const auto form = result.isUnity() ? TCUnitNameFormSingular : TCUnitNameFormPlural;
    const std::optional<std::u16string> name =
        chosen == TCUnitNameFormatNone ? result.unitString() : unit.namePreferringFormat(chosen, form);
    if (name) (text += u' ') += *name;
}

void TCResultFormatter::addCurrencySymbol(const std::u16string& code, std::u16string& text,
                                          TCResultRanges& ranges) const {
    TCCurrencySymbolPosition position = TCCurrencySymbolPositionPrefix;
    const std::optional<std::u16string> symbol = currencySymbols.symbolForCurrencyCode(code, &position);
    if (!symbol || text.empty()) return;
    if (position == TCCurrencySymbolPositionSuffix) {
        text += *symbol;
        return;
    }
    text.insert(text.front() == u'-' ? 1 : 0, *symbol);
    for (std::size_t i = 0; i < ranges.count; ++i)
        ranges.ranges[i].location += static_cast<int32_t>(symbol->size());
}

std::optional<TCAttributedString>
TCResultFormatter::attributedStringValueForResult(const TCResult* result,
                                                  const TCResultFormattingOptions& withOptions,
                                                  const TCTextAttributes& attributes) {
    const int32_t format = withOptions.displayFormat();
    if (format != TCDisplayFormatNormal && format != TCDisplayFormatBase) return std::nullopt;
    TCResultRanges ranges;
    std::optional<std::u16string> text = normalFormattedResult(result, withOptions, &ranges);
    if (!text) return std::nullopt;
    TCAttributedResultFormatter formatter;
    formatter.setOptions(&withOptions);
    return formatter.formatResultString(std::move(*text), ranges, attributes);
}

std::optional<std::u16string> degreesMinutesSecondsFormattedResult(const TCResult* result,
                                                                   const TCResultFormattingOptions& options) {
    TBF::Result* const value = result ? result->tbfResult() : nullptr;
    if (!value) return std::nullopt;
    const auto parts =
        TBF::degreesMinutesSeconds(*value, static_cast<int32_t>(options.decimalPlaces()),
                                   options.trailingZeros(), options.thousandsSeparator() ? digitsInGroup : 0);
    if (!parts) return std::nullopt;
    return TBF::utf16(parts->degrees) + options.degreesCharacter() + u' ' + TBF::utf16(parts->minutes) +
           options.minutesCharacter() + u' ' + TBF::utf16(parts->seconds) + options.secondsCharacter();
}

std::optional<std::u16string> fractionFormattedResult(const TCResult* result,
                                                      const TCResultFormattingOptions& options) {
    TBF::Result* const value = result ? result->tbfResult() : nullptr;
    if (!value) return std::nullopt;
    const bool isMixed = options.fractionStyle() == 0;
    const auto parts = TBF::fractionOf(*value, isMixed);
    if (!parts || parts->denominator == "1") return std::nullopt;
    const std::u16string fraction = TBF::utf16(parts->numerator) + u'/' + TBF::utf16(parts->denominator);
    return parts->whole ? TBF::utf16(*parts->whole) + u' ' + fraction : fraction;
}

std::optional<std::u16string_view> exponentSIString(std::u16string_view text) {
    const std::string digits = TBF::utf8(text);
    int64_t exponent = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), exponent);
    if (error != std::errc() || end != digits.data() + digits.size()) return std::nullopt;
    if (exponent % 3 != 0 || exponent < 0) return std::nullopt;
    const auto index = static_cast<std::size_t>(exponent / 3);
    if (index >= std::size(siLetters)) return std::nullopt;
    return siLetters[index];
}

void TCResultFormatterReplaceDecimalPointAndThousandsSeparator(std::u16string& text, char16_t oldPoint,
                                                               char16_t oldSeparator, char16_t newPoint,
                                                               char16_t newSeparator) {
    if (oldPoint == 0 || oldSeparator == 0 || newPoint == 0) return;
    const bool pointChanges = oldPoint != newPoint;
    if (!pointChanges && oldSeparator == newSeparator) return;
    if (pointChanges) replaceAll(text, oldPoint, placeholder);
    if (oldSeparator != u' ') replaceAll(text, oldSeparator, newSeparator);
    if (pointChanges) replaceAll(text, placeholder, newPoint);
}
