#include "face/units/TBFValue.h"

#include "units/Value.h"

using TBF::Value;

TBFValueRef TBFValueCreate(TBF::Number* number, TBF::UnitFraction* unitFraction) {
    return Value::create(number, unitFraction).leak();
}

TBFValueRef TBFValueCreate_TransferOwnership(TBF::Number* number) {
    return Value::create_TransferOwnership(number, nullptr).leak();
}

TBFValueRef TBFValueCreate_TransferOwnership(TBF::Number* number, TBF::UnitFraction* unitFraction) {
    return Value::create_TransferOwnership(number, unitFraction).leak();
}

TBFValueRef TBFValueRetain(TBFValueRef value) {
    return TBF::retain(value).leak();
}

void TBFValueRelease(const Value* value) {
    if (value) value->release();
}

TBF::Number* TBFValueGetNumber(const Value* value) {
    return value ? value->number() : nullptr;
}

TBF::UnitFraction* TBFValueGetUnitFraction(const Value* value) {
    return value ? value->unitFraction() : nullptr;
}
