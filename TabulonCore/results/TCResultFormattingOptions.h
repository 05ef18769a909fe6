#pragma once

// Every choice of how an answer reads: digits, grouping, scientific form, base, fractions, locale
// characters, unit and percent sign. A plain value: copies have all options. A line and its collection
// share one object by `std::shared_ptr`; it belongs to the document's thread.

#include "environment/TCSimpleLocale.h"

#include <cstdint>
#include <map>
#include <string>
#include <variant>

enum TCDisplayFormat : int32_t {
    TCDisplayFormatNormal = 0,
    TCDisplayFormatDegreesMinutesSeconds = 1,
    TCDisplayFormatNone = 2, // has no text of its own: the fallback rule applies
    TCDisplayFormatFraction = 3,
    TCDisplayFormatBase = 4, // as normal, in groups of 4 digits with a space between them
};

class TCResultFormattingOptions {
public:
    // The value of `decimalPlaces` in the coded form and in documents while nobody has set it.
    static constexpr uint32_t decimalPlacesUnset = 65535;

    // What is shown while it is unset.
    static constexpr uint32_t decimalPlacesDefault = 10;

    // The form in which options are kept outside of documents, by key.
    using CodedValue = std::variant<bool, int64_t, double, std::u16string>;
    using CodedForm = std::map<std::string, CodedValue>;

    TCResultFormattingOptions() = default;

    // Options of that TCDisplayFormat with the characters of the locale.
    static TCResultFormattingOptions
    formattingOptionsWithDisplayFormat(int32_t format,
                                       TCSimpleLocale locale = TCSimpleLocale::standardLocale());

    // Unknown keys are passed over; a key that is missing, or holds something that can't be read, leaves
    // the default.
    static TCResultFormattingOptions decoded(const CodedForm& form);
    CodedForm encoded() const;

    bool operator==(const TCResultFormattingOptions&) const = default;

    // Decimals to show.
    uint32_t decimalPlaces() const {
        return isDecimalPlacesSet() ? decimalPlacesValue : decimalPlacesDefault;
    }
    void setDecimalPlaces(uint32_t places) { decimalPlacesValue = places; }
    bool isDecimalPlacesSet() const { return decimalPlacesValue != decimalPlacesUnset; }

    // Beyond the thresholds, or never.
    void setScientificNotation(bool enabled) { setScientificNotationMode(enabled ? 2 : 0); }

    // Both thresholds at once.
    void setScientificNotationSignificandThreshold(uint32_t threshold);

    // Copies of all options of another object, or of its two locale characters; null does nothing.
    void acquireValuesFromFormattingOptions(const TCResultFormattingOptions* other);
    void acquireLocaleValuesFromFormattingOptions(const TCResultFormattingOptions* other);

    // The integer part is grouped.
    bool thousandsSeparator() const { return thousandsSeparatorValue; }
    void setThousandsSeparator(bool value) { thousandsSeparatorValue = value; }

    // All decimal places are shown, zeros too.
    bool trailingZeros() const { return trailingZerosValue; }
    void setTrailingZeros(bool value) { trailingZerosValue = value; }

    // 0 never, 1 always, 2 beyond the thresholds.
    int32_t scientificNotationMode() const { return scientificNotationModeValue; }
    void setScientificNotationMode(int32_t value) { scientificNotationModeValue = value; }

    // 0 SI: exponents in steps of 3, as a letter where there is one; otherwise in steps of the
    // granularity.
    int32_t scientificNotationStyle() const { return scientificNotationStyleValue; }
    void setScientificNotationStyle(int32_t value) { scientificNotationStyleValue = value; }

    // 1 records that significant digits were chosen. The formatter looks at `significantDigits`
    // alone.
    int32_t precisionMode() const { return precisionModeValue; }
    void setPrecisionMode(int32_t value) { precisionModeValue = value; }

    // When not 0, it stands instead of the decimal places.
    uint32_t significantDigits() const { return significantDigitsValue; }
    void setSignificantDigits(uint32_t value) { significantDigitsValue = value; }

    // Digits in a group.
    uint32_t thousandsGroupSize() const { return thousandsGroupSizeValue; }
    void setThousandsGroupSize(uint32_t value) { thousandsGroupSizeValue = value; }

    // Scientific exponents from this on go scientific.
    uint32_t scientificNotationBigThreshold() const { return scientificNotationBigThresholdValue; }
    void setScientificNotationBigThreshold(uint32_t value) { scientificNotationBigThresholdValue = value; }

    // Scientific exponents from its negative downward go scientific.
    uint32_t scientificNotationSmallThreshold() const { return scientificNotationSmallThresholdValue; }
    void setScientificNotationSmallThreshold(uint32_t value) {
        scientificNotationSmallThresholdValue = value;
    }

    // Carried along; without effect and not coded.
    uint32_t scientificNotationSignicantDigits() const { return scientificNotationSignicantDigitsValue; }
    void setScientificNotationSignicantDigits(uint32_t value) {
        scientificNotationSignicantDigitsValue = value;
    }

    // The exponent shown is a multiple of this.
    uint32_t scientificNotationExponentGranularity() const {
        return scientificNotationExponentGranularityValue;
    }
    void setScientificNotationExponentGranularity(uint32_t value) {
        scientificNotationExponentGranularityValue = value;
    }

    // Stands between mantissa and exponent.
    const std::u16string& scientificNotationBaseString() const { return scientificNotationBaseStringValue; }
    void setScientificNotationBaseString(std::u16string value) {
        scientificNotationBaseStringValue = std::move(value);
    }

