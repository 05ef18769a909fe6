#include "face/runtime/TBFDictionary.h"

#include "runtime/Dictionary.h"

using TBF::Dictionary;
using TBF::String;

TBFDictionaryRef TBFDictionaryCreate() {
    return Dictionary::create().leak();
}

TBFDictionaryRef TBFDictionaryRetain(TBFDictionaryRef dictionary) {
    return TBF::retain(dictionary).leak();
}

void TBFDictionaryRelease(const Dictionary* dictionary) {
    if (dictionary) dictionary->release();
}

int32_t TBFDictionaryGetCount(const Dictionary* dictionary) {
    return dictionary ? dictionary->count() : 0;
}

void* TBFDictionaryGetValue(const Dictionary* dictionary, const String* key) {
    return dictionary && key ? dictionary->value(key->view()) : nullptr;
}

void TBFDictionarySetValue(TBFDictionaryRef dictionary, void* value, String* key) {
    if (dictionary && key) dictionary->setValue(value, key);
}

void TBFDictionaryRemoveValue(TBFDictionaryRef dictionary, const String* key) {
    if (dictionary && key) dictionary->removeValue(key->view());
}

void TBFDictionaryRemoveAllValues(TBFDictionaryRef dictionary) {
    if (dictionary) dictionary->removeAll();
}

void TBFDictionaryGetKeys(const Dictionary* dictionary, String** keys) {
    if (!dictionary || !keys) return;
    for (const auto& [key, value] : dictionary->contents())
        *keys++ = key.get();
}

void TBFDictionaryApplyFunction(const Dictionary* dictionary, TBFDictionaryFunction function) {
    TBFDictionaryApplyFunctionWithContext(dictionary, function, nullptr);
}

void TBFDictionaryApplyFunctionWithContext(const Dictionary* dictionary, TBFDictionaryFunction function,
                                           void* context) {
    if (dictionary && function) dictionary->apply(function, context);
}
