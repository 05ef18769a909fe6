#include "export/TKFormattableText.h"

#include <algorithm>

std::u16string TKFormattableText::string() const {
    std::u16string text;
    text.reserve(length());
    text = before;
    text.append(behind.rbegin(), behind.rend());
    return text;
}

std::u16string TKFormattableText::substring(TBFRange range) const {
    const std::size_t start = std::min(static_cast<std::size_t>(std::max(range.location, 0)), length());
    const std::size_t end = std::min(static_cast<std::size_t>(std::max(range.end(), 0)), length());
    std::u16string text;
    for (std::size_t i = start; i < end; ++i)
        text += i < before.size() ? before[i] : behind[length() - 1 - i];
    return text;
}

void TKFormattableText::replace(TBFRange range, std::u16string_view replacement) {
    const std::size_t start = std::min(static_cast<std::size_t>(std::max(range.location, 0)), length());
    const std::size_t end = std::clamp(static_cast<std::size_t>(std::max(range.end(), 0)), start, length());
    moveGap(start);
    behind.resize(behind.size() - (end - start));
    before += replacement;
}

void TKFormattableText::moveGap(std::size_t location) {
    while (before.size() > location) {
        behind += before.back();
        before.pop_back();
    }
    while (before.size() < location) {
        before += behind.back();
        behind.pop_back();
    }
}
