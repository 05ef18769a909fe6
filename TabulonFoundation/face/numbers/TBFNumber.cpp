#include "face/numbers/TBFNumber.h"

#include "numbers/Number.h"

using TBF::Number;

TBFNumberRef TBFNumberCreateWithMAPM(M_APM_const value, TBFNumberType type) {
    return value ? Number::create(value, type).leak() : nullptr;
}

TBFNumberRef TBFNumberCreateWithInt32(int32_t value, TBFNumberType type) {
    return Number::create(value, type).leak();
}

TBFNumberRef TBFNumberCreateWithCString(const char* text, TBFNumberType type) {
    return text ? Number::create(text, type).leak() : nullptr;
}

TBFNumberRef TBFNumberCreateSpecial(TBFNumberSpecialType specialType) {
    return Number::create(specialType).leak();
}

TBFNumberRef TBFNumberRetain(TBFNumberRef number) {
    return TBF::retain(number).leak();
}

void TBFNumberRelease(const Number* number) {
    if (number) number->release();
}

double TBFNumberGetDoubleValue(const Number* number) {
    return number ? number->doubleValue() : 0.0;
}

int32_t TBFNumberGetInt32Value(const Number* number) {
    return number ? number->int32Value() : 0;
}

M_APM TBFNumberGetMAPMReference(const Number* number) {
    return number ? number->mapmRef() : nullptr;
}

TBFNumberType TBFNumberGetType(const Number* number) {
    return number ? number->type() : TBFNumberTypeNone;
}

TBFNumberSpecialType TBFNumberGetSpecialType(const Number* number) {
    return number ? number->specialType() : TBFNumberSpecialTypeNone;
}

TBFNumberRef TBFNumber_CONST_0() {
    return Number::zero().get();
}

TBFNumberRef TBFNumber_CONST_1() {
    return Number::one().get();
}

TBFNumberRef TBFNumber_CONST_NAN() {
    return Number::notANumber().get();
}

TBFNumberRef TBFNumber_CONST_INFINITY() {
    return Number::infinity().get();
}

TBFNumberRef TBFNumber_CONST_NEGATIVE_INFINITY() {
    return Number::negativeInfinity().get();
}

void TBFNumber_ConstantsInit() {
    Number::makeConstants();
}
