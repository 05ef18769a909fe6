#pragma once

// The plain functions over dictionaries that find a name in any casing as long as one spelling is known.
// Items are neither retained nor freed; sets guard against each other, and nothing may be set while others
// read. A null handle counts as an empty dictionary, and a null key is no key.

#include <cstdint>

namespace TBF {
class Array;
class CaseInsensitiveDictionary;
class String;
} // namespace TBF
using TBFCaseInsensitiveDictionaryRef = TBF::CaseInsensitiveDictionary*;

// The caller owns the result.
TBFCaseInsensitiveDictionaryRef TBFCaseInsensitiveDictionaryCreate();
TBFCaseInsensitiveDictionaryRef
TBFCaseInsensitiveDictionaryRetain(TBFCaseInsensitiveDictionaryRef dictionary);
void TBFCaseInsensitiveDictionaryRelease(const TBF::CaseInsensitiveDictionary* dictionary);

// Set. A null item removes the entry. The replaced item goes to `replacedOut`, which may be null and is
// left alone if nothing was replaced.
void TBFCaseInsensitiveDictionarySetItemForKeyAndLowercaseKeyObserveReplacement(
    TBFCaseInsensitiveDictionaryRef dictionary, void* item, TBF::String* key, TBF::String* lowercaseKey,
    bool caseSensitive, void** replacedOut);
void TBFCaseInsensitiveDictionarySetItemForKeyAndLowercaseKey(TBFCaseInsensitiveDictionaryRef dictionary,
                                                              void* item, TBF::String* key,
                                                              TBF::String* lowercaseKey, bool caseSensitive);
void TBFCaseInsensitiveDictionarySetItemForKeyObserveReplacement(TBFCaseInsensitiveDictionaryRef dictionary,
                                                                 void* item, TBF::String* key,
                                                                 bool caseSensitive, void** replacedOut);
void TBFCaseInsensitiveDictionarySetItemForKey(TBFCaseInsensitiveDictionaryRef dictionary, void* item,
                                               TBF::String* key, bool caseSensitive);

// The item or null. `exactCaseOut`, which may be null, tells whether the entry was given in this spelling.
void* TBFCaseInsensitiveDictionaryGetItemForKey(const TBF::CaseInsensitiveDictionary* dictionary,
                                                const TBF::String* key);
void* TBFCaseInsensitiveDictionaryGetItemForKeyAndLowercaseKey(
    const TBF::CaseInsensitiveDictionary* dictionary, const TBF::String* key,
    const TBF::String* lowercaseKey);
void* TBFCaseInsensitiveDictionaryFindItemForKeyAndLowercaseKey(
    const TBF::CaseInsensitiveDictionary* dictionary, const TBF::String* key, const TBF::String* lowercaseKey,
    bool* exactCaseOut);

int32_t TBFCaseInsensitiveDictionaryCount(const TBF::CaseInsensitiveDictionary* dictionary);

// A new array, owned by the caller: the items that any casing finds, then the others.
TBF::Array* TBFCaseInsensitiveDictionaryGetAllItems(const TBF::CaseInsensitiveDictionary* dictionary);

// `function(item)` on the items that need their exact key, then on the others.
void TBFCaseInsensitiveDictionaryApplyFunction(const TBF::CaseInsensitiveDictionary* dictionary,
                                               void (*function)(void* item));
void TBFCaseInsensitiveDictionaryRemoveAllItems(TBFCaseInsensitiveDictionaryRef dictionary);
