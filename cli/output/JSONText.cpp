#include "output/JSONText.h"

std::string jsonString(std::string_view text) {
    constexpr std::string_view hexDigits = "0123456789abcdef";
    std::string result = "\"";
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\') {
            result.append({'\\', c});
        } else if (byte < 0x20 || byte == 0x7F) {
            result.append("\\u00").append({hexDigits[byte >> 4], hexDigits[byte & 0xF]});
        } else {
            result += c;
        }
    }
    return result + '"';
}

std::string jsonStringOrNull(const std::optional<std::string>& text) {
    return text ? jsonString(std::string_view(*text)) : "null";
}
