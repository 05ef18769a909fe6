#include "runtime/Unicode.h"

#include <algorithm>
#include <cstdint>
#include <unicode/ustring.h>
#include <unicode/utf16.h>
#include <unicode/utf8.h>

namespace TBF {

namespace {

using CaseMapping = int32_t (*)(UChar*, int32_t, const UChar*, int32_t, const char*, UErrorCode*);

constexpr const char* rootLocale = "";

std::u16string mapCase(std::u16string_view text, CaseMapping mapping) {
    const auto length = static_cast<int32_t>(text.size());
    std::u16string result(text.size(), u'\0');
    UErrorCode status = U_ZERO_ERROR;
    int32_t needed = mapping(result.data(), length, text.data(), length, rootLocale, &status);
    if (status == U_BUFFER_OVERFLOW_ERROR) {
        result.resize(static_cast<std::size_t>(needed));
        status = U_ZERO_ERROR;
        needed = mapping(result.data(), needed, text.data(), length, rootLocale, &status);
    }
    if (U_FAILURE(status)) return std::u16string(text);
    result.resize(static_cast<std::size_t>(needed));
    return result;
}

void appendUTF8(std::string& bytes, UChar32 codePoint) {
    char sequence[U8_MAX_LENGTH];
    int32_t length = 0;
    U8_APPEND_UNSAFE(sequence, length, codePoint);
    bytes.append(sequence, static_cast<std::size_t>(length));
}

} // namespace

std::u16string utf16(std::string_view bytes) {
    std::u16string text;
    text.reserve(bytes.size());
    const std::size_t size = bytes.size();
    std::size_t index = 0;
    while (index < size) {
        const auto byte = static_cast<uint8_t>(bytes[index]);
        if (byte < 0x80) {
            text.push_back(byte);
            ++index;
            continue;
        }
        UChar32 codePoint = 0;
        U8_NEXT_OR_FFFD(bytes.data(), index, size, codePoint);
        if (U_IS_BMP(codePoint)) {
            text.push_back(static_cast<char16_t>(codePoint));
        } else {
            text.push_back(U16_LEAD(codePoint));
            text.push_back(U16_TRAIL(codePoint));
        }
    }
    return text;
}

char16_t codeUnitOf(std::string_view bytes) {
    const std::u16string text = utf16(bytes);
    return text.size() == 1 ? text.front() : u'\0';
}

std::string utf8(std::u16string_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t index = 0; index < text.size(); ++index) {
        const char16_t unit = text[index];
        if (unit < 0x80) {
            bytes.push_back(static_cast<char>(unit));
        } else if (!U16_IS_SURROGATE(unit)) {
            appendUTF8(bytes, unit);
        } else if (U16_IS_SURROGATE_LEAD(unit) && index + 1 < text.size() && U16_IS_TRAIL(text[index + 1])) {
            appendUTF8(bytes, U16_GET_SUPPLEMENTARY(unit, text[index + 1]));
            ++index;
        } else {
            appendUTF8(bytes, replacementCharacter);
        }
    }
    return bytes;
}

bool isASCII(std::u16string_view text) {
    return std::all_of(text.begin(), text.end(), [](char16_t unit) { return unit < 0x80; });
}

bool isLowercaseASCII(std::u16string_view text) {
    return std::all_of(text.begin(), text.end(),
                       [](char16_t unit) { return unit < 0x80 && !(unit >= u'A' && unit <= u'Z'); });
}

std::u16string lowercase(std::u16string_view text) {
    if (!isASCII(text)) return mapCase(text, u_strToLower);
    std::u16string result(text);
    for (char16_t& unit : result) {
        if (unit >= u'A' && unit <= u'Z') unit = static_cast<char16_t>(unit + (u'a' - u'A'));
    }
    return result;
}

std::u16string uppercase(std::u16string_view text) {
    if (!isASCII(text)) return mapCase(text, u_strToUpper);
    std::u16string result(text);
    for (char16_t& unit : result) {
        if (unit >= u'a' && unit <= u'z') unit = static_cast<char16_t>(unit - (u'a' - u'A'));
    }
    return result;
}

} // namespace TBF
