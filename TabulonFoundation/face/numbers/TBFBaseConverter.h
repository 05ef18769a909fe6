#pragma once

// The plain functions of the conversion between decimal numbers and those in base 2 and 16. Null gives
// null. Buffers (`char*` results) are NUL-terminated and allocated with malloc; the caller frees them.

#include "face/runtime/TBFString.h"

#include <cstdint>

// The caller owns the results. The literal begins with 0b or 0x; with another second character the
// result is null.
TBFStringRef TBFBaseConverter2CharPrefixToDecimal(TBFStringRef literal);
TBFStringRef TBFBaseConverterHexadecimalToDecimal(TBFStringRef digits);
TBFStringRef TBFBaseConverterBinaryToDecimal(TBFStringRef digits);

bool TBFBaseConverterIs2CharPrefixedString(const char* text);

// The whole part of the decimal text in base 2 or 16, with the prefix behind the sign if asked for. Null for
// another base and for a text longer than 500 bytes.
char* TBFBaseConverterConvertFromDecimal(const char* decimal, uint8_t base, bool prefix);
