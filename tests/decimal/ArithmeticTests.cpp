#include "KernelValue.h"

#include <gtest/gtest.h>

namespace {

struct BinaryRow {
    const char* a;
    const char* b;
    const char* expected;
};

using Binary = void (*)(M_APM, M_APM_const, M_APM_const);

// Results may be the same object as an operand: each row is run three ways.
void expectBinary(Binary operation, std::initializer_list<BinaryRow> rows) {
    for (const BinaryRow& row : rows) {
        const KernelValue a(row.a);
        const KernelValue b(row.b);
        const KernelValue r("17");
        operation(r, a, b);
        EXPECT_EQ(r.text(), row.expected) << row.a << ' ' << row.b;
        const KernelValue overA(row.a);
        operation(overA, overA, b);
        EXPECT_EQ(overA.text(), row.expected) << row.a << ' ' << row.b << " over the first";
        const KernelValue overB(row.b);
        operation(overB, a, overB);
        EXPECT_EQ(overB.text(), row.expected) << row.a << ' ' << row.b << " over the second";
    }
}

TEST(KernelArithmetic, SumsAreExact) {
    expectBinary(m_apm_add, {{"99", "1", "1.0E+2"},
                             {"1", "-1", "0.0E+0"},
                             {"1e30", "1", "1.000000000000000000000000000001E+30"},
                             {"999999999999999999", "1", "1.0E+18"},
                             {"-5", "3", "-2.0E+0"},
                             {"3", "-5", "-2.0E+0"},
                             {"0", "-5", "-5.0E+0"},
                             {"1e-40", "-1e-40", "0.0E+0"},
                             {"0.5", "0.5", "1.0E+0"}});
    expectBinary(m_apm_subtract, {{"1e36", "1", "9.99999999999999999999999999999999999E+35"},
                                  {"0", "7", "-7.0E+0"},
                                  {"1.1", "1.1", "0.0E+0"},
                                  {"-1", "-3", "2.0E+0"}});
}

TEST(KernelArithmetic, ProductsAreExact) {
    expectBinary(m_apm_multiply,
                 {{"99", "99", "9.801E+3"},
                  {"-0.5", "4", "-2.0E+0"},
                  {"0", "-4", "0.0E+0"},
                  {"999999999999999999", "999999999999999999", "9.99999999999999998000000000000000001E+35"},
                  {"1e1000000000", "1e-1000000000", "1.0E+0"}});
}

TEST(KernelArithmetic, ExponentsBeyondTheRangeSaturate) {
    const KernelValue a("3e2000000000");
    const KernelValue r;
    m_apm_multiply(r, a, a);
    EXPECT_EQ(m_apm_is_saturated(r), 1);
    EXPECT_EQ(m_apm_sign(r), 1);
    for (int i = 0; i < 70; ++i)
        m_apm_multiply(r, r, a);
    EXPECT_EQ(m_apm_is_saturated(r), 1);
    m_apm_reciprocal(r, 10, r);
    m_apm_multiply(r, r, r);
    EXPECT_EQ(m_apm_is_saturated(r), 1);
    EXPECT_LT(m_apm_exponent(r), -2'000'000'000);
}

struct DivideRow {
    const char* a;
    const char* b;
    int places;
    const char* expected;
};

TEST(KernelArithmetic, QuotientsAreCut) {
    const DivideRow rows[] = {
        {"1", "3", 3, "3.333E-1"},
        {"2", "3", 3, "6.666E-1"},
        {"-2", "3", 3, "-6.666E-1"},
        {"1000", "3", 0, "3.333E+2"},
        {"1", "4", 50, "2.5E-1"},
        {"3", "1000", 2, "3.0E-3"},
        {"0", "5", 3, "0.0E+0"},
        {"1e40", "1e40", 0, "1.0E+0"},
        {"9", "9.0000000001", 3, "9.999E-1"},
        {"1e1000000000", "4", 3, "2.5E+999999999"},
    };
    for (const DivideRow& row : rows) {
        const KernelValue r;
        m_apm_divide(r, row.places, KernelValue(row.a), KernelValue(row.b));
        EXPECT_EQ(r.text(), row.expected) << row.a << " / " << row.b << " at " << row.places;
    }
}

TEST(KernelArithmetic, QuotientsBeyond249PlacesAreRounded) {
    for (const int places : {248, 249, 250, 400, 3000}) {
        const KernelValue r;
        m_apm_divide(r, places, KernelValue("2"), KernelValue("3"));
        const std::string text = r.plain(-1);
        EXPECT_EQ(text.size(), static_cast<std::size_t>(places) + 3);
        EXPECT_EQ(text.back(), places <= 249 ? '6' : '7') << places;
    }
    const KernelValue r;
    m_apm_reciprocal(r, 3, KernelValue("1.5"));
    EXPECT_EQ(r.text(), "6.667E-1");
}

struct DivRemRow {
    const char* a;
    const char* b;
    const char* quotient;
    const char* remainder;
};

TEST(KernelArithmetic, IntegerDivisionCutsAndTheRemainderTakesTheSignOfTheDividend) {
    const DivRemRow rows[] = {
        {"7", "2", "3.0E+0", "1.0E+0"},
        {"-7", "2", "-3.0E+0", "-1.0E+0"},
        {"7", "-2", "-3.0E+0", "1.0E+0"},
        {"-7", "-2", "3.0E+0", "-1.0E+0"},
        {"1", "7", "0.0E+0", "1.0E+0"},
        {"5.5", "0.25", "2.2E+1", "0.0E+0"},
        {"1e30", "7", "1.42857142857142857142857142857E+29", "1.0E+0"},
    };
    for (const DivRemRow& row : rows) {
        const KernelValue quotient;
        const KernelValue remainder;
        m_apm_integer_div_rem(quotient, remainder, KernelValue(row.a), KernelValue(row.b));
        EXPECT_EQ(quotient.text(), row.quotient) << row.a << " by " << row.b;
        EXPECT_EQ(remainder.text(), row.remainder) << row.a << " by " << row.b;
    }
}

struct RoundRow {
    const char* value;
    int places;
    const char* expected;
};

TEST(KernelArithmetic, RoundingIsHalfAwayFromZero) {
    const RoundRow rows[] = {
        {"1.5", 0, "2.0E+0"},
        {"-1.5", 0, "-2.0E+0"},
        {"2.5", 0, "3.0E+0"},
        {"2.4999", 0, "2.0E+0"},
        {"9.99", 1, "1.0E+1"},
        {"123456", 2, "1.23E+5"},
        {"0.00012355", 3, "1.236E-4"},
        {"1.25", 5, "1.25E+0"},
        {"999999999999999999999999999999999999.5", 35, "1.0E+36"},
        {"1000000000000000000.5", 17, "1.0E+18"},
        {"1500000000000000000", 0, "2.0E+18"},
    };
    for (const RoundRow& row : rows) {
        const KernelValue r;
        m_apm_round(r, row.places, KernelValue(row.value));
        EXPECT_EQ(r.text(), row.expected) << row.value << " at " << row.places;
    }
}

TEST(KernelArithmetic, FloorAndCeilingGoTheirWays) {
    struct {
        const char* value;
        const char* floor;
        const char* ceil;
    } const rows[] = {
        {"1.5", "1.0E+0", "2.0E+0"},    {"-1.5", "-2.0E+0", "-1.0E+0"},
        {"3", "3.0E+0", "3.0E+0"},      {"0", "0.0E+0", "0.0E+0"},
        {"-0.1", "-1.0E+0", "0.0E+0"},  {"1e-2000000000", "0.0E+0", "1.0E+0"},
        {"1e30", "1.0E+30", "1.0E+30"}, {"999999999999999999.5", "9.99999999999999999E+17", "1.0E+18"}};
    for (const auto& row : rows) {
        const KernelValue value(row.value);
        const KernelValue r;
        m_apm_floor(r, value);
        EXPECT_EQ(r.text(), row.floor) << row.value;
        m_apm_ceil(r, value);
        EXPECT_EQ(r.text(), row.ceil) << row.value;
    }
}

TEST(KernelArithmetic, ComparisonsFollowTheValues) {
    const char* const ordered[] = {"-1e2000000000", "-1e30", "-1.5", "-1",  "-1e-30", "0",
                                   "1e-2000000000", "0.1",   "1",    "1.5", "1e18",   "1000000000000000001"};
    for (std::size_t i = 0; i < std::size(ordered); ++i) {
        for (std::size_t k = 0; k < std::size(ordered); ++k) {
            const int expected = i < k ? -1 : (i > k ? 1 : 0);
            EXPECT_EQ(m_apm_compare(KernelValue(ordered[i]), KernelValue(ordered[k])), expected)
                << ordered[i] << ' ' << ordered[k];
        }
    }
}

TEST(KernelArithmetic, QueriesReadTheNormalForm) {
    struct {
        const char* value;
        int exponent;
        int digits;
        int isInteger;
    } const rows[] = {{"0", 0, 1, 1},       {"1", 0, 1, 1},
                      {"1.0E5", 5, 1, 1},   {"0.05", -2, 1, 0},
                      {"12345.6", 4, 6, 0}, {"1e18", 18, 1, 1},
                      {"1e-18", -18, 1, 0}, {"100200", 5, 4, 1},
                      {"-7.5", 0, 2, 0},    {"1000000000000000000000000000001", 30, 31, 1}};
    for (const auto& row : rows) {
        const KernelValue value(row.value);
        EXPECT_EQ(m_apm_exponent(value), row.exponent) << row.value;
        EXPECT_EQ(m_apm_significant_digits(value), row.digits) << row.value;
        EXPECT_EQ(m_apm_is_integer(value), row.isInteger) << row.value;
    }
}

TEST(KernelArithmetic, ParityOfIntegers) {
    for (const char* even : {"0", "2", "-4", "1e18", "1e1000000", "123456789012345678901234567890"}) {
        EXPECT_EQ(m_apm_is_even(KernelValue(even)), 1) << even;
        EXPECT_EQ(m_apm_is_odd(KernelValue(even)), 0) << even;
    }
    for (const char* odd : {"1", "-3", "1000000000000000000000001"})
        EXPECT_EQ(m_apm_is_odd(KernelValue(odd)), 1) << odd;
    testing::internal::CaptureStderr();
    EXPECT_EQ(m_apm_is_even(KernelValue("0.5")), 0);
    EXPECT_EQ(m_apm_is_odd(KernelValue("0.5")), 1);
    const std::string warning = "MAPM Warning: 'm_apm_is_even', Non-integer input\n";
    EXPECT_EQ(testing::internal::GetCapturedStderr(), warning + warning);
}

TEST(KernelArithmetic, Factorials) {
    struct {
        const char* value;
        const char* expected;
    } const rows[] = {{"-3", "1.0E+0"}, {"0", "1.0E+0"},    {"1", "1.0E+0"},
                      {"2", "2.0E+0"},  {"2.5", "3.75E+0"}, {"20", "2.43290200817664E+18"}};
    for (const auto& row : rows) {
        const KernelValue r;
        m_apm_factorial(r, KernelValue(row.value));
        EXPECT_EQ(r.text(), row.expected) << row.value;
    }
    // n! / (n - 1)! = n for a size that takes every multiplication there is.
    const KernelValue big;
    const KernelValue less;
    const KernelValue quotient;
    const KernelValue remainder;
    m_apm_factorial(big, KernelValue("20000"));
    m_apm_factorial(less, KernelValue("19999"));
    m_apm_integer_div_rem(quotient, remainder, big, less);
    EXPECT_EQ(quotient.text(), "2.0E+4");
    EXPECT_EQ(m_apm_sign(remainder), 0);
    EXPECT_EQ(m_apm_exponent(big), 77337);
}

TEST(KernelArithmetic, BoundsAreAtLeastTheTrueLengths) {
    const char* const values[] = {"0", "1", "-7.25", "1e50", "9999999", "1.5e-40", "123456789.123456789"};
    for (const char* first : values) {
        for (const char* second : values) {
            const KernelValue a(first);
            const KernelValue b(second);
            const KernelValue r;
            m_apm_add(r, a, b);
            EXPECT_GE(m_apm_sum_digit_bound(a, b), m_apm_significant_digits(r)) << first << ' ' << second;
            m_apm_multiply(r, a, b);
            EXPECT_GE(m_apm_product_digit_bound(a, b), m_apm_significant_digits(r)) << first << ' ' << second;
            if (m_apm_sign(b) == 0) continue;
            m_apm_divide(r, 60, a, b);
            EXPECT_GE(m_apm_quotient_digit_bound(60, a, b), m_apm_significant_digits(r))
                << first << ' ' << second;
        }
        const KernelValue a(first);
        const KernelValue power;
        m_apm_integer_pow_nr(power, a, 9);
        EXPECT_GE(m_apm_power_digit_bound(a, 9), m_apm_significant_digits(power)) << first;
    }
    EXPECT_EQ(m_apm_sum_digit_bound(KernelValue("1e1000000"), KernelValue("1")), 1000002);
    EXPECT_NEAR(static_cast<double>(m_apm_factorial_digit_bound(KernelValue("20000"))), 77338.0, 3.0);
    EXPECT_GT(m_apm_factorial_digit_bound(KernelValue("999999999999")), 10'000'000'000'000);
    EXPECT_EQ(m_apm_factorial_digit_bound(KernelValue("1e400")), INT64_MAX);
}

} // namespace
