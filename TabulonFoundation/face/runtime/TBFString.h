#pragma once

// The plain functions over string handles and single code units. A null handle means that there is no
// string, and is accepted everywhere. Strings are immutable and may be shared between threads. Buffers
// (`char*` results) are allocated with malloc, and the caller frees them with free.

#include "runtime/TBFTypes.h"

#include <cstdint>
#include <string>

namespace TBF {
class String;
}
using TBFStringRef = TBF::String*;

// Create. The caller owns the result.
TBFStringRef TBFStringCreateWithInteger(int64_t value);
TBFStringRef TBFStringCreateWithUTF8(const char* bytes); // NUL-terminated; null gives null
TBFStringRef TBFStringCreateWithCppString(const std::string& bytes);
TBFStringRef TBFStringCreateWithCharacter(TBFChar character);
TBFStringRef TBFStringCreateWithCharacters(const TBFChar* characters, int32_t count);

TBFStringRef TBFStringRetain(TBFStringRef string);
TBFStringRef TBFStringCopy(TBFStringRef string); // the same handle, with a reference more
void TBFStringRelease(const TBF::String* string);
void TBFStringFree(const TBF::String* string);

// Read. Lengths and indexes count code units.
int32_t TBFStringLength(const TBF::String* string);
TBFChar TBFStringGetCharAtIndex(const TBF::String* string, int32_t index); // 0 outside of the string

// Copies the first min(length, max) code units and gives their number.
int32_t TBFStringGetChars(const TBF::String* string, TBFChar* buffer, int32_t max);

// An equality test without an order: 0 if both texts are equal, else -1, also if either is null.
int32_t TBFStringCompare(const TBF::String* a, const TBF::String* b);

// A NUL-terminated buffer. `outSize`, if not null, receives its size in bytes with the NUL.
char* TBFStringGetUTF8(const TBF::String* string, int32_t* outSize);
char* TBFStringGetASCII(const TBF::String* string); // each unit outside of ASCII becomes '?'
std::string TBFStringGetCppString(const TBF::String* string);

// Writes the text to standard output, without a newline.
void TBFStringPrint(const TBF::String* string);

// Compute. The caller owns the result, which is null for a null string.
TBFStringRef TBFStringSubString(TBFStringRef string, int32_t location, int32_t length);
TBFStringRef TBFStringConcatenate(const TBF::String* a, const TBF::String* b); // a null part is empty
TBFStringRef TBFStringLowercaseString(TBFStringRef string);

// Code units. 0 when equal, -1 if `a` is the lesser as an unsigned number, else 1.
int32_t TBFCharCompare(TBFChar a, TBFChar b);
char* TBFCharGetUTF8(TBFChar character);

// The one code unit of a NUL-terminated UTF-8 text; 0 if it has none or several, or is null.
TBFChar TBFCharFromUTF8(const char* bytes);
