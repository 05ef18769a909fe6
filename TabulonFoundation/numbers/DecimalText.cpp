#include "numbers/DecimalText.h"

#include "numbers/KernelLock.h"

#include <cstdlib>
#include <cstring>

namespace TBF {

std::string groupedText(std::string_view text, int32_t groupSize, bool hasPrefix) {
    constexpr std::size_t prefixLength = 2;
    std::size_t begin = text.starts_with('-') ? 1 : 0;
    if (hasPrefix) begin += prefixLength;
    const std::size_t point = text.find('.');
    const std::size_t end = point == text.npos ? text.size() : point;
    if (groupSize < 1 || end <= begin) return std::string(text);

    const auto size = static_cast<std::size_t>(groupSize);
    std::string grouped;
    grouped.reserve(text.size() + (end - begin) / size);
    grouped.append(text.substr(0, begin));
    for (std::size_t index = begin; index < end; ++index) {
        if (index > begin && (end - index) % size == 0) grouped += ',';
        grouped += text[index];
    }
    grouped.append(text.substr(end));
    return grouped;
}

std::string fixedText(M_APM value, int32_t places) {
    const KernelLock lock;
    std::string text(static_cast<std::size_t>(m_apm_fixpt_length(places, value)) + 1, '\0');
    m_apm_to_fixpt_string(text.data(), places, value);
    text.resize(std::strlen(text.c_str()));
    return text;
}

char* mallocText(std::string_view text) {
    auto* const copy = static_cast<char*>(std::malloc(text.size() + 1));
    if (!copy) return nullptr;
    std::memcpy(copy, text.data(), text.size());
    copy[text.size()] = '\0';
    return copy;
}

} // namespace TBF
