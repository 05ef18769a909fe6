#include "units/TCUnitNameReader.h"

#include "runtime/TBFLog.h"
#include "runtime/Unicode.h"

#include <array>
#include <charconv>
#include <utility>

using platform::PropertyList;

namespace {

struct NameKind {
    const char* single;
    const char* list;
    TCUnitNameType type;
    std::optional<std::u16string> TCUnitNames::*name;
};

constexpr NameKind nameKinds[] = {
    {"singular", "singulars", TCUnitNameTypeSingular, &TCUnitNames::singular},
    {"plural", "plurals", TCUnitNameTypePlural, &TCUnitNames::plural},
    {"symbol", "symbols", TCUnitNameTypeVeryShort, &TCUnitNames::veryShort},
};

struct AliasKind {
    const char* list;
    TCUnitNameType type;
};

constexpr AliasKind currencyAliasKinds[] = {
    {"singular", TCUnitNameTypeSingular},
    {"plurals", TCUnitNameTypePlural},
    {"symbols", TCUnitNameTypeVeryShort},
};

// Limits beyond which a factor is a mistake, and would cost more than it is worth.
constexpr std::size_t maximalLength = 1000;
constexpr int maximalExponent = 1000;

void appendTexts(std::vector<std::u16string>& texts, const PropertyList& list) {
    for (const PropertyList& item : list.array())
        if (auto text = TCTextOfValue(item)) texts.push_back(std::move(*text));
}

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view spaces = " \t\r\n";
    const std::size_t first = text.find_first_not_of(spaces);
    return first == text.npos ? std::string_view()
                              : text.substr(first, text.find_last_not_of(spaces) - first + 1);
}

// [+-]digits[.digits][e[+-]digits]
bool isDecimal(std::string_view text) {
    if (text.size() > maximalLength) return false;
    if (text.starts_with('-') || text.starts_with('+')) text.remove_prefix(1);
    const std::size_t end = std::min(text.find_first_of("eE"), text.size());
    std::size_t digits = 0;
    std::size_t points = 0;
    for (const char c : text.substr(0, end)) {
        if (!isDigit(c) && c != '.') return false;
        ++(c == '.' ? points : digits);
    }
    if (digits == 0 || points > 1) return false;
    if (end == text.size()) return true;
    std::string_view exponent = text.substr(end + 1);
    if (exponent.starts_with('+')) exponent.remove_prefix(1);
    int value = 0;
    const auto parsed = std::from_chars(exponent.data(), exponent.data() + exponent.size(), value);
    return parsed.ec == std::errc() && parsed.ptr == exponent.data() + exponent.size() &&
           value >= -maximalExponent && value <= maximalExponent;
}

} // namespace

std::optional<std::u16string> TCTextOfValue(const PropertyList& value) {
    if (const auto text = value.string()) return TBF::utf16(*text);
    const auto decimal = TCDecimalTextOfValue(value);
    return decimal ? std::optional(TBF::utf16(*decimal)) : std::nullopt;
}

std::optional<std::string> TCDecimalTextOfValue(const PropertyList& value) {
    if (const auto text = value.string()) {
        const std::string_view decimal = trimmed(*text);
        return isDecimal(decimal) ? std::optional(std::string(decimal)) : std::nullopt;
    }
    std::array<char, 64> buffer{};
    std::to_chars_result end{buffer.data(), std::errc()};
    if (const auto integer = value.integer()) {
        end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), *integer);
    } else if (const auto real = value.real()) {
        end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), *real);
    }
    const std::string_view decimal(buffer.data(), static_cast<std::size_t>(end.ptr - buffer.data()));
    return isDecimal(decimal) ? std::optional(std::string(decimal)) : std::nullopt;
}

std::vector<int64_t> TCIntegersOfText(std::string_view text) {
    constexpr std::string_view separators = ", \t\r\n\v\f";
    std::vector<int64_t> integers;
    for (std::size_t start = text.find_first_not_of(separators); start != text.npos;) {
        const std::size_t end = std::min(text.find_first_of(separators, start), text.size());
        std::string_view piece = text.substr(start, end - start);
        if (piece.starts_with('+')) piece.remove_prefix(1);
        int64_t number = 0;
        std::from_chars(piece.data(), piece.data() + piece.size(), number);
        integers.push_back(number);
        start = text.find_first_not_of(separators, end);
    }
    return integers;
}

TCUnitNames TCUnitNamesFromDictionary(const PropertyList& dictionary) {
    TCUnitNames names;
    for (const NameKind& kind : nameKinds) {
        const PropertyList& single = dictionary[kind.single];
        if (!single.isNull()) {
            names.*kind.name = TCTextOfValue(single);
            if (!single.string()) {
                TBFErrorLog("Warning: Unit %s is not a string: %s", kind.single,
                            TBF::utf8((names.*kind.name).value_or(u"(null)")).c_str());
            }
            continue;
        }
        std::vector<std::u16string> texts;
        appendTexts(texts, dictionary[kind.list]);
        if (texts.empty()) continue;
        names.*kind.name = std::move(texts.front());
        texts.erase(texts.begin());
        if (!texts.empty()) names.aliases[kind.type] = std::move(texts);
    }
    for (const PropertyList& item : dictionary["case-sensitive-names"].array())
        if (auto text = TCTextOfValue(item)) names.caseSensitiveNames.insert(std::move(*text));
    return names;
}

TCUnitNames TCCurrencyNamesFromDictionary(std::u16string_view code, const PropertyList& dictionary) {
    TCUnitNames names;
    const PropertyList& own = dictionary["names"];
    names.singular = TCTextOfValue(own["singular"]);
    names.plural = TCTextOfValue(own["plural"]);
    names.veryShort = std::u16string(code);
    names.symbol = TCTextOfValue(own["symbol"]);
    if (names.symbol) names.caseSensitiveNames.insert(*names.symbol);
    for (const AliasKind& kind : currencyAliasKinds) {
        std::vector<std::u16string> texts;
        appendTexts(texts, dictionary["aliases"][kind.list]);
        if (texts.empty()) continue;
        if (kind.type == TCUnitNameTypeVeryShort) names.caseSensitiveNames.insert(texts.begin(), texts.end());
        names.aliases[kind.type] = std::move(texts);
    }
    return names;
}
