#include "numbers/Number.h"
#include "units/EvaluatedValue.h"
#include "units/Value.h"

#include <gtest/gtest.h>

namespace {

using namespace TBF;

TEST(Value, SharesOrTakesOverItsNumber) {
    Ref<Number> number = Number::create(3, TBFNumberTypeDecimal);
    {
        const Ref<Value> shared = Value::create(number.get(), nullptr);
        EXPECT_EQ(shared->number(), number.get());
        EXPECT_EQ(shared->unitFraction(), nullptr);
        EXPECT_FALSE(number->isUnique());
    }
    EXPECT_TRUE(number->isUnique());
    Number* const handle = number.get();
    const Ref<Value> owning = Value::create_TransferOwnership(number.leak(), nullptr);
    EXPECT_EQ(owning->number(), handle);
    EXPECT_TRUE(owning->number()->isUnique());
}

TEST(EvaluatedValue, HoldsItsValue) {
    const Ref<Value> value = Value::create(Number::one());
    const Ref<EvaluatedValue> evaluated = EvaluatedValue::create(value.get(), nullptr);
    EXPECT_EQ(evaluated->value(), value.get());
    EXPECT_EQ(evaluated->metadata(), nullptr);
    EXPECT_FALSE(value->isUnique());
}

} // namespace
