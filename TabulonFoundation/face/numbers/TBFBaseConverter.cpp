#include "face/numbers/TBFBaseConverter.h"

#include "numbers/BaseConverter.h"
#include "runtime/String.h"

#include <cstdlib>
#include <cstring>
#include <optional>
#include <string>

TBFStringRef TBFBaseConverter2CharPrefixToDecimal(TBFStringRef literal) {
    if (!literal) return nullptr;
    const std::optional<std::string> decimal = TBF::BaseConverter::prefixedToDecimal(literal->utf8());
    return decimal ? TBF::String::createWithUTF8(*decimal).leak() : nullptr;
}

TBFStringRef TBFBaseConverterHexadecimalToDecimal(TBFStringRef digits) {
    if (!digits) return nullptr;
    return TBF::String::createWithUTF8(TBF::BaseConverter::convertToDecimal(digits->utf8(), 16)).leak();
}

TBFStringRef TBFBaseConverterBinaryToDecimal(TBFStringRef digits) {
    if (!digits) return nullptr;
    return TBF::String::createWithUTF8(TBF::BaseConverter::convertToDecimal(digits->utf8(), 2)).leak();
}

bool TBFBaseConverterIs2CharPrefixedString(const char* text) {
    return text && TBF::BaseConverter::isPrefixed(text);
}

char* TBFBaseConverterConvertFromDecimal(const char* decimal, uint8_t base, bool prefix) {
    if (!decimal) return nullptr;
    const std::optional<std::string> text = TBF::BaseConverter::fromDecimal(decimal, base, prefix);
    if (!text) return nullptr;
    const std::size_t size = text->size() + 1;
    char* const buffer = static_cast<char*>(std::malloc(size));
    if (buffer) std::memcpy(buffer, text->c_str(), size);
    return buffer;
}
