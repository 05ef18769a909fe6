#include "face/runtime/TBFCaseInsensitiveDictionary.h"

#include "runtime/Array.h"
#include "runtime/CaseInsensitiveDictionary.h"

using TBF::CaseInsensitiveDictionary;
using TBF::String;

TBFCaseInsensitiveDictionaryRef TBFCaseInsensitiveDictionaryCreate() {
    return CaseInsensitiveDictionary::create().leak();
}

TBFCaseInsensitiveDictionaryRef
TBFCaseInsensitiveDictionaryRetain(TBFCaseInsensitiveDictionaryRef dictionary) {
    return TBF::retain(dictionary).leak();
}

void TBFCaseInsensitiveDictionaryRelease(const CaseInsensitiveDictionary* dictionary) {
    if (dictionary) dictionary->release();
}

void TBFCaseInsensitiveDictionarySetItemForKeyAndLowercaseKeyObserveReplacement(
    TBFCaseInsensitiveDictionaryRef dictionary, void* item, String* key, String* lowercaseKey,
    bool caseSensitive, void** replacedOut) {
    if (!dictionary || !key || !lowercaseKey) return;
    dictionary->setItem(item, *key, *lowercaseKey, caseSensitive, replacedOut);
}

void TBFCaseInsensitiveDictionarySetItemForKeyAndLowercaseKey(TBFCaseInsensitiveDictionaryRef dictionary,
                                                              void* item, String* key, String* lowercaseKey,
                                                              bool caseSensitive) {
    if (!dictionary || !key || !lowercaseKey) return;
    dictionary->setItem(item, *key, *lowercaseKey, caseSensitive);
}

void TBFCaseInsensitiveDictionarySetItemForKeyObserveReplacement(TBFCaseInsensitiveDictionaryRef dictionary,
                                                                 void* item, String* key, bool caseSensitive,
                                                                 void** replacedOut) {
    if (dictionary && key) dictionary->setItem(item, *key, caseSensitive, replacedOut);
}

void TBFCaseInsensitiveDictionarySetItemForKey(TBFCaseInsensitiveDictionaryRef dictionary, void* item,
                                               String* key, bool caseSensitive) {
    if (dictionary && key) dictionary->setItem(item, *key, caseSensitive);
}

void* TBFCaseInsensitiveDictionaryGetItemForKey(const CaseInsensitiveDictionary* dictionary,
                                                const String* key) {
    return dictionary && key ? dictionary->find(*key) : nullptr;
}

void* TBFCaseInsensitiveDictionaryGetItemForKeyAndLowercaseKey(const CaseInsensitiveDictionary* dictionary,
                                                               const String* key,
                                                               const String* lowercaseKey) {
    return TBFCaseInsensitiveDictionaryFindItemForKeyAndLowercaseKey(dictionary, key, lowercaseKey, nullptr);
}

void* TBFCaseInsensitiveDictionaryFindItemForKeyAndLowercaseKey(const CaseInsensitiveDictionary* dictionary,
                                                                const String* key, const String* lowercaseKey,
                                                                bool* exactCaseOut) {
    if (exactCaseOut) *exactCaseOut = false;
    if (!dictionary || !key || !lowercaseKey) return nullptr;
    return dictionary->find(key->view(), lowercaseKey->view(), exactCaseOut);
}

int32_t TBFCaseInsensitiveDictionaryCount(const CaseInsensitiveDictionary* dictionary) {
    return dictionary ? dictionary->count() : 0;
}

TBF::Array* TBFCaseInsensitiveDictionaryGetAllItems(const CaseInsensitiveDictionary* dictionary) {
    TBF::Ref<TBF::Array> array = TBF::Array::create();
    if (dictionary) {
        for (void* const item : dictionary->items())
            array->append(item);
    }
    return array.leak();
}

void TBFCaseInsensitiveDictionaryApplyFunction(const CaseInsensitiveDictionary* dictionary,
                                               void (*function)(void* item)) {
    if (dictionary && function) dictionary->apply(function);
}

void TBFCaseInsensitiveDictionaryRemoveAllItems(TBFCaseInsensitiveDictionaryRef dictionary) {
    if (dictionary) dictionary->removeAll();
}
