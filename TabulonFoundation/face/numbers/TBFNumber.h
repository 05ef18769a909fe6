#pragma once

// The plain functions over number handles. Numbers are immutable and may be
// shared between threads. A null handle is accepted everywhere.

#include "numbers/Number.h"

#include "m_apm.h"

#include <cstdint>

using TBFNumberRef = TBF::Number*;

// Create. The caller owns the result.
TBFNumberRef TBFNumberCreateWithMAPM(M_APM_const value, TBFNumberType type); // copies the digits
TBFNumberRef TBFNumberCreateWithInt32(int32_t value, TBFNumberType type);
TBFNumberRef TBFNumberCreateWithCString(const char* text, TBFNumberType type);
TBFNumberRef TBFNumberCreateSpecial(TBFNumberSpecialType specialType);

TBFNumberRef TBFNumberRetain(TBFNumberRef number);
void TBFNumberRelease(const TBF::Number* number);

// Read. Zero or null for a null handle.
double TBFNumberGetDoubleValue(const TBF::Number* number); // nine significant digits
int32_t TBFNumberGetInt32Value(const TBF::Number* number);
M_APM TBFNumberGetMAPMReference(const TBF::Number* number); // borrowed; null for a special number
TBFNumberType TBFNumberGetType(const TBF::Number* number);
TBFNumberSpecialType TBFNumberGetSpecialType(const TBF::Number* number);

// The shared constants. Borrowed, and valid for ever.
TBFNumberRef TBFNumber_CONST_0();
TBFNumberRef TBFNumber_CONST_1();
TBFNumberRef TBFNumber_CONST_NAN();
TBFNumberRef TBFNumber_CONST_INFINITY();
TBFNumberRef TBFNumber_CONST_NEGATIVE_INFINITY();

// Makes the shared constants now; otherwise the first use makes them.
void TBFNumber_ConstantsInit();
