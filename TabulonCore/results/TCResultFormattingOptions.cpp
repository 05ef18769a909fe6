#include "results/TCResultFormattingOptions.h"

#include <type_traits>

// Which option stands under which key of the coded form.
struct TCResultFormattingOptions::Coding {
    using Options = TCResultFormattingOptions;
    using Member = std::variant<bool Options::*, int32_t Options::*, uint32_t Options::*, char16_t Options::*,
                                double Options::*, std::u16string Options::*>;

    const char* key;
    Member member;

    static const Coding table[];
};

constexpr TCResultFormattingOptions::Coding TCResultFormattingOptions::Coding::table[] = {
    {"thousandsSeparator", &Options::thousandsSeparatorValue},
    {"trailingZeros", &Options::trailingZerosValue},
    {"scientificNotationMode", &Options::scientificNotationModeValue},
    {"scientificNotationStyle", &Options::scientificNotationStyleValue},
    {"precisionMode", &Options::precisionModeValue},
    {"decimalPlaces", &Options::decimalPlacesValue},
    {"significantDigits", &Options::significantDigitsValue},
    {"thousandsGroupSize", &Options::thousandsGroupSizeValue},
    {"scientificNotationBigThreshold", &Options::scientificNotationBigThresholdValue},
    {"scientificNotationSmallThreshold", &Options::scientificNotationSmallThresholdValue},
    {"scientificNotationExponentGranularity", &Options::scientificNotationExponentGranularityValue},
    {"scientificNotationBaseString", &Options::scientificNotationBaseStringValue},
    {"scientificNotationExponentSuffixString", &Options::scientificNotationExponentSuffixStringValue},
    {"displayBase", &Options::displayBaseValue},
    {"showBasePrefix", &Options::showBasePrefixValue},
    {"displayFormat", &Options::displayFormatValue},
    {"fallbackToDefaultDisplayFormat", &Options::fallbackToDefaultDisplayFormatValue},
    {"fractionStyle", &Options::fractionStyleValue},
    {"degreesCharacter", &Options::degreesCharacterValue},
    {"minutesCharacter", &Options::minutesCharacterValue},
    {"secondsCharacter", &Options::secondsCharacterValue},
    {"decimalPlaceCharacter", &Options::decimalPlaceCharacterValue},
    {"thousandsSeparatorCharacter", &Options::thousandsSeparatorCharacterValue},
    {"showUnit", &Options::showUnitValue},
    {"unitNameFormat", &Options::unitNameFormatValue},
    {"showPercentSign", &Options::showPercentSignValue},
    {"scientificNotationBaseStringFontSizeScale", &Options::scientificNotationBaseStringFontSizeScaleValue},
    {"scientificNotationExponentStringFontSizeScale",
     &Options::scientificNotationExponentStringFontSizeScaleValue},
    {"scientificNotationConvertsExponentCharactersIntoSuperscript",
     &Options::scientificNotationConvertsExponentCharactersIntoSuperscriptValue},
};

namespace {

// Numbers of any kind are taken for one another, since writers differ in the kind they chose.
template <typename Number>
void readNumber(const TCResultFormattingOptions::CodedValue& coded, Number& value) {
    if (const auto* integer = std::get_if<int64_t>(&coded))
        value = static_cast<Number>(*integer);
    else if (const auto* flag = std::get_if<bool>(&coded))
        value = static_cast<Number>(*flag);
    else if (const auto* real = std::get_if<double>(&coded); real && *real >= -1e9 && *real <= 1e9)
        value = static_cast<Number>(*real);
}

void read(const TCResultFormattingOptions::CodedValue& coded, std::u16string& value) {
    if (const auto* text = std::get_if<std::u16string>(&coded)) value = *text;
}

template <typename Number>
requires std::is_arithmetic_v<Number>
void read(const TCResultFormattingOptions::CodedValue& coded, Number& value) {
    readNumber(coded, value);
}

template <typename Value>
TCResultFormattingOptions::CodedValue write(const Value& value) {
    if constexpr (std::is_same_v<Value, bool> || std::is_same_v<Value, double> ||
                  std::is_same_v<Value, std::u16string>)
        return value;
    else
        return static_cast<int64_t>(value);
}

} // namespace

TCResultFormattingOptions
TCResultFormattingOptions::formattingOptionsWithDisplayFormat(int32_t format, TCSimpleLocale locale) {
    TCResultFormattingOptions options;
    options.setDisplayFormat(format);
    options.setDecimalPlaceCharacter(locale.decimalPoint);
    options.setThousandsSeparatorCharacter(locale.thousandsSeparator);
    return options;
}

TCResultFormattingOptions TCResultFormattingOptions::decoded(const CodedForm& form) {
    TCResultFormattingOptions options;
    for (const Coding& coding : Coding::table) {
        const auto found = form.find(coding.key);
        if (found == form.end()) continue;
        std::visit([&](auto member) { read(found->second, options.*member); }, coding.member);
    }
    return options;
}

TCResultFormattingOptions::CodedForm TCResultFormattingOptions::encoded() const {
    CodedForm form;
    for (const Coding& coding : Coding::table)
        form[coding.key] = std::visit([&](auto member) { return write(this->*member); }, coding.member);
    return form;
}

void TCResultFormattingOptions::setScientificNotationSignificandThreshold(uint32_t threshold) {
    setScientificNotationBigThreshold(threshold);
    setScientificNotationSmallThreshold(threshold);
}

void TCResultFormattingOptions::acquireValuesFromFormattingOptions(const TCResultFormattingOptions* other) {
    if (other) *this = *other;
}

void TCResultFormattingOptions::acquireLocaleValuesFromFormattingOptions(
    const TCResultFormattingOptions* other) {
    if (!other) return;
    setDecimalPlaceCharacter(other->decimalPlaceCharacter());
    setThousandsSeparatorCharacter(other->thousandsSeparatorCharacter());
}
