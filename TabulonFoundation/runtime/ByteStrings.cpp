#include "runtime/ByteStrings.h"

#include "runtime/Unicode.h"

#include <algorithm>

namespace tbf {

std::vector<std::string> stringSplit(const std::string& text, char separator) {
    std::vector<std::string> pieces;
    std::size_t start = 0;
    while (start < text.size()) {
        const std::size_t end = std::min(text.find(separator, start), text.size());
        if (end > start) pieces.emplace_back(text, start, end - start);
        start = end + 1;
    }
    return pieces;
}

void stringReplaceAll(std::string& text, const std::string& from, const std::string& to) {
    if (from.empty()) return;
    std::string result;
    std::size_t start = 0;
    for (std::size_t found = text.find(from); found != std::string::npos; found = text.find(from, start)) {
        result.append(text, start, found - start).append(to);
        start = found + from.size();
    }
    if (start == 0) return;
    result.append(text, start);
    text = std::move(result);
}

void stringReplaceAll(std::string& text, TBFChar from, char to) {
    if (from < 0x80) {
        std::replace(text.begin(), text.end(), static_cast<char>(from), to);
    } else {
        stringReplaceAll(text, from, std::string(1, to));
    }
}

void stringReplaceAll(std::string& text, TBFChar from, const std::string& to) {
    stringReplaceAll(text, TBF::utf8({&from, 1}), to);
}

} // namespace tbf
