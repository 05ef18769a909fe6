#include "expressions/TCExpressionClues.h"

#include <algorithm>
#include <bit>
#include <limits>

namespace {

constexpr bool isDigit(char16_t unit) {
    return unit >= u'0' && unit <= u'9';
}

constexpr bool isDelimiter(char16_t unit) {
    return unit == u' ' || unit == u')';
}

// A regular expression's "$" stands in front of a last line end, too.
constexpr bool isLineEnd(char16_t unit) {
    return (unit >= 0x0A && unit <= 0x0D) || unit == 0x85 || unit == 0x2028 || unit == 0x2029;
}

constexpr char16_t inLowerCase(char16_t unit) {
    return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + (u'a' - u'A')) : unit;
}

constexpr char16_t inUpperCase(char16_t unit) {
    return unit >= u'a' && unit <= u'z' ? static_cast<char16_t>(unit - (u'a' - u'A')) : unit;
}

constexpr bool isASCII(char16_t unit) {
    return unit < 128;
}

// Without regard to case, these equal letters of ASCII, some of them two or three at once: sharp s, long s,
// the Kelvin sign, ligatures, letters with marks.
constexpr bool mayEqualASCIILetters(char16_t unit) {
    return unit == 0xDF || unit == 0x130 || unit == 0x131 || unit == 0x149 || unit == 0x17F ||
           unit == 0x1F0 || (unit >= 0x1E96 && unit <= 0x1E9E) || unit == 0x212A ||
           (unit >= 0xFB00 && unit <= 0xFB06);
}

// Where the question is open, the answer is yes.
bool mayBeginWith(std::u16string_view text, std::u16string_view word) {
    for (std::size_t i = 0; i < word.size(); ++i) {
        if (i >= text.size()) return false;
        if (mayEqualASCIILetters(text[i])) return true;
        if (inLowerCase(text[i]) != word[i]) return false;
    }
    return true;
}

// Letters beyond ASCII may equal any number of others; one of them leaves the question open.
bool mayStandBefore(std::u16string_view word, std::u16string_view text) {
    for (std::size_t i = 1; i <= word.size(); ++i) {
        if (i > text.size()) return false;
        const char16_t wanted = word[word.size() - i];
        const char16_t unit = text[text.size() - i];
        if (!isASCII(wanted) || !isASCII(unit)) return true;
        if (inLowerCase(wanted) != inLowerCase(unit)) return false;
    }
    return true;
}

} // namespace

std::optional<TCExpressionClues::Set> TCExpressionClues::add(const TCExpressionClue& clue) {
    if (clue.text.empty()) return std::nullopt;
    const auto known = std::ranges::find(clues, clue);
    const auto index = static_cast<std::size_t>(known - clues.begin());
    if (index >= std::numeric_limits<Set>::digits) return std::nullopt;
    const Set bit = Set{1} << index;
    if (known == clues.end()) {
        clues.push_back(clue);
        if (clue.place == TCExpressionCluePlaceBeforeDigit) {
            for (char16_t digit = u'0'; digit <= u'9'; ++digit)
                triedAt[digit] |= bit;
        } else if (clue.place == TCExpressionCluePlaceInAnyCase && isASCII(clue.text.front())) {
            triedAt[clue.text.front()] |= bit;
            triedAt[inUpperCase(clue.text.front())] |= bit;
            triedAtOthers |= bit;
        } else if (isASCII(clue.text.front())) {
            triedAt[clue.text.front()] |= bit;
        } else {
            triedAtOthers |= bit;
        }
    }
    return bit;
}

TCExpressionClues::Set TCExpressionClues::presentIn(std::u16string_view text) const {
    Set present = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i];
        Set untried = (isASCII(unit) ? triedAt[unit] : triedAtOthers) & ~present;
        for (; untried != 0; untried &= untried - 1) {
            const Set bit = untried & (~untried + 1);
            if (standsAt(clues[static_cast<std::size_t>(std::countr_zero(bit))], text, i)) present |= bit;
        }
    }
    return present;
}

bool TCExpressionClues::standsAt(const TCExpressionClue& clue, std::u16string_view text,
                                 std::size_t index) const {
    if (clue.place == TCExpressionCluePlaceBeforeDigit)
        return mayStandBefore(clue.text, text.substr(0, index));
    if (clue.place == TCExpressionCluePlaceInAnyCase) return mayBeginWith(text.substr(index), clue.text);
    const bool isDelimited = clue.place == TCExpressionCluePlaceDelimited;
    if (isDelimited && (index == 0 || !isDelimiter(text[index - 1]))) return false;
    if (!text.substr(index).starts_with(clue.text)) return false;
    if (!isDelimited) return true;
    const std::size_t end = index + clue.text.size();
    return end == text.size() || isDelimiter(text[end]) || isLineEnd(text[end]);
}
