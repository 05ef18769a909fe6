#pragma once

// Plain decimal texts and what results do with them: zeros cut off, thousands grouped. Pure functions but for
// `fixedText`, which takes the kernel's lock.

#include "m_apm.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace TBF {

// Without the zeros at the end of the decimals, and without a point that has none left. A text without a
// point, or that starts with it, stays as it is.
template <typename Character>
constexpr std::basic_string_view<Character> withoutTrailingZeros(std::basic_string_view<Character> text) {
    const std::size_t point = text.find(Character('.'));
    if (point == 0 || point == text.npos) return text;
    const std::size_t last = text.find_last_not_of(Character('0'));
    return text.substr(0, last == point ? point : last + 1);
}

// `text` with a comma between groups of `groupSize` digits of the whole part, counted from the right. The
// sign, and a two-character base prefix where `hasPrefix`, aren't digits. No groups for a size below 1.
std::string groupedText(std::string_view text, int32_t groupSize, bool hasPrefix);

// `value` in plain decimal text with exactly `places` decimals, halves away from zero; all digits, and at
// least one decimal, for negative places.
std::string fixedText(M_APM value, int32_t places);

// A NUL-terminated copy that the caller frees with free.
char* mallocText(std::string_view text);

} // namespace TBF
