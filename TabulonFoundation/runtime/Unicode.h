#pragma once

// The one place where texts change between UTF-8 and UTF-16, and where letters change their case.
// Nothing here depends on a locale; all functions are pure and may be called on any thread.

#include <string>
#include <string_view>

namespace TBF {

inline constexpr char16_t replacementCharacter = 0xFFFD;

// Decodes UTF-8. Each maximal part of a broken sequence becomes one U+FFFD, so any bytes give a text.
std::u16string utf16(std::string_view bytes);

// The one code unit that the bytes stand for; 0 for none, several or one beyond 16 bits.
char16_t codeUnitOf(std::string_view bytes);

// Encodes as UTF-8. A surrogate without its partner becomes U+FFFD.
std::string utf8(std::u16string_view text);

// True if every code unit is below 0x80.
bool isASCII(std::u16string_view text);

// True if lower-casing `text` certainly changes nothing: ASCII without capitals. False may be wrong.
bool isLowercaseASCII(std::u16string_view text);

// Lower case by the root locale's Unicode mapping; the length may change.
std::u16string lowercase(std::u16string_view text);

// Upper case by the root locale's Unicode mapping; the length may change.
std::u16string uppercase(std::u16string_view text);

} // namespace TBF
