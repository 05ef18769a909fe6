#pragma once

// 128-bit identifiers, by which a host and its plug-ins name types, interfaces and factories. A plain value;
// any thread.

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace platform {

struct UUID {
    std::array<uint8_t, 16> bytes{}; // in the order in which they are written

    // From the form "5E2D9680-5022-40FA-B806-43349622E5B9", in either case; none for any other text.
    static constexpr std::optional<UUID> fromString(std::string_view text) {
        if (text.size() != textLength) return std::nullopt;
        UUID result;
        std::size_t digits = 0;
        for (std::size_t i = 0; i < text.size(); ++i) {
            const bool isDashPlace = i == 8 || i == 13 || i == 18 || i == 23;
            if (isDashPlace != (text[i] == '-')) return std::nullopt;
            if (isDashPlace) continue;
            const int value = hexDigit(text[i]);
            if (value < 0) return std::nullopt;
            uint8_t& byte = result.bytes[digits++ / 2];
            byte = static_cast<uint8_t>(byte << 4 | value);
        }
        return result;
    }

    // With capital letters.
    std::string string() const;

    constexpr bool operator==(const UUID&) const = default;
    constexpr auto operator<=>(const UUID&) const = default;

    static constexpr std::size_t textLength = 36;

private:
    static constexpr int hexDigit(char c) {
        if (c >= '0' && c <= '9') return c - '0';
        if (c >= 'A' && c <= 'F') return c - 'A' + 10;
        return c >= 'a' && c <= 'f' ? c - 'a' + 10 : -1;
    }
};

} // namespace platform
