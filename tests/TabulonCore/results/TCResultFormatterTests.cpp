#include "results/TCResultFormatter.h"

#include "results/Result.h"
#include "results/TCResult.h"
#include "results/TCResultFormattingOptionsContextualizer.h"
#include "runtime/Unicode.h"

#include <gtest/gtest.h>

namespace {

using Options = TCResultFormattingOptions;

std::shared_ptr<TCResult> result(const std::string& value) {
    const bool isPercent = value.ends_with('%');
    return TCResult::resultWithRawResultString(
        TBF::utf16(isPercent ? value.substr(0, value.size() - 1) : value), nullptr, isPercent ? 1 : 0);
}

std::string text(const std::string& value, const Options& options) {
    const auto formatted =
        TCResultFormatter::sharedInstance().stringValueForResult(result(value).get(), options);
    return formatted ? TBF::utf8(*formatted) : "(none)";
}

struct Row {
    const char* name;
    void (*change)(Options&);
    std::string value;
    std::string expected;
};

const std::string third = "0." + std::string(100, '3');

TEST(TCResultFormatter, DefaultOptionsGiveTheUsualShapes) {
    const struct {
        std::string value;
        const char* expected;
    } rows[] = {
        {"1234567.5", "1,234,567.5"},
        {"0.3", "0.3"},
        {third, "0.3333333333"},
        {"10000000000", "1e10"},
        {"9999999999", "9,999,999,999"},
        {"0.0000000001", "1e-10"},
        {"0.000000001", "0.000000001"},
        {"-1234567", "-1,234,567"},
        {"25%", "25%"},
        {"20000000000%", "2e10 %"},
        {"0", "0"},
        {"", ""},
    };
    for (const auto& row : rows)
        EXPECT_EQ(text(row.value, Options()), row.expected) << row.value;
}

TEST(TCResultFormatter, EachOptionChangesTheShape) {
    const Row rows[] = {
        {"no separator", [](Options& o) { o.setThousandsSeparator(false); }, "1234567.5", "1234567.5"},
        {"2 places", [](Options& o) { o.setDecimalPlaces(2); }, third, "0.33"},
        {"half away from zero", [](Options& o) { o.setDecimalPlaces(2); }, "1.005", "1.01"},
        {"zeros kept",
         [](Options& o) {
             o.setDecimalPlaces(2);
             o.setTrailingZeros(true);
         },
         "1.5", "1.50"},
        {"3 digits of a large number", [](Options& o) { o.setSignificantDigits(3); }, "123456", "123,000"},
        {"3 digits of a small number", [](Options& o) { o.setSignificantDigits(3); }, "0.00012345",
         "0.000123"},
        {"never scientific", [](Options& o) { o.setScientificNotationMode(0); }, "10000000000",
         "10,000,000,000"},
        {"always scientific", [](Options& o) { o.setScientificNotationMode(1); }, "1234.5", "1.2345e3"},
        {"always, exponent 0", [](Options& o) { o.setScientificNotationMode(1); }, "1.5", "1.5"},
        {"granularity", [](Options& o) { o.setScientificNotationExponentGranularity(3); }, "15000000000",
         "15e9"},
        {"SI letter", [](Options& o) { o.setScientificNotationStyle(0); }, "15000000000", "15G"},
        {"SI without a letter",
         [](Options& o) {
             o.setScientificNotationStyle(0);
             o.setScientificNotationMode(1);
         },
         "0.0000015", "1.5e-6"},
        {"superscript",
         [](Options& o) {
             o.setScientificNotationBaseString(u"×10");
             o.setScientificNotationConvertsExponentCharactersIntoSuperscript(true);
         },
         "0.00000000000123", "1.23×10⁻¹²"},
        {"degrees", [](Options& o) { o.setDisplayFormat(1); }, "12.5", "12° 30' 0\""},
        {"mixed fraction", [](Options& o) { o.setDisplayFormat(3); }, "1.5", "1 1/2"},
        {"improper fraction",
         [](Options& o) {
             o.setDisplayFormat(3);
             o.setFractionStyle(1);
         },
         "1.5", "3/2"},
        {"third as a fraction", [](Options& o) { o.setDisplayFormat(3); }, third, "1/3"},
        {"negative third", [](Options& o) { o.setDisplayFormat(3); }, "-" + third, "-1/3"},
        {"no fraction of an integer", [](Options& o) { o.setDisplayFormat(3); }, "2", "(none)"},
        {"fallback",
         [](Options& o) {
             o.setDisplayFormat(3);
             o.setFallbackToDefaultDisplayFormat(true);
         },
         "2", "2"},
        {"no percent sign", [](Options& o) { o.setShowPercentSign(false); }, "25%", "25"},
        {"hexadecimal",
         [](Options& o) {
             o.setDisplayFormat(4);
             o.setDisplayBase(16);
         },
         "1048575", "0xF FFFF"},
        {"hexadecimal without prefix",
         [](Options& o) {
             o.setDisplayFormat(4);
             o.setDisplayBase(16);
             o.setShowBasePrefix(false);
         },
         "255", "FF"},
        {"binary",
         [](Options& o) {
             o.setDisplayFormat(4);
             o.setDisplayBase(2);
         },
         "-5", "-0b101"},
        {"European locale",
         [](Options& o) {
             o.setDecimalPlaceCharacter(u',');
             o.setThousandsSeparatorCharacter(u'.');
         },
         "1234567.5", "1.234.567,5"},
    };
    for (const Row& row : rows) {
        Options options;
        row.change(options);
        EXPECT_EQ(text(row.value, options), row.expected) << row.name;
    }
}

// A short document could otherwise ask for a page of gigabytes.
TEST(TCResultFormatter, MoreThanTenThousandDigitsAreScientificWhateverTheOptions) {
    const std::string most(10'000, '7');
    Options never;
    never.setScientificNotationMode(0);
    never.setThousandsSeparator(false);
    EXPECT_EQ(text(most, never), most);
    const Row rows[] = {
        {"never scientific", [](Options& o) { o.setScientificNotationMode(0); }, most + "7",
         "7.7777777778e10000"},
        {"never, negative", [](Options& o) { o.setScientificNotationMode(0); }, "-" + most + "7",
         "-7.7777777778e10000"},
        {"hexadecimal",
         [](Options& o) {
             o.setDisplayFormat(TCDisplayFormatBase);
             o.setDisplayBase(16);
         },
         most + "7", "7.7777777778e10000"},
        {"fraction", [](Options& o) { o.setDisplayFormat(TCDisplayFormatFraction); }, most + "7.5",
         "7.7777777778e10000"},
        {"degrees", [](Options& o) { o.setDisplayFormat(TCDisplayFormatDegreesMinutesSeconds); },
         most + "7.5", "7.7777777778e10000"},
    };
    for (const Row& row : rows) {
        Options options;
        row.change(options);
        EXPECT_EQ(text(row.value, options), row.expected) << row.name;
    }
}

TEST(TCResultFormatter, RangesCoverTheParts) {
    Options options;
    options.setScientificNotationBaseString(u"×10");
    options.setScientificNotationExponentSuffixString(u"!");
    TCResultRanges ranges;
    TCResultFormatter& formatter = TCResultFormatter::sharedInstance();
    EXPECT_EQ(formatter.normalFormattedResult(result("0.00000000000125").get(), options, &ranges),
              u"1.25×10-12!");
    ASSERT_EQ(ranges.count, 3u);
    EXPECT_EQ(ranges.ranges[0], (TBFRange{0, 4}));
    EXPECT_EQ(ranges.ranges[1], (TBFRange{4, 3}));
    EXPECT_EQ(ranges.ranges[2], (TBFRange{7, 3}));

    options.setScientificNotationExponentStringFontSizeScale(0.5);
    const auto styled =
        formatter.attributedStringValueForResult(result("20000000000").get(), options, {"Sans", 12, 0});
    ASSERT_TRUE(styled && styled->runs.size() == 4);
    EXPECT_EQ(styled->runs[3].attributes, (TCTextAttributes{"Sans", 6, 1}));
}

TEST(TCResultFormatter, AnswersAreFittedToPercentages) {
    const struct {
        const char* value;
        bool automatic;
        const char* expected;
    } rows[] = {
        {"12.3456789%", true, "12.35%"},    {"1234.56789%", true, "1,235%"},
        {"123456.789%", true, "123,457%"},  {"12.3456789%", false, "12.3456789%"},
        {"12.3456789", true, "12.3456789"},
    };
    for (const auto& row : rows) {
        TCResultFormattingOptionsContextualizer contextualizer;
        contextualizer.setEnableAutoPrecision(row.automatic);
        const auto options = contextualizer.contextualizedOptions(Options(), result(row.value).get());
        EXPECT_EQ(text(row.value, options), row.expected);
    }
}

TEST(TCResultFormatter, SeparatorsChangePlaces) {
    const struct {
        const char16_t* text;
        char16_t from[2];
        char16_t to[2];
        const char16_t* expected;
    } rows[] = {
        {u"1,234.5", {u'.', u','}, {u',', u'.'}, u"1.234,5"},
        {u"1,234.5", {u'.', u','}, {u'.', 0}, u"1234.5"},
        {u"1 234,5", {u',', u' '}, {u'.', u','}, u"1 234.5"},
        {u"1,234.5", {u'.', 0}, {u',', u'.'}, u"1,234.5"},
    };
    for (const auto& row : rows) {
        std::u16string changed = row.text;
        TCResultFormatterReplaceDecimalPointAndThousandsSeparator(changed, row.from[0], row.from[1],
                                                                  row.to[0], row.to[1]);
        EXPECT_EQ(changed, row.expected);
    }
}

TEST(TCResultFormattingOptions, TheCodedFormKeepsEverything) {
    Options options;
    EXPECT_EQ(Options::decoded(options.encoded()), options);
    EXPECT_FALSE(Options::decoded(options.encoded()).isDecimalPlacesSet());
    options.setDecimalPlaces(3);
    options.setDegreesCharacter(u"deg");
    options.setDecimalPlaceCharacter(u',');
    options.setScientificNotationBaseStringFontSizeScale(0.75);
    options.setShowUnit(false);
    EXPECT_EQ(Options::decoded(options.encoded()), options);

    Options::CodedForm foreign = {{"precisionMode", true}, {"displayBase", 16.0}, {"fractionStyle", u"x"}};
    EXPECT_EQ(Options::decoded(foreign).precisionMode(), 1);
    EXPECT_EQ(Options::decoded(foreign).displayBase(), 16);
    EXPECT_EQ(Options::decoded(foreign).fractionStyle(), 0);
}

TEST(TCResult, KindsAndErrors) {
    EXPECT_EQ(result("5")->resultType(), TCResultTypeNumber);
    EXPECT_EQ(result("  ")->resultType(), TCResultTypeEmpty);
    EXPECT_EQ(TCResult::emptyResult()->resultType(), TCResultTypeEmpty);

    const struct {
        TBFEvaluationError error;
        uint32_t code;
        TCErrorType expected;
    } rows[] = {
        {TBFEvaluationErrorDivideByZero, 0x200, TCErrorTypeDivideByZero},
        {TBFEvaluationErrorExponentTooLarge, 0x200, TCErrorTypeExponentTooLarge},
        {TBFEvaluationErrorIncompatibleUnits, 0x200, TCErrorTypeIncompatibleUnits},
        {TBFEvaluationErrorFactorialOfNegative, 0x200, TCErrorTypeOther},
        {TBFEvaluationErrorNone, TBFEvaluatorErrorCodeDivideByZero, TCErrorTypeDivideByZero},
        {TBFEvaluationErrorNone, TBFEvaluatorErrorCodeExponentTooLarge, TCErrorTypeExponentTooLarge},
        {TBFEvaluationErrorNone, TBFEvaluatorErrorCodeUnitTypeMismatch, TCErrorTypeIncompatibleUnits},
        {TBFEvaluationErrorNone, 0, TCErrorTypeNone},
    };
    for (const auto& row : rows) {
        const auto foundation = TBF::Result::create();
        foundation->setEvaluationError(row.error);
        foundation->setErrorCode(row.code);
        const auto wrapped = TCResult::resultWithContentsOfTBFResult(foundation);
        EXPECT_EQ(wrapped->errorType(), row.expected) << row.error << " " << row.code;
        EXPECT_EQ(wrapped->resultType(), row.expected ? TCResultTypeError : TCResultTypeEmpty);
    }
    EXPECT_EQ(errorStringForTCResultErrorType(2), u"Error: Divide by Zero");
    EXPECT_EQ(errorStringForTCResultErrorType(5), u"Error: Takes too long");
    EXPECT_EQ(errorStringForTCResultErrorType(6), u"Error: Line too long");
    EXPECT_EQ(errorStringForTCResultErrorType(99), u"");
}

TEST(TCResultFormatter, ABaseThatThereIsNoTextInIsTen) {
    for (const int32_t base : {0, 7, -2, 258, 272, 10}) {
        Options options;
        options.setDisplayBase(base);
        EXPECT_EQ(TCResultFormatter::sharedInstance().stringValueForResult(result("19").get(), options),
                  u"19")
            << base;
    }
}

TEST(TCResult, TextsOfAValue) {
    EXPECT_EQ(result("1.50")->completeStringValue(), u"1.5");
    EXPECT_TRUE(result("1.0")->isUnity());
    EXPECT_FALSE(result("1.5")->isUnity());
    EXPECT_EQ(result("0.5")->wholeNumberLength(), 1u);
    EXPECT_EQ(result(".5")->wholeNumberLength(), 1u);
    EXPECT_EQ(result("123")->wholeNumberLength(), 3u);
    EXPECT_EQ(result("12345678901234.5")->stringValue(), u"12345678901234.5");
    EXPECT_TRUE(result("1.50")->isEqual(result("1.5").get()));
    EXPECT_FALSE(result("1.5")->isEqual(result("1.51").get()));
    EXPECT_FALSE(result("1.5")->isEqual(TCResult::emptyResult().get()));
}

} // namespace
