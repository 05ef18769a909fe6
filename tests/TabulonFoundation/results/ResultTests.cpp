#include "results/Result.h"

#include "eval/EvaluationTestSupport.h"
#include "results/Result.h"
#include "results/ResultParts.h"
#include "runtime/String.h"

#include <gtest/gtest.h>

#include <string>

using namespace TBF;

namespace {

Ref<Result> result(std::string_view text) {
    evaltest::startFoundation();
    return Result::create(text);
}

TEST(Result, CompleteStringDropsIdleZeros) {
    struct Row {
        const char* text;
        const char* expected;
    };
    constexpr Row rows[] = {
        {"1.500", "1.5"}, {"1.000", "1"}, {"100", "100"}, {"1.", "1"}, {".500", ".500"}, {"", ""},
    };
    for (const Row& row : rows)
        EXPECT_EQ(result(row.text)->completeString()->utf8(), row.expected) << row.text;
}

TEST(Result, EqualityLooksAtTheValueAtTheLargerPrecision) {
    const auto differ = [](std::string_view a, std::string_view b, int32_t precision) {
        const auto first = result(a);
        first->setPrecision(precision);
        return !first->isEqualTo(*result(b));
    };
    EXPECT_FALSE(differ("1.50", "1.5", -1));
    EXPECT_TRUE(differ("1.501", "1.502", -1));
    EXPECT_FALSE(differ("1.501", "1.502", 2));
    EXPECT_TRUE(differ("1", "", -1));

    const auto failed = Result::create(), alsoFailed = Result::create();
    failed->setEvaluationError(TBFEvaluationErrorDivideByZero);
    EXPECT_FALSE(failed->isEqualTo(*alsoFailed));
    EXPECT_FALSE(failed->isEqualTo(*result("1")));
    alsoFailed->setEvaluationError(TBFEvaluationErrorDivideByZero);
    EXPECT_TRUE(failed->isEqualTo(*alsoFailed));
}

// A number with a digit repeated behind it.
std::string withDigits(std::string text, std::size_t count, char digit) {
    text.append(count, digit);
    return text;
}

std::string sexagesimal(std::string_view text, int32_t places, bool trailingZeros = false) {
    const auto parts = degreesMinutesSeconds(*result(text), places, trailingZeros, 3);
    return parts ? parts->degrees + ' ' + parts->minutes + ' ' + parts->seconds : "none";
}

TEST(Result, SplitsIntoDegreesMinutesAndSeconds) {
    EXPECT_EQ(sexagesimal("1234.5", 2), "1,234 30 0");
    EXPECT_EQ(sexagesimal("1234.5", 2, true), "1,234 30 0.00");
    EXPECT_EQ(sexagesimal("-1234567.5125", 2), "-1,234,567 30 45");
    EXPECT_EQ(sexagesimal("-0.5", 2), "0 30 0");                                // the sign has no place
    EXPECT_EQ(sexagesimal("0.016666638888888888888888", 2, true), "0 0 60.00"); // no carry
    EXPECT_EQ(sexagesimal("9999999999", 2), "9,999,999,999 0 0");
    EXPECT_EQ(sexagesimal("10000000000", 2), "none");
    EXPECT_EQ(sexagesimal("", 2), "none");
    EXPECT_EQ(sexagesimal(withDigits("1.5", 1021, '0'), 0), "1 30 0");
    EXPECT_EQ(sexagesimal(withDigits("1.5", 1022, '0'), 0), "none");
}

std::string fraction(std::string_view text, bool mixed) {
    const auto parts = fractionOf(*result(text), mixed);
    if (!parts) return "none";
    return (parts->whole ? *parts->whole + ' ' : "") + parts->numerator + '/' + parts->denominator;
}

TEST(Result, FindsFractions) {
    struct Row {
        std::string text;
        bool mixed;
        const char* expected;
    };
    const std::string pi =
        "3.1415926535897932384626433832795028841971693993751058209749445923078164062862089986280"
        "348253421170679";
    const std::string rootOfTwo =
        "1.41421356237309504880168872420969807856967187537694807317667973799073247846210"
        "70388503875343276415727";
    const Row rows[] = {
        {"0.5", false, "1/2"},
        {withDigits("0.", 100, '3'), false, "1/3"},
        {withDigits("-0.", 100, '3'), false, "-1/3"},
        {withDigits("-0.", 99, '6') + "7", false, "-2/3"},
        {"1.5", true, "1 1/2"},
        {"1.5", false, "3/2"},
        {"-1.5", true, "-1 1/2"},
        {"-1.5", false, "-3/2"},
        {"-0.25", true, "-1/4"},
        {pi, false, "1783366216531/567663097408"},
        {rootOfTwo, false, "none"},
        {"5", true, "none"},
        {"", true, "none"},
        {withDigits("0.", 254, '3'), false, "1/3"},
        {withDigits("0.", 255, '3'), false, "none"}, // too long a text
    };
    for (const Row& row : rows)
        EXPECT_EQ(fraction(row.text, row.mixed), row.expected) << row.text;
}

} // namespace
