#pragma once

// The plain functions over dictionary handles: strings by content, retained, to untyped pointers, not
// retained. The order of keys is undefined. Used by one thread at a time. A null handle counts as an empty
// dictionary, and a null key is no key.

#include <cstdint>

namespace TBF {
class Dictionary;
class String;
} // namespace TBF
using TBFDictionaryRef = TBF::Dictionary*;
using TBFDictionaryFunction = void (*)(TBF::String* key, void* value, void* context);

// The caller owns the result.
TBFDictionaryRef TBFDictionaryCreate();
TBFDictionaryRef TBFDictionaryRetain(TBFDictionaryRef dictionary);
void TBFDictionaryRelease(const TBF::Dictionary* dictionary);

int32_t TBFDictionaryGetCount(const TBF::Dictionary* dictionary);
void* TBFDictionaryGetValue(const TBF::Dictionary* dictionary, const TBF::String* key); // null if absent

// The value stands before the key.
void TBFDictionarySetValue(TBFDictionaryRef dictionary, void* value, TBF::String* key);
void TBFDictionaryRemoveValue(TBFDictionaryRef dictionary, const TBF::String* key);
void TBFDictionaryRemoveAllValues(TBFDictionaryRef dictionary);

// Fills an array of `count` entries with the keys, borrowed.
void TBFDictionaryGetKeys(const TBF::Dictionary* dictionary, TBF::String** keys);

// Call `function` on each entry; the plain form passes a null context. The function must not change the
// dictionary.
void TBFDictionaryApplyFunction(const TBF::Dictionary* dictionary, TBFDictionaryFunction function);
void TBFDictionaryApplyFunctionWithContext(const TBF::Dictionary* dictionary, TBFDictionaryFunction function,
                                           void* context);