    // Stands behind the exponent.
    const std::u16string& scientificNotationExponentSuffixString() const {
        return scientificNotationExponentSuffixStringValue;
    }
    void setScientificNotationExponentSuffixString(std::u16string value) {
        scientificNotationExponentSuffixStringValue = std::move(value);
    }

    // 2, 10 or 16.
    int32_t displayBase() const { return displayBaseValue; }
    void setDisplayBase(int32_t value) { displayBaseValue = value; }

    // "0x" or "0b" in front.
    bool showBasePrefix() const { return showBasePrefixValue; }
    void setShowBasePrefix(bool value) { showBasePrefixValue = value; }

    // A TCDisplayFormat.
    int32_t displayFormat() const { return displayFormatValue; }
    void setDisplayFormat(int32_t value) { displayFormatValue = value; }

    // The normal format stands in when the chosen one has no text for a value.
    bool fallbackToDefaultDisplayFormat() const { return fallbackToDefaultDisplayFormatValue; }
    void setFallbackToDefaultDisplayFormat(bool value) { fallbackToDefaultDisplayFormatValue = value; }

    // 0 a mixed number, otherwise an improper fraction.
    int32_t fractionStyle() const { return fractionStyleValue; }
    void setFractionStyle(int32_t value) { fractionStyleValue = value; }

    const std::u16string& degreesCharacter() const { return degreesCharacterValue; }
    void setDegreesCharacter(std::u16string value) { degreesCharacterValue = std::move(value); }

    const std::u16string& minutesCharacter() const { return minutesCharacterValue; }
    void setMinutesCharacter(std::u16string value) { minutesCharacterValue = std::move(value); }

    const std::u16string& secondsCharacter() const { return secondsCharacterValue; }
    void setSecondsCharacter(std::u16string value) { secondsCharacterValue = std::move(value); }

    char16_t decimalPlaceCharacter() const { return decimalPlaceCharacterValue; }
    void setDecimalPlaceCharacter(char16_t value) { decimalPlaceCharacterValue = value; }

    char16_t thousandsSeparatorCharacter() const { return thousandsSeparatorCharacterValue; }
    void setThousandsSeparatorCharacter(char16_t value) { thousandsSeparatorCharacterValue = value; }

    bool showUnit() const { return showUnitValue; }
    void setShowUnit(bool value) { showUnitValue = value; }

    // 0 lets the result's own name format stand.
    uint32_t unitNameFormat() const { return unitNameFormatValue; }
    void setUnitNameFormat(uint32_t value) { unitNameFormatValue = value; }

    bool showPercentSign() const { return showPercentSignValue; }
    void setShowPercentSign(bool value) { showPercentSignValue = value; }

    // For the attributed form, as a part of the point size.
    double scientificNotationBaseStringFontSizeScale() const {
        return scientificNotationBaseStringFontSizeScaleValue;
    }
    void setScientificNotationBaseStringFontSizeScale(double value) {
        scientificNotationBaseStringFontSizeScaleValue = value;
    }

    double scientificNotationExponentStringFontSizeScale() const {
        return scientificNotationExponentStringFontSizeScaleValue;
    }
    void setScientificNotationExponentStringFontSizeScale(double value) {
        scientificNotationExponentStringFontSizeScaleValue = value;
    }

    bool scientificNotationConvertsExponentCharactersIntoSuperscript() const {
        return scientificNotationConvertsExponentCharactersIntoSuperscriptValue;
    }
    void setScientificNotationConvertsExponentCharactersIntoSuperscript(bool value) {
        scientificNotationConvertsExponentCharactersIntoSuperscriptValue = value;
    }

private:
    struct Coding; // the table of keys

    bool thousandsSeparatorValue = true;
    bool trailingZerosValue = false;
    int32_t scientificNotationModeValue = 2;
    int32_t scientificNotationStyleValue = 1;
    int32_t precisionModeValue = 0;
    uint32_t decimalPlacesValue = decimalPlacesUnset;
    uint32_t significantDigitsValue = 0;
    uint32_t thousandsGroupSizeValue = 3;
    uint32_t scientificNotationBigThresholdValue = 10;
    uint32_t scientificNotationSmallThresholdValue = 10;
    uint32_t scientificNotationSignicantDigitsValue = 0;
    uint32_t scientificNotationExponentGranularityValue = 1;
    std::u16string scientificNotationBaseStringValue = u"e";
    std::u16string scientificNotationExponentSuffixStringValue;
    int32_t displayBaseValue = 10;
    bool showBasePrefixValue = true;
    int32_t displayFormatValue = 0;
    bool fallbackToDefaultDisplayFormatValue = false;
    int32_t fractionStyleValue = 0;
    std::u16string degreesCharacterValue = u"\u00B0";
    std::u16string minutesCharacterValue = u"'";
    std::u16string secondsCharacterValue = u"\"";
    char16_t decimalPlaceCharacterValue = u'.';
    char16_t thousandsSeparatorCharacterValue = u',';
    bool showUnitValue = true;
    uint32_t unitNameFormatValue = 0;
    bool showPercentSignValue = true;
    double scientificNotationBaseStringFontSizeScaleValue = 1.0;
    double scientificNotationExponentStringFontSizeScaleValue = 1.0;
    bool scientificNotationConvertsExponentCharactersIntoSuperscriptValue = false;
};
