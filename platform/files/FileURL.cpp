#include "files/FileURL.h"

#include <charconv>
#include <filesystem>

namespace platform {

namespace {

constexpr std::string_view scheme = "file://";
constexpr std::string_view thisHost = "localhost";

constexpr bool standsForItself(char c) {
    constexpr std::string_view others = "-._~/!$&'()*+,;=:@";
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
           others.find(c) != std::string_view::npos;
}

// The byte of two hexadecimal digits; -1 for anything else and for NUL, which no path can hold.
int escapedByte(std::string_view digits) {
    unsigned value = 0;
    const auto parsed = std::from_chars(digits.data(), digits.data() + digits.size(), value, 16);
    if (digits.size() != 2 || parsed.ptr != digits.data() + 2 || value == 0) return -1;
    return static_cast<int>(value);
}

} // namespace

std::string fileURLOfPath(std::string_view path) {
    constexpr std::string_view hexDigits = "0123456789ABCDEF";
    std::error_code error;
    const std::filesystem::path absolute = std::filesystem::absolute(path, error);
    std::string url(scheme);
    for (const char c : error ? std::string(path) : absolute.string()) {
        if (standsForItself(c)) {
            url += c;
            continue;
        }
        const auto byte = static_cast<unsigned char>(c);
        url.append({'%', hexDigits[byte >> 4], hexDigits[byte & 0xF]});
    }
    return url;
}

std::optional<std::string> pathOfFileURL(std::string_view url) {
    if (!url.starts_with(scheme)) return std::nullopt;
    url.remove_prefix(scheme.size());
    if (url.starts_with(thisHost)) url.remove_prefix(thisHost.size());
    if (!url.starts_with('/')) return std::nullopt;

    std::string path;
    for (std::size_t i = 0; i < url.size(); ++i) {
        if (url[i] != '%') {
            path += url[i];
            continue;
        }
        const int byte = escapedByte(url.substr(i + 1, 2));
        if (byte < 0) return std::nullopt;
        path += static_cast<char>(byte);
        i += 2;
    }
    return path;
}

} // namespace platform
