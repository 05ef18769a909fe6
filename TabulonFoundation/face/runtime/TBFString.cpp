#include "face/runtime/TBFString.h"

#include "runtime/String.h"
#include "runtime/Unicode.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>

using TBF::String;

namespace {

std::u16string_view viewOf(const String* string) {
    return string ? string->view() : std::u16string_view();
}

char* mallocBuffer(std::string_view bytes) {
    auto* const buffer = static_cast<char*>(std::malloc(bytes.size() + 1));
    if (!buffer) return nullptr;
    std::memcpy(buffer, bytes.data(), bytes.size());
    buffer[bytes.size()] = '\0';
    return buffer;
}

} // namespace

TBFStringRef TBFStringCreateWithInteger(int64_t value) {
    return String::createWithInteger(value).leak();
}

TBFStringRef TBFStringCreateWithUTF8(const char* bytes) {
    return bytes ? String::createWithUTF8(bytes).leak() : nullptr;
}

TBFStringRef TBFStringCreateWithCppString(const std::string& bytes) {
    // Ends at a NUL, as the form for NUL-terminated texts does.
    return TBFStringCreateWithUTF8(bytes.c_str());
}

TBFStringRef TBFStringCreateWithCharacter(TBFChar character) {
    return String::create({&character, 1}).leak();
}

TBFStringRef TBFStringCreateWithCharacters(const TBFChar* characters, int32_t count) {
    if (!characters || count <= 0) return String::create({}).leak();
    return String::create({characters, static_cast<std::size_t>(count)}).leak();
}

TBFStringRef TBFStringRetain(TBFStringRef string) {
    return TBF::retain(string).leak();
}

TBFStringRef TBFStringCopy(TBFStringRef string) {
    return TBF::retain(string).leak();
}

void TBFStringRelease(const String* string) {
    if (string) string->release();
}

void TBFStringFree(const String* string) {
    TBFStringRelease(string);
}

int32_t TBFStringLength(const String* string) {
    return string ? string->length() : 0;
}

TBFChar TBFStringGetCharAtIndex(const String* string, int32_t index) {
    return string ? string->at(index) : TBFCharNULL;
}

int32_t TBFStringGetChars(const String* string, TBFChar* buffer, int32_t max) {
    const std::u16string_view text = viewOf(string);
    if (!buffer) return 0;
    return static_cast<int32_t>(text.copy(buffer, static_cast<std::size_t>(std::max(max, 0))));
}

int32_t TBFStringCompare(const String* a, const String* b) {
    return a && b && a->equals(*b) ? 0 : -1;
}

char* TBFStringGetUTF8(const String* string, int32_t* outSize) {
    const std::string bytes = TBFStringGetCppString(string);
    if (outSize) *outSize = string ? static_cast<int32_t>(bytes.size() + 1) : 0;
    return string ? mallocBuffer(bytes) : nullptr;
}

char* TBFStringGetASCII(const String* string) {
    if (!string) return nullptr;
    std::string bytes;
    for (const char16_t unit : string->view()) {
        bytes.push_back(unit < 0x80 ? static_cast<char>(unit) : '?');
    }
    return mallocBuffer(bytes);
}

std::string TBFStringGetCppString(const String* string) {
    return TBF::utf8(viewOf(string));
}

void TBFStringPrint(const String* string) {
    const std::string bytes = TBFStringGetCppString(string);
    std::fwrite(bytes.data(), 1, bytes.size(), stdout);
}

TBFStringRef TBFStringSubString(TBFStringRef string, int32_t location, int32_t length) {
    return string ? string->substring(location, length).leak() : nullptr;
}

TBFStringRef TBFStringConcatenate(const String* a, const String* b) {
    return a || b ? String::createWithConcatenation(viewOf(a), viewOf(b)).leak() : nullptr;
}

TBFStringRef TBFStringLowercaseString(TBFStringRef string) {
    return string ? string->lowercase().leak() : nullptr;
}

int32_t TBFCharCompare(TBFChar a, TBFChar b) {
    if (a == b) return 0;
    return a < b ? -1 : 1;
}

char* TBFCharGetUTF8(TBFChar character) {
    return mallocBuffer(TBF::utf8({&character, 1}));
}

TBFChar TBFCharFromUTF8(const char* bytes) {
    return bytes ? TBF::codeUnitOf(bytes) : TBFCharNULL;
}
