#include "KernelValue.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <limits>

namespace {

struct ParseRow {
    const char* text;
    const char* expected;
};

TEST(KernelText, SpellingsOfANumberGiveItsValue) {
    const ParseRow rows[] = {
        {"1e3", "1.0E+3"},
        {"1E3", "1.0E+3"},
        {"+1000.", "1.0E+3"},
        {"1000.0", "1.0E+3"},
        {" \t-12.50", "-1.25E+1"},
        {".5", "5.0E-1"},
        {"-.05e-1", "-5.0E-3"},
        {"000123.4500", "1.2345E+2"},
        {"0.000", "0.0E+0"},
        {"-0", "0.0E+0"},
        {"", "0.0E+0"},
        {"  ", "0.0E+0"},
        {"-", "0.0E+0"},
        {"e5", "0.0E+0"},
        {"7e", "7.0E+0"},
        {"7e+2x", "7.0E+2"},
        {"7e 2", "7.0E+2"},
        {"123456789012345678901234567890", "1.2345678901234567890123456789E+29"},
        {"0.000000000000000000000000000000000000012", "1.2E-38"},
        {"999999999999999999999999999999999999e-18", "9.99999999999999999999999999999999999E+17"},
    };
    for (const ParseRow& row : rows)
        EXPECT_EQ(KernelValue(row.text).text(), row.expected) << '"' << row.text << '"';
}

TEST(KernelText, ATextThatIsNoNumberWarnsThreeTimesAndGivesZero) {
    for (const char* text : {"12a", "1.2.3", "--1", "1 2", "1,5", "00x", "0x10"}) {
        KernelValue value("5");
        testing::internal::CaptureStderr();
        m_apm_set_string(value, text);
        EXPECT_EQ(testing::internal::GetCapturedStderr(),
                  std::string("MAPM Warning: 'm_apm_set_string', Non-digit char found in parse\n"
                              "MAPM Warning: Text =\nMAPM Warning: ") +
                      text + "\n");
        EXPECT_EQ(m_apm_sign(value), 0) << text;
    }
}

TEST(KernelText, HugeExponentsSaturate) {
    for (const char* text : {"1e999999999999", "9.99e2147483647", "-1e99999999999999999999999999999999"}) {
        const KernelValue value(text);
        EXPECT_EQ(m_apm_is_saturated(value), 1) << text;
        EXPECT_GT(m_apm_exponent(value), 2'147'483'000) << text;
    }
    const KernelValue tiny("1e-999999999999");
    EXPECT_EQ(m_apm_is_saturated(tiny), 1);
    EXPECT_LT(m_apm_exponent(tiny), -2'147'483'000);
    EXPECT_EQ(m_apm_is_saturated(KernelValue("1e2000000000")), 0);
}

struct PlainRow {
    const char* value;
    int places;
    const char* expected;
};

TEST(KernelText, PlainTextRoundsAtTheDecimalPlace) {
    const PlainRow rows[] = {
        {"0", 2, "0.00"},
        {"0", -1, "0.0"},
        {"0", 0, "0"},
        {"2.5", 0, "3"},
        {"-2.5", 0, "-3"},
        {"0.4", 0, "0"},
        {"-0.4", 0, "0"},
        {"0.5", 0, "1"},
        {"99.5", 0, "100"},
        {"1.005", 2, "1.01"},
        {"0.005", 2, "0.01"},
        {"0.0049", 2, "0.00"},
        {"0.0005", 2, "0.00"},
        {"-0.005", 2, "-0.01"},
        {"0.05", -1, "0.05"},
        {"12", -1, "12.0"},
        {"1e20", -1, "100000000000000000000.0"},
        {"1e-20", -1, "0.00000000000000000001"},
        {"123.456", 5, "123.45600"},
        {"999999999999999999.99", 1, "1000000000000000000.0"},
    };
    for (const PlainRow& row : rows)
        EXPECT_EQ(KernelValue(row.value).plain(row.places), row.expected)
            << row.value << " at " << row.places;
}

TEST(KernelText, ScientificTextRoundsToPlaces) {
    const PlainRow rows[] = {
        {"0", -1, "0.0E+0"},  {"0", 3, "0.000E+0"},      {"1", -1, "1.0E+0"},     {"1.5", 0, "2.E+0"},
        {"1", 3, "1.000E+0"}, {"-9.996", 2, "-1.00E+1"}, {"0.0123", 1, "1.2E-2"}, {"1e100", 2, "1.00E+100"},
    };
    for (const PlainRow& row : rows) {
        char buffer[64];
        m_apm_to_string(buffer, row.places, KernelValue(row.value));
        EXPECT_STREQ(buffer, row.expected) << row.value << " at " << row.places;
    }
}

TEST(KernelText, IntegerTextCutsTowardZero) {
    const ParseRow rows[] = {
        {"-0.9", "0"}, {"-1.9", "-1"}, {"1.99", "1"}, {"0", "0"}, {"1e20", "100000000000000000000"}};
    for (const ParseRow& row : rows)
        EXPECT_EQ(KernelValue(row.text).integer(), row.expected) << row.text;
}

struct GroupedRow {
    const char* value;
    int places;
    char radix;
    char separator;
    int group;
    const char* expected;
};

TEST(KernelText, GroupedTextSeparatesFromTheRightAndSignsOnlyWhatIsNotZero) {
    const GroupedRow rows[] = {
        {"1234567.891", 2, '.', ',', 3, "1,234,567.89"},
        {"-1234567.891", 2, ',', '.', 3, "-1.234.567,89"},
        {"-0.001", 2, '.', ',', 3, "0.00"},
        {"123", 1, ',', '.', 3, "123,0"},
        {"1234", 0, '.', ',', 3, "1,234"},
        {"123456", -1, '.', ',', 0, "123456.0"},
        {"123456", -1, '.', '\0', 3, "123456.0"},
        {"-999999.5", 0, '.', ' ', 3, "-1 000 000"},
        {"12345678", 1, '.', '\'', 4, "1234'5678.0"},
        {"0", 2, ',', '.', 3, "0,00"},
    };
    for (const GroupedRow& row : rows) {
        const KernelValue value(row.value);
        char buffer[64];
        m_apm_to_fixpt_stringex(buffer, row.places, value, row.radix, row.separator, row.group);
        EXPECT_STREQ(buffer, row.expected) << row.value;
        char* const made = m_apm_to_fixpt_stringexp(row.places, value, row.radix, row.separator, row.group);
        EXPECT_STREQ(made, row.expected) << row.value;
        std::free(made);
    }
}

TEST(KernelText, DoublesKeepFifteenDigits) {
    struct {
        double value;
        const char* expected;
    } const rows[] = {
        {0.1, "1.0E-1"}, {-2.5e300, "-2.5E+300"}, {1.0 / 3.0, "3.33333333333333E-1"}, {0.0, "0.0E+0"}};
    for (const auto& row : rows) {
        const KernelValue value;
        m_apm_set_double(value, row.value);
        EXPECT_EQ(value.text(), row.expected);
    }
    for (const double bad :
         {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity()}) {
        const KernelValue value("1");
        testing::internal::CaptureStderr();
        m_apm_set_double(value, bad);
        EXPECT_EQ(testing::internal::GetCapturedStderr(),
                  "MAPM Warning: 'm_apm_set_double', Invalid double input (likely a NAN or +/- INF)\n");
        EXPECT_EQ(m_apm_sign(value), 0);
    }
}

TEST(KernelText, LongsAreExact) {
    const KernelValue value;
    m_apm_set_long(value, std::numeric_limits<long>::min());
    EXPECT_EQ(value.integer(), "-9223372036854775808");
    m_apm_set_long(value, 1'000'000'000'000'000'000L);
    EXPECT_EQ(value.text(), "1.0E+18");
}

} // namespace
