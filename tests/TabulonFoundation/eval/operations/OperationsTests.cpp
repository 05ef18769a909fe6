#include "eval/EvaluationTestSupport.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <string>

using namespace TBF;
using evaltest::applied;

namespace {

struct Row {
    int line;
    TBFOperatorType operation;
    const char* left;
    const char* right;
    const char* expected;
};

template <std::size_t count>
void expectRows(const Row (&rows)[count]) {
    for (const Row& row : rows) {
        EXPECT_EQ(applied(row.operation, row.left, row.right), row.expected)
            << "row at line " << row.line << ": operator " << row.operation << " of " << row.left << " and "
            << row.right;
    }
}

constexpr auto add = TBFOperatorTypeAdd;
constexpr auto subtract = TBFOperatorTypeSubtract;
constexpr auto multiply = TBFOperatorTypeMultiply;
constexpr auto divide = TBFOperatorTypeDivide;
constexpr auto power = TBFOperatorTypePower;
constexpr auto negate = TBFOperatorTypeUnaryMinus;
constexpr auto plus = TBFOperatorTypeUnaryPlus;
constexpr auto factorial = TBFOperatorTypeFactorial;
constexpr auto e10 = TBFOperatorTypeE10;
constexpr auto percent = TBFOperatorTypePercent;
constexpr auto convert = TBFOperatorTypeUnitConversion;
constexpr auto modulo = TBFOperatorTypeModulo;

TEST(Operations, PercentagesAreSharesOfTheOtherSide) {
    constexpr Row rows[] = {
        {__LINE__, add, "200", "10", "210"},       {__LINE__, add, "200", "10%", "220"},
        {__LINE__, add, "10%", "5%", "15%"},       {__LINE__, add, "10%", "200", "200.1"},
        {__LINE__, subtract, "200", "10", "190"},  {__LINE__, subtract, "200", "10%", "180"},
        {__LINE__, subtract, "10%", "5%", "5%"},   {__LINE__, subtract, "10%", "200", "-199.9"},
        {__LINE__, multiply, "200", "10", "2000"}, {__LINE__, multiply, "200", "10%", "20"},
        {__LINE__, multiply, "10%", "10%", "1%"},  {__LINE__, multiply, "10%", "200", "20"},
        {__LINE__, divide, "50", "10", "5"},       {__LINE__, divide, "50", "10%", "500"},
        {__LINE__, divide, "50%", "10%", "5"},     {__LINE__, divide, "50%", "10", "5%"},
        {__LINE__, power, "4", "50%", "2"},        {__LINE__, power, "50%", "2", "0.25"},
        {__LINE__, negate, "5%", "", "-5%"},       {__LINE__, percent, "5", "", "5%"},
        {__LINE__, percent, "5%", "", "5%"},       {__LINE__, modulo, "350%", "1", "0.5"},
    };
    expectRows(rows);
}

TEST(Operations, UnitsMeetOnCommonGround) {
    constexpr Row rows[] = {
        {__LINE__, add, "1 km", "500 m", "1500 m"},
        {__LINE__, add, "500 m", "1 km", "1.5 km"},
        {__LINE__, add, "5 km", "3", "8 km"},
        {__LINE__, add, "3", "5 km", "8 km"},
        {__LINE__, subtract, "1 km", "10%", "0.9 km"},
        {__LINE__, subtract, "1 m", "1 km", "-0.999 km"},
        {__LINE__, add, "5 kg", "2 m", "error 5"},
        {__LINE__, add, "10% m", "1 m", "11 m"}, // a percentage with a unit is a plain number here
        {__LINE__, multiply, "2 m", "3 m", "6 m*m"},
        {__LINE__, multiply, "2 km", "3 m", "6 km*m"},
        {__LINE__, multiply, "2 m", "3", "6 m"},
        {__LINE__, divide, "6 m", "3 s", "2 m/s"},
        {__LINE__, divide, "6", "3 s", "2 /s"},
        {__LINE__, divide, "6 km", "3 m", "2000"},
        {__LINE__, power, "2 m", "2", "4 m*m"},
        {__LINE__, power, "2 m", "-1", "0.5 /m"},
        {__LINE__, power, "2 m", "200", "error 3"}, // a degree beyond 8 bits
        {__LINE__, negate, "2 m", "", "-2 m"},
        {__LINE__, factorial, "5 m", "", "120 m"},
        {__LINE__, modulo, "7 m", "4", "3 m"},
        {__LINE__, modulo, "7 km", "4 m", "3000"},
        {__LINE__, e10, "2 m", "3", "2000 m"},
    };
    expectRows(rows);
}

TEST(Operations, ConversionTakesOnTheTarget) {
    constexpr Row rows[] = {
        {__LINE__, convert, "5 km", "1 m", "5000 m"},
        {__LINE__, convert, "5", "1 km", "5 km"},
        {__LINE__, convert, "50%", "1 km", "50 km"},
        {__LINE__, convert, "5 m", "1", "error 10"},
        {__LINE__, convert, "5 m", "1 kg", "error 5"},
        {__LINE__, convert, "20 degC", "1 K", "293.15 K"},
        {__LINE__, convert, "0 K", "1 degC", "-273.15 degC"},
        {__LINE__, convert, "5 m/s", "1 km/s", "0.005 km/s"},
        {__LINE__, convert, "4 h/km", "1 km/h", "0.25 km/h"}, // by the reciprocal
        {__LINE__, convert, "0 h/km", "1 km/h", "0 km/h"},
        {__LINE__, convert, "12 m", "0 m", "0 m"},
        {__LINE__, convert, "inf", "1 m", "nan"},
    };
    expectRows(rows);
}

TEST(Operations, SpecialNumbersFollowTheirRules) {
    constexpr Row rows[] = {
        {__LINE__, add, "nan", "5", "5"},
        {__LINE__, add, "5", "nan", "5"},
        {__LINE__, add, "nan", "5%", "5%"},
        {__LINE__, add, "nan", "nan", "nan"},
        {__LINE__, add, "nan", "inf", "nan"},
        {__LINE__, subtract, "5", "nan", "5"},
        {__LINE__, subtract, "nan", "5", "-5"},
        {__LINE__, multiply, "nan", "5", "nan"},
        {__LINE__, divide, "5", "nan", "nan"},
        {__LINE__, add, "inf", "inf", "inf"},
        {__LINE__, add, "inf", "-inf", "nan"},
        {__LINE__, add, "-inf", "5", "nan"}, // a finite number counts as +1
        {__LINE__, add, "inf", "-5", "inf"},
        {__LINE__, subtract, "inf", "inf", "nan"},
        {__LINE__, subtract, "-inf", "inf", "-inf"},
        {__LINE__, multiply, "-inf", "inf", "-inf"},
        {__LINE__, multiply, "-inf", "-inf", "inf"},
        {__LINE__, multiply, "inf", "3 m", "inf"}, // no unit
        {__LINE__, divide, "inf", "0", "nan"},
        {__LINE__, power, "inf", "2", "nan"},
        {__LINE__, e10, "inf", "2", "nan"},
        {__LINE__, e10, "2", "nan", "nan"},
        {__LINE__, modulo, "5", "nan", "5"},
        {__LINE__, modulo, "inf", "5", "inf"},
        {__LINE__, negate, "inf", "", "-inf"},
        {__LINE__, negate, "nan", "", "nan"},
        {__LINE__, factorial, "inf", "", "nan"},
        {__LINE__, percent, "inf", "", "inf"},
        {__LINE__, plus, "nan", "", "nan"},
    };
    expectRows(rows);
}

TEST(Operations, ErrorsAreCodes) {
    constexpr Row rows[] = {
        {__LINE__, divide, "100", "0", "error 9"},
        {__LINE__, divide, "100", "0%", "error 9"},
        {__LINE__, divide, "100 m", "0 s", "error 9"},
        {__LINE__, power, "0", "0", "1"},
        {__LINE__, power, "0", "-1", "error 9"},
        {__LINE__, power, "-8", "0.5", "nan"},
        {__LINE__, power, "-8", "1.5", "nan"},
        {__LINE__, power, "-8", "50%", "nan"},
        {__LINE__, power, "-8", "200%", "64"},
        {__LINE__, power, "-8", "3", "-512"},
        {__LINE__, power, "1", "999999", "1"},
        {__LINE__, power, "1", "1000000", "error 3"},
        {__LINE__, power, "1", "-1000000", "error 3"},
        {__LINE__, e10, "1.5", "3", "1500"},
        {__LINE__, e10, "1", "1000000", "error 3"},
        {__LINE__, e10, "0", "-1", "error 9"},
        {__LINE__, modulo, "5", "0", "5"},
        {__LINE__, modulo, "-7", "4", "-3"},
        {__LINE__, factorial, "0", "", "1"},
        {__LINE__, factorial, "2.5", "", "error 6"},
        {__LINE__, factorial, "-2.5", "", "error 7"},
        {__LINE__, add, "1", "", "error 1"},
        {__LINE__, add, "", "", "error 1"},
        {__LINE__, negate, "", "", "error 1"},
        {__LINE__, negate, "1", "2", "error 2"},
        {__LINE__, TBFOperatorTypeUnitPrefix, "1", "2", "none"},
    };
    expectRows(rows);
}

// Each would take minutes, or all memory, if it were computed.
TEST(Operations, RefusesWhatTakesTooManyDigitsBeforeTheWork) {
    constexpr Row rows[] = {
        {__LINE__, factorial, "999999999999", "", "error 3"},
        {__LINE__, factorial, "1e2000000000", "", "error 3"},
        {__LINE__, add, "1e9999990", "1e-20", "error 3"},
        {__LINE__, add, "1e-2000000000", "1", "error 3"},
        {__LINE__, subtract, "1", "1e-10000001", "error 3"},
        {__LINE__, multiply, "1e6000000", "1e6000000", "error 3"},
        {__LINE__, multiply, "1e-1500000000", "1e-1500000000", "error 3"},
        {__LINE__, divide, "1e9999999", "7", "error 3"},
        {__LINE__, divide, "1e6000000", "1e-6000000", "error 3"},
        {__LINE__, power, "1e999999", "11", "error 3"},
        {__LINE__, power, "1e999999", "-999999", "error 3"},
        {__LINE__, power, "9e99", "999999.5", "error 3"},
        {__LINE__, modulo, "1e9000000", "1e-9000000", "error 3"},
        {__LINE__, modulo, "1e-9000000", "1e9000000", "error 3"},
        {__LINE__, e10, "1e9900000", "999999", "error 3"},
    };
    expectRows(rows);
}

// Sums and products of exact decimals obey the laws of arithmetic to the last digit.
class OperationLaws : public testing::Test {
protected:
    static std::string decimal(int64_t digits, int exponent) {
        return std::to_string(digits) + "e" + std::to_string(exponent);
    }
    static std::string anyDecimal() {
        return decimal(*rc::gen::arbitrary<int64_t>(), *rc::gen::inRange(-60, 60));
    }
};

TEST_F(OperationLaws, SumsAndProductsCommute) {
    EXPECT_TRUE(rc::check("sums and products commute", [] {
        const std::string a = anyDecimal(), b = anyDecimal();
        RC_ASSERT(applied(add, a, b) == applied(add, b, a));
        RC_ASSERT(applied(multiply, a, b) == applied(multiply, b, a));
    }));
}

TEST_F(OperationLaws, SubtractionUndoesAddition) {
    EXPECT_TRUE(rc::check("subtraction undoes addition", [] {
        const auto evaluator = ExpressionNodeEvaluator::create(nullptr);
        const auto a = evaltest::value(anyDecimal()), b = evaltest::value(anyDecimal());
        TBFEvaluationError error = TBFEvaluationErrorNone;
        const auto sum = evaluator->apply(add, a.get(), b.get(), error);
        const auto back = evaluator->apply(subtract, sum.get(), b.get(), error);
        RC_ASSERT(evaltest::text(back.get()) == evaltest::text(a.get()));
    }));
}

TEST_F(OperationLaws, ConvertingThereAndBackReturns) {
    EXPECT_TRUE(rc::check("converting there and back returns", [] {
        const auto evaluator = ExpressionNodeEvaluator::create(&evaltest::units());
        const auto metres = evaltest::value("1 m"), kilometres = evaltest::value("1 km");
        const auto length =
            evaltest::value(decimal(*rc::gen::arbitrary<int64_t>(), *rc::gen::inRange(-20, 20)) + " m");
        TBFEvaluationError error = TBFEvaluationErrorNone;
        const auto there = evaluator->apply(convert, length.get(), kilometres.get(), error);
        const auto back = evaluator->apply(convert, there.get(), metres.get(), error);
        RC_ASSERT(evaltest::text(back.get()) == evaltest::text(length.get()));
    }));
}

} // namespace
