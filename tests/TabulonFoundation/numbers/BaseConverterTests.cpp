#include "numbers/BaseConverter.h"
#include "runtime/String.h"
#include "runtime/TBFLog.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <random>
#include <string>

namespace {

using namespace TBF;

TEST(BaseConverter, readsPrefixedLiterals) {
    const struct {
        const char* literal;
        const char* decimal;
    } rows[] = {
        {"0xff", "255"},
        {"0xFF", "255"},
        {"0b101", "5"},
        {"0x", "0"},
        {"0b102", "6"},  // digits aren't tested against the base
        {"0x1.F", "15"}, // the longest run of digits from the right
        {"0xFFFFFFFFFFFFFFF", "1152921504606846975"},
        {"0xFFFFFFFFFFFFFFFF", "18446744073709551615"},
        {"0x100000000000000000000000000000001", "340282366920938463463374607431768211457"},
        {"0b11111111111111111111111111111111111111111111111111111111111111111", "36893488147419103231"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(BaseConverter::prefixedToDecimal(row.literal), row.decimal) << row.literal;
    EXPECT_EQ(BaseConverter::prefixedToDecimal("0X1"), std::nullopt);
    EXPECT_TRUE(BaseConverter::isPrefixed("0b1"));
    EXPECT_FALSE(BaseConverter::isPrefixed("0B1"));
}

TEST(BaseConverter, writesTheWholePartWithSignAndPrefix) {
    const struct {
        const char* decimal;
        uint8_t base;
        bool prefix;
        const char* text;
    } rows[] = {
        {"255", 16, true, "0xFF"}, {"255", 16, false, "FF"},
        {"5", 2, false, "101"},    {"0", 2, true, "0b0"},
        {"0", 16, false, "0"},     {"-255", 16, true, "-0xFF"},
        {"-10", 16, true, "-0xA"}, {"2.5", 2, false, "10"},
        {"16", 16, false, "10"},   {"18446744073709551616", 16, true, "0x10000000000000000"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(BaseConverter::fromDecimal(row.decimal, row.base, row.prefix), row.text) << row.decimal;
    }
}

TEST(BaseConverter, refusesOtherBasesAndLongTexts) {
    EXPECT_EQ(BaseConverter::fromDecimal("5", 8, false), std::nullopt);
    TBFErrorLogSetEnabled(1);
    testing::internal::CaptureStderr();
    EXPECT_EQ(BaseConverter::fromDecimal("5", 8, false), std::nullopt);
    TBFErrorLogSetEnabled(0);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "error: can't convert to base 8. only bases 2, 16 are supported.\n");
    EXPECT_TRUE(BaseConverter::fromDecimal(std::string(500, '9'), 2, false));
    EXPECT_EQ(BaseConverter::fromDecimal(std::string(501, '9'), 2, false), std::nullopt);
    EXPECT_EQ(BaseConverter::fromDecimal("1e999999999", 16, false), std::nullopt);
}

TEST(BaseConverter, convertingThereAndBackReturns) {
    std::mt19937_64 random(11);
    for (int round = 0; round < 300; ++round) {
        std::string digits(1 + random() % 300, '0');
        for (char& digit : digits)
            digit = "0123456789ABCDEF"[random() % 16];
        digits.front() = 'A';
        const std::string decimal = BaseConverter::convertToDecimal(digits, 16);
        ASSERT_EQ(BaseConverter::fromDecimal(decimal, 16, false), digits);
    }
}

// A literal as long as a line may be.
TEST(BaseConverter, readsAHundredThousandDigits) {
    const std::string decimal = BaseConverter::convertToDecimal("1" + std::string(100'000, '0'), 16);
    EXPECT_EQ(decimal.size(), 120'412u); // 16^100000
    EXPECT_EQ(decimal.substr(decimal.size() - 3), "376");
}

} // namespace
