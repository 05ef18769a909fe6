#include "numbers/KernelLock.h"
#include "numbers/MAPMAccumulator.h"
#include "numbers/MAPMContext.h"
#include "numbers/Number.h"
#include "numbers/TBFMAPMExtensions.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <rapidcheck.h>
#include <set>
#include <string>
#include <thread>
#include <vector>

namespace {

using namespace TBF;

constexpr int places = 100;

std::string text(M_APM_const value) {
    return TBF_mapm_to_fitted_string(value, places);
}

TEST(Number, KeepsDigitsAndType) {
    const struct {
        Ref<Number> number;
        TBFNumberType type;
        std::string digits;
    } rows[] = {
        {Number::create("5", TBFNumberTypePercent), TBFNumberTypePercent, "5"},
        {Number::create(-12, TBFNumberTypeDecimal), TBFNumberTypeDecimal, "-12"},
        {Number::create(" 1.50e3", TBFNumberTypeDecimal), TBFNumberTypeDecimal, "1500"},
        {Number::create(Decimal("0.1"), TBFNumberTypeDecimal), TBFNumberTypeDecimal, "0.1"},
        {Number::create(Decimal("0.1").get(), TBFNumberTypePercent), TBFNumberTypePercent, "0.1"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(row.number->type(), row.type);
        EXPECT_EQ(row.number->specialType(), TBFNumberSpecialTypeNone);
        EXPECT_EQ(text(row.number->mapmRef()), row.digits);
    }
}

TEST(Number, CreatingCopiesOrTakesTheDigits) {
    Decimal scratch("7");
    const M_APM handle = scratch;
    const Ref<Number> copied = Number::create(scratch, TBFNumberTypeDecimal);
    EXPECT_NE(copied->mapmRef(), handle);
    const Ref<Number> taken = Number::create(std::move(scratch), TBFNumberTypeDecimal);
    EXPECT_EQ(taken->mapmRef(), handle);
    EXPECT_EQ(scratch.get(), nullptr);
    scratch = Decimal("8");
    EXPECT_EQ(text(copied->mapmRef()), "7");
}

TEST(Number, SpecialNumbersHaveNoDigits) {
    EXPECT_EQ(Number::notANumber()->specialType(), TBFNumberSpecialTypeNaN);
    EXPECT_EQ(Number::infinity()->specialType(), TBFNumberSpecialTypeInfinity);
    EXPECT_EQ(Number::negativeInfinity()->specialType(), TBFNumberSpecialTypeNegativeInfinity);
    for (const Ref<Number>& number : {Number::notANumber(), Number::infinity(), Number::negativeInfinity()}) {
        EXPECT_EQ(number->type(), TBFNumberTypeSpecial);
        EXPECT_EQ(number->mapmRef(), nullptr);
    }
    EXPECT_TRUE(std::isnan(Number::notANumber()->doubleValue()));
    EXPECT_EQ(Number::notANumber()->int32Value(), 0);
    EXPECT_EQ(Number::negativeInfinity()->int32Value(), std::numeric_limits<int32_t>::min());
}

TEST(Number, ReadsAsMachineNumbers) {
    const struct {
        const char* text;
        double asDouble;
        int32_t asInt32;
        int8_t asInt8;
    } rows[] = {
        {"0", 0, 0, 0},
        {"1.23456789012", 1.23456789, 1, 1}, // nine significant digits
        {"-1.9", -1.9, -1, -1},
        {"300.7", 300.7, 300, 44},
        {"123456789.6", 123456790, 123456790, 22},
        {"2147483646", 2147483650.0, 2147483647, -1}, // beyond 32 bits once rounded
        {"-1e20", -1e20, -2147483648, 0},
        {"1e400", std::numeric_limits<double>::infinity(), 2147483647, -1},
        {"1e-400", 0, 0, 0},
        {"0.3333333333333333333333333333333333333333333333333333333333333333333333", 0.333333333, 0, 0},
    };
    for (const auto& row : rows) {
        const Ref<Number> number = Number::create(row.text, TBFNumberTypeDecimal);
        EXPECT_EQ(number->doubleValue(), row.asDouble) << row.text;
        EXPECT_EQ(number->int32Value(), row.asInt32) << row.text;
        EXPECT_EQ(number->int8Value(), row.asInt8) << row.text;
    }
}

TEST(KernelLock, NestsOnAThread) {
    const KernelLock outer;
    const KernelLock inner;
    const Ref<Number> number = Number::create("2", TBFNumberTypeDecimal);
    EXPECT_EQ(text(number->mapmRef()), "2");
    EXPECT_EQ(text(Number::one()->mapmRef()), "1");
}

TEST(KernelLock, ThreadsComputeSideBySide) {
    std::vector<std::thread> threads;
    std::vector<std::string> results(4);
    for (std::string& result : results) {
        threads.emplace_back([&result] {
            const Ref<MAPMAccumulator> product = MAPMAccumulator::create(places);
            product->initialize(Number::one()->mapmRef());
            for (int factor = 2; factor <= 60; ++factor)
                product->multiplyBy(Decimal(factor));
            for (int factor = 60; factor > 20; --factor)
                product->divideBy(Decimal(factor));
            result = text(product->result());
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(std::set<std::string>(results.begin(), results.end()),
              std::set<std::string>{"2432902008176640000"});
}

TEST(MAPMContext, HasFourRegistersOfItsOwn) {
    const Ref<MAPMContext> context = MAPMContext::create(places);
    EXPECT_EQ(context->precision(), places);
    const std::set<M_APM> registers{context->r0(), context->r1(), context->r2(), context->r3()};
    EXPECT_EQ(registers.size(), 4U);
    EXPECT_EQ(registers.count(nullptr), 0U);
    EXPECT_EQ(context->registerAt(3), context->r3());
    EXPECT_EQ(context->registerAt(4), nullptr);
}

TEST(MAPMAccumulator, StepsLeaveTheirValue) {
    const Ref<MAPMAccumulator> product = MAPMAccumulator::create(3);
    EXPECT_EQ(text(product->result()), "0");
    product->initialize(Decimal("2"));
    product->multiplyBy(Decimal("1.00000000001")); // exact, whatever the precision
    EXPECT_EQ(text(product->result()), "2.00000000002");
    product->initialize(Decimal("2"));
    product->divideBy(Decimal("3"));
    EXPECT_EQ(text(product->result()), "0.6666"); // cut
    product->initialize(Decimal("8"));
    product->reciprocal();
    EXPECT_EQ(text(product->result()), "0.125");
}

TEST(MAPMExtensions, RoundsHalvesAwayFromZero) {
    const struct {
        const char *value, *expected;
    } rows[] = {
        {"0", "0"},
        {"0.4", "0"},
        {"0.5", "1"},
        {"2.4", "2"},
        {"2.5", "3"},
        {"3", "3"},
        {"-0.4", "0"},
        {"-0.5", "-1"},
        {"-2.5", "-3"},
        {"-2.49", "-2"},
        {"-3", "-3"},
        {"0.49999999999999999999999999999999999999999999999999999999999999999999999", "0"},
        {"99999999999999999999999999999999999999.5", "100000000000000000000000000000000000000"},
    };
    for (const auto& row : rows) {
        Decimal value(row.value);
        Decimal result;
        TBF_mapm_round_mt(result, 0, value);
        EXPECT_EQ(text(result), row.expected) << row.value;
        TBF_mapm_round_mt(value, 0, value);
        EXPECT_EQ(text(value), row.expected) << row.value << " in place";
    }
}

TEST(MAPMExtensions, FittedTextHasNoIdleZeros) {
    const struct {
        const char* value;
        int decimals;
        const char* expected;
    } rows[] = {
        {"0", 100, "0"},      {"100", 100, "100"},
        {"1.5", 100, "1.5"},  {"-0.050", 100, "-0.05"},
        {"1e-101", 100, "0"}, {"2", 100, "2"},
        {"0.125", 2, "0.13"}, {"10.04", 1, "10"},
        {"100", 0, "100"},    {"1e30", 100, "1000000000000000000000000000000"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(TBF_mapm_to_fitted_string(Decimal(row.value), row.decimals), row.expected) << row.value;
    }
    const Ref<MAPMAccumulator> third = MAPMAccumulator::create(places);
    third->initialize(Decimal(3));
    third->reciprocal();
    EXPECT_EQ(text(third->result()), "0." + std::string(100, '3'));
    EXPECT_EQ(TBF_mapm_buffer_size(nullptr), 0);
    EXPECT_EQ(TBF_mapm_buffer_size(Decimal("-0.00123")), 3 + 3 + 105);
}

TEST(MAPMExtensions, FittedTextReadsBackAsTheSameValue) {
    EXPECT_TRUE(rc::check([](int64_t digits, uint8_t scale) {
        const std::string scientific = std::to_string(digits) + "e-" + std::to_string(scale % 81);
        const Decimal value(scientific.c_str());
        const std::string fitted = text(value);
        RC_ASSERT(m_apm_compare(value, Decimal(fitted.c_str())) == 0);
        RC_ASSERT(fitted.find('.') == std::string::npos || (fitted.back() != '0' && fitted.back() != '.'));
    }));
}

TEST(MAPMExtensions, NoiseIsCutToZero) {
    const struct {
        const char *value, *expected;
    } rows[] = {{"1e-100", "1e-100"}, {"9.9e-101", "0"}, {"-9.9e-101", "0"}, {"0", "0"}, {"5", "5"}};
    for (const auto& row : rows) {
        Decimal value(row.value);
        TBF_mapm_truncate_tiny_number(value, places, false);
        EXPECT_EQ(m_apm_compare(value, Decimal(row.expected)), 0) << row.value;
        const KernelLock lock;
        value = Decimal(row.value);
        TBF_mapm_truncate_tiny_number(value, places, true);
        EXPECT_EQ(m_apm_compare(value, Decimal(row.expected)), 0) << row.value;
    }
}

TEST(MAPMExtensions, ConstantsHaveTheirValues) {
    EXPECT_EQ(text(TBF_MAPM_0_5()), "0.5");
    EXPECT_EQ(text(TBF_MAPM_0_01()), "0.01");
    EXPECT_EQ(text(TBF_MAPM_180()), "180");
    EXPECT_EQ(text(TBF_MAPM_100()), "100");
}

} // namespace
