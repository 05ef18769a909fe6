#include "units/EvaluatedValue.h"
#include "numbers/Number.h"
#include "face/units/TBFEvaluatedValue.h"
#include "units/Value.h"

#include <gtest/gtest.h>

namespace {

using namespace TBF;

TEST(Value, SharesOrTakesOverItsNumber) {
    Ref<Number> number = Number::create(3, TBFNumberTypeDecimal);
    {
        const Ref<Value> shared = adopt(TBFValueCreate(number.get(), nullptr));
        EXPECT_EQ(TBFValueGetNumber(shared.get()), number.get());
        EXPECT_EQ(TBFValueGetUnitFraction(shared.get()), nullptr);
        EXPECT_FALSE(number->isUnique());
    }
    EXPECT_TRUE(number->isUnique());
    Number* const handle = number.get();
    const Ref<Value> owning = adopt(TBFValueCreate_TransferOwnership(number.leak()));
    EXPECT_EQ(owning->number(), handle);
    EXPECT_TRUE(owning->number()->isUnique());
    EXPECT_EQ(TBFValueGetNumber(nullptr), nullptr);
}

TEST(EvaluatedValue, HoldsItsValue) {
    const Ref<Value> value = Value::create(Number::one());
    const Ref<EvaluatedValue> evaluated = adopt(TBFEvaluatedValueCreate(value.get(), nullptr));
    EXPECT_EQ(evaluated->value(), value.get());
    EXPECT_EQ(evaluated->metadata(), nullptr);
    EXPECT_FALSE(value->isUnique());
}

} // namespace
