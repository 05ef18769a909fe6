#include "KernelValue.h"

#include <gtest/gtest.h>

namespace {

using Placed = void (*)(M_APM, int, M_APM_const);

struct FunctionRow {
    const char* name;
    Placed function;
    int places;
    const char* argument;
    const char* expected;
};

TEST(KernelFunctions, SpecialArgumentsHaveExactResults) {
    const FunctionRow rows[] = {
        {"sqrt", m_apm_sqrt, 100, "0", "0.0E+0"},
        {"sqrt", m_apm_sqrt, 100, "1e2000000000", "1.0E+1000000000"},
        {"sqrt", m_apm_sqrt, 100, "0.0625", "2.5E-1"},
        {"sqrt", m_apm_sqrt, 0, "6.25", "3.0E+0"},
        {"cbrt", m_apm_cbrt, 100, "-27", "-3.0E+0"},
        {"cbrt", m_apm_cbrt, 0, "15.625", "3.0E+0"},
        {"cbrt", m_apm_cbrt, 100, "1e-300", "1.0E-100"},
        {"exp", m_apm_exp, 100, "0", "1.0E+0"},
        {"exp", m_apm_exp, 100, "1e-2000000000", "1.0E+0"},
        {"exp", m_apm_exp, 100, "-1e-2000000000", "1.0E+0"},
        {"log", m_apm_log, 100, "1", "0.0E+0"},
        {"log10", m_apm_log10, 100, "1000", "3.0E+0"},
        {"log10", m_apm_log10, 100, "1e-2000000000", "-2.0E+9"},
        {"sin", m_apm_sin, 100, "0", "0.0E+0"},
        {"sin", m_apm_sin, 100, "1e-2000000000", "1.0E-2000000000"},
        {"cos", m_apm_cos, 100, "0", "1.0E+0"},
        {"cos", m_apm_cos, 100, "1e-2000000000", "1.0E+0"},
        {"tan", m_apm_tan, 100, "0", "0.0E+0"},
        {"arcsin", m_apm_arcsin, 100, "0", "0.0E+0"},
        {"arccos", m_apm_arccos, 100, "1", "0.0E+0"},
        {"arctan", m_apm_arctan, 100, "1e-2000000000", "1.0E-2000000000"},
        {"sinh", m_apm_sinh, 100, "1e-200", "1.0E-200"},
        {"cosh", m_apm_cosh, 100, "0", "1.0E+0"},
        {"tanh", m_apm_tanh, 100, "-1e50", "-1.0E+0"},
        {"arcsinh", m_apm_arcsinh, 100, "-1e-200", "-1.0E-200"},
        {"arccosh", m_apm_arccosh, 100, "1", "0.0E+0"},
        {"arctanh", m_apm_arctanh, 100, "0", "0.0E+0"},
    };
    for (const FunctionRow& row : rows) {
        const KernelValue r;
        row.function(r, row.places, KernelValue(row.argument));
        EXPECT_EQ(r.text(), row.expected) << row.name << ' ' << row.argument;
    }
}

TEST(KernelFunctions, AnglesOfRightAnglesArePiOfThatLength) {
    const KernelValue expected;
    const KernelValue r;
    m_apm_round(expected, 100, MM_HALF_PI);
    m_apm_arcsin(r, 100, KernelValue("1"));
    EXPECT_EQ(r.text(), expected.text());
    m_apm_arccos(r, 100, KernelValue("0"));
    EXPECT_EQ(r.text(), expected.text());
    m_apm_arctan(r, 100, KernelValue("1e2000000000"));
    EXPECT_EQ(r.text(), expected.text());
    m_apm_arctan2(r, 100, KernelValue("5"), KernelValue("0"));
    EXPECT_EQ(r.text(), expected.text());
    m_apm_round(expected, 100, MM_PI);
    m_apm_arccos(r, 100, KernelValue("-1"));
    EXPECT_EQ(r.text(), expected.text());
    m_apm_arctan2(r, 100, KernelValue("0"), KernelValue("-3"));
    EXPECT_EQ(r.text(), expected.text());
    m_apm_arctan2(r, 100, KernelValue("0"), KernelValue("3"));
    EXPECT_EQ(m_apm_sign(r), 0);
}

TEST(KernelFunctions, NearAMultipleOfPiTheDigitsStayRight) {
    // sin(pi + d) = -d for a tiny d: what pi's next digits, 8214808651328230664, miss to 10.
    const KernelValue angle;
    const KernelValue r;
    m_apm_round(angle, 100, MM_PI);
    m_apm_sin(r, 100, angle);
    EXPECT_EQ(m_apm_exponent(r), -101);
    EXPECT_EQ(m_apm_significant_digits(r), 101);
    EXPECT_EQ(r.text().substr(0, 20), "-1.78519134867176933");
}

TEST(KernelFunctions, Powers) {
    struct {
        const char* a;
        const char* b;
        int places;
        const char* expected;
    } const rows[] = {
        {"0", "0", 10, "1.0E+0"},
        {"0", "5", 10, "0.0E+0"},
        {"0", "-5", 10, "0.0E+0"},
        {"2", "10", 10, "1.024E+3"},
        {"2", "-2", 10, "2.5E-1"},
        {"-2", "3", 10, "-8.0E+0"},
        {"2.25", "0.5", 0, "2.0E+0"},
        {"4", "0.5", 100, "2.0E+0"},
        {"10", "9999999", 5, "1.0E+9999999"},
        {"1", "123456789", 5, "1.0E+0"},
        {"1024", "0.1", 80, "2.0E+0"},
        {"1.00000001", "100000000", 5, "2.71828E+0"},
    };
    for (const auto& row : rows) {
        const KernelValue r;
        m_apm_pow(r, row.places, KernelValue(row.a), KernelValue(row.b));
        EXPECT_EQ(r.text(), row.expected) << row.a << " ^ " << row.b;
    }
}

TEST(KernelFunctions, ExactPowersHaveEveryDigit) {
    const KernelValue r;
    m_apm_integer_pow_nr(r, KernelValue("2"), 200);
    EXPECT_EQ(r.integer(), "1606938044258990275541962092341162602522202993782792835301376");
    m_apm_integer_pow_nr(r, KernelValue("-0.1"), 3);
    EXPECT_EQ(r.text(), "-1.0E-3");
    m_apm_integer_pow_nr(r, KernelValue("7"), 0);
    EXPECT_EQ(r.text(), "1.0E+0");
}

struct WarningRow {
    const char* message;
    void (*call)(M_APM);
};

TEST(KernelFunctions, BadArgumentsWarnAndGiveZero) {
    const WarningRow rows[] = {
        {"'m_apm_divide', Divide by 0", [](M_APM r) { m_apm_divide(r, 10, MM_One, MM_Zero); }},
        {"'M_apm_sdivide', Divide by 0", [](M_APM r) { m_apm_integer_divide(r, MM_One, MM_Zero); }},
        {"'m_apm_reciprocal', Input = 0", [](M_APM r) { m_apm_reciprocal(r, 10, MM_Zero); }},
        {"'m_apm_log', Negative argument", [](M_APM r) { m_apm_log(r, 10, KernelValue("-1")); }},
        {"'m_apm_log', Negative argument", [](M_APM r) { m_apm_log10(r, 10, MM_Zero); }},
        {"'m_apm_sqrt', Negative argument", [](M_APM r) { m_apm_sqrt(r, 10, KernelValue("-1")); }},
        {"'m_apm_exp', Input too large, Overflow", [](M_APM r) { m_apm_exp(r, 10, KernelValue("1e10")); }},
        {"'m_apm_exp', Input too large, Overflow", [](M_APM r) { m_apm_exp(r, 10, KernelValue("-1.5e9")); }},
        {"'m_apm_exp', Input too large, Overflow",
         [](M_APM r) { m_apm_pow(r, 10, MM_Ten, KernelValue("1e2000000000")); }},
        {"'m_apm_arcsin', |Argument| > 1", [](M_APM r) { m_apm_arcsin(r, 10, MM_Two); }},
        {"'m_apm_arccos', |Argument| > 1", [](M_APM r) { m_apm_arccos(r, 10, KernelValue("-1.0001")); }},
        {"'m_apm_arctan2', Both Inputs = 0", [](M_APM r) { m_apm_arctan2(r, 10, MM_Zero, MM_Zero); }},
        {"'m_apm_arccosh', Argument < 1", [](M_APM r) { m_apm_arccosh(r, 10, MM_0_5); }},
        {"'m_apm_arctanh', |Argument| >= 1", [](M_APM r) { m_apm_arctanh(r, 10, MM_One); }},
        {"'m_apm_integer_pow_nr', Negative exponent", [](M_APM r) { m_apm_integer_pow_nr(r, MM_Two, -1); }},
    };
    for (const WarningRow& row : rows) {
        const KernelValue r("5");
        testing::internal::CaptureStderr();
        row.call(r);
        EXPECT_EQ(testing::internal::GetCapturedStderr(), std::string("MAPM Warning: ") + row.message + "\n");
        EXPECT_EQ(m_apm_sign(r), 0) << row.message;
    }
}

TEST(KernelFunctions, RemainderOfADivisionByZeroIsTheDividend) {
    const KernelValue quotient("5");
    const KernelValue remainder;
    testing::internal::CaptureStderr();
    m_apm_integer_div_rem(quotient, remainder, KernelValue("7.5"), MM_Zero);
    testing::internal::GetCapturedStderr();
    EXPECT_EQ(m_apm_sign(quotient), 0);
    EXPECT_EQ(remainder.text(), "7.5E+0");
}

TEST(KernelFunctions, ANegativeBaseWithAFractionWarnsAndGivesOne) {
    const KernelValue r;
    testing::internal::CaptureStderr();
    m_apm_pow(r, 10, KernelValue("-8"), KernelValue("1.5"));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "MAPM Warning: 'm_apm_log', Negative argument\n");
    EXPECT_EQ(r.text(), "1.0E+0");
}

TEST(KernelFunctions, LawsHoldAtGreatLengths) {
    const KernelValue x("0.7391");
    const KernelValue a;
    const KernelValue b;
    const KernelValue r;
    for (const int places : {50, 300, 1500}) {
        m_apm_exp(a, places + 10, x);
        m_apm_log(b, places + 10, a);
        m_apm_round(r, places, b);
        EXPECT_EQ(r.text(), x.text()) << "ln e^x at " << places;
        m_apm_tan(a, places + 10, x);
        m_apm_arctan(b, places + 10, a);
        m_apm_round(r, places, b);
        EXPECT_EQ(r.text(), x.text()) << "arctan tan x at " << places;
        m_apm_sin_cos(a, b, places + 10, x);
        m_apm_multiply(a, a, a);
        m_apm_multiply(b, b, b);
        m_apm_add(r, a, b);
        m_apm_round(r, places, r);
        EXPECT_EQ(r.text(), "1.0E+0") << "squares of sine and cosine at " << places;
    }
}

} // namespace
