#include "numbers/BaseConverter.h"

#include "numbers/Decimal.h"
#include "numbers/KernelLock.h"
#include "runtime/TBFLog.h"

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <utility>
#include <vector>

namespace TBF::BaseConverter {

namespace {

constexpr int noDigit = -1;
constexpr std::string_view digitCharacters = "0123456789ABCDEF";
constexpr std::size_t changeBaseMappingCount = digitCharacters.size();
constexpr std::size_t maxDecimalTextLength = 500;

// 15 digits of value 15 in base 16 still fit a long.
constexpr std::size_t digitsPerChunk = 15;

constexpr int digitValue(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return noDigit;
}

std::string_view digitsAtEnd(std::string_view text) {
    std::size_t start = text.size();
    while (start > 0 && digitValue(text[start - 1]) != noDigit)
        --start;
    return text.substr(start);
}

long chunkValue(std::string_view digits, int32_t base) {
    long value = 0;
    for (const char c : digits)
        value = value * base + digitValue(c);
    return value;
}

// Joins neighbours until one value is left, so that the long multiplications are few: literals have no
// bound in length. `chunks` begins with the lowest.
Decimal joinedChunks(std::vector<Decimal> chunks, int32_t base) {
    Decimal weight;
    m_apm_set_long(weight, base);
    m_apm_integer_pow_nr(weight, weight, static_cast<int>(digitsPerChunk));
    while (chunks.size() > 1) {
        std::vector<Decimal> joined;
        joined.reserve((chunks.size() + 1) / 2);
        for (std::size_t i = 0; i + 1 < chunks.size(); i += 2) {
            Decimal product;
            m_apm_multiply(product, chunks[i + 1], weight);
            Decimal sum;
            m_apm_add(sum, product, chunks[i]);
            joined.push_back(std::move(sum));
        }
        if (chunks.size() % 2 != 0) joined.push_back(std::move(chunks.back()));
        chunks = std::move(joined);
        if (chunks.size() > 1) {
            Decimal square;
            m_apm_multiply(square, weight, weight);
            weight = std::move(square);
        }
    }
    return std::move(chunks.front());
}

std::string wholeText(const Decimal& value) {
    std::string text(static_cast<std::size_t>(m_apm_fixpt_length(0, value)) + 1, '\0');
    m_apm_to_fixpt_string(text.data(), 0, value);
    text.resize(std::string_view(text.c_str()).size());
    return text;
}

std::size_t digitIndex(const Decimal& remainder) {
    char text[16] = {};
    m_apm_to_integer_string(text, remainder); // below 16, so two characters at most
    std::size_t index = 0;
    for (const char* c = text; *c != '\0'; ++c)
        index = index * 10 + static_cast<std::size_t>(*c - '0');
    VerifyTrue(index < changeBaseMappingCount, "%zu", index);
    return index;
}

} // namespace

std::string convertToDecimal(std::string_view text, int32_t base) {
    std::string_view digits = digitsAtEnd(text);
    if (digits.size() <= digitsPerChunk) return std::to_string(chunkValue(digits, base));

    const KernelLock lock;
    std::vector<Decimal> chunks;
    chunks.reserve(digits.size() / digitsPerChunk + 1);
    while (!digits.empty()) {
        const std::size_t count = std::min(digits.size(), digitsPerChunk);
        Decimal chunk;
        m_apm_set_long(chunk, chunkValue(digits.substr(digits.size() - count), base));
        chunks.push_back(std::move(chunk));
        digits.remove_suffix(count);
    }
    return wholeText(joinedChunks(std::move(chunks), base));
}

std::optional<std::string> prefixedToDecimal(std::string_view literal) {
    const char c1 = literal.empty() ? '\0' : literal.front();
    VerifyTrue(c1 == '0', "%d", c1);
    const char c2 = literal.size() < 2 ? '\0' : literal[1];
    if (c2 == 'b') return convertToDecimal(literal.substr(2), 2);
    if (c2 == 'x') return convertToDecimal(literal.substr(2), 16);
    return std::nullopt;
}

bool isPrefixed(std::string_view text) {
    return text.starts_with("0b") || text.starts_with("0x");
}

std::optional<std::string> fromDecimal(std::string_view decimal, uint8_t base, bool prefix) {
    if (base != 2 && base != 16) {
        if (!TBFErrorLogEnabled) return std::nullopt;
        std::fprintf(stderr, "error: can't convert to base %u. only bases 2, 16 are supported.\n", base);
        return std::nullopt;
    }
    if (decimal.size() > maxDecimalTextLength) return std::nullopt;

    const KernelLock lock;
    const Decimal value(std::string(decimal).c_str());
    // An exponent in the text may stand for more digits than the text has.
    if (m_apm_exponent(value) > static_cast<int>(maxDecimalTextLength)) return std::nullopt;
    Decimal rest;
    m_apm_absolute_value(rest, value);
    const Decimal divisor(static_cast<int>(base));
    Decimal quotient;
    Decimal remainder;
    std::string reversed;
    do {
        m_apm_integer_div_rem(quotient, remainder, rest, divisor);
        rest.swap(quotient);
        reversed.push_back(digitCharacters[digitIndex(remainder)]);
    } while (m_apm_sign(rest) != 0);
    if (prefix) reversed += base == 2 ? "b0" : "x0";
    if (m_apm_sign(value) < 0) reversed.push_back('-');
    std::reverse(reversed.begin(), reversed.end());
    return reversed;
}

} // namespace TBF::BaseConverter
