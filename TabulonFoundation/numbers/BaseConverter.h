#pragma once

// Numbers in base 2 and 16, the only other bases there are: literals such as 0b101 and 0xFF become
// decimal text when tokens are read, and decimal answers become binary or hexadecimal text. All texts
// are ASCII. Takes the kernel's lock, and may be called on any thread.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace TBF::BaseConverter {

// The decimal form of digits in base 2 or 16, without a prefix. Reads the longest run of digits from the
// right end: 0 to 9 and a to f in either case. Digits aren't tested against the base.
std::string convertToDecimal(std::string_view digits, int32_t base);

// The decimal form of a literal with "0b" or "0x" before its digits; none with another second
// character. The literal begins with "0".
std::optional<std::string> prefixedToDecimal(std::string_view literal);

// True for a text that begins with "0b" or "0x".
bool isPrefixed(std::string_view text);

// The whole part of a decimal number in base 2 or 16, its sign first and then, if asked for, the prefix.
// None for another base (reported on standard error), and for more than 500 bytes.
std::optional<std::string> fromDecimal(std::string_view decimal, uint8_t base, bool prefix);

} // namespace TBF::BaseConverter
