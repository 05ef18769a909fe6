// Writes the XML form.

#include "propertylist/PropertyListForms.h"

#include <unicode/utf8.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cstdio>

namespace platform {

namespace {

constexpr std::string_view opening = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                                     "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
                                     "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
                                     "<plist version=\"1.0\">\n";
constexpr std::string_view closing = "</plist>\n";
constexpr std::string_view replacement = "\xEF\xBF\xBD"; // U+FFFD

std::string_view escapeOf(UChar32 character) {
    switch (character) {
    case '&':
        return "&amp;";
    case '<':
        return "&lt;";
    case '>':
        return "&gt;";
    case '\r': // a parser would make a line end of it
        return "&#13;";
    default:
        break;
    }
    const bool isControl = character < 0x20 && character != '\t' && character != '\n';
    return character < 0 || isControl || character == 0xFFFE || character == 0xFFFF ? replacement
                                                                                    : std::string_view();
}

std::string dateText(PropertyList::Date date) {
    const auto seconds = std::chrono::floor<std::chrono::seconds>(std::clamp(date, earliestDate, latestDate));
    const auto days = std::chrono::floor<std::chrono::days>(seconds);
    const std::chrono::year_month_day day(days);
    const std::chrono::hh_mm_ss time(seconds - days);
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%04d-%02u-%02uT%02d:%02d:%02dZ", static_cast<int>(day.year()),
                  static_cast<unsigned>(day.month()), static_cast<unsigned>(day.day()),
                  static_cast<int>(time.hours().count()), static_cast<int>(time.minutes().count()),
                  static_cast<int>(time.seconds().count()));
    return text.data();
}

template <typename Number>
std::string numberText(Number number) {
    std::array<char, 64> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), number);
    return std::string(text.data(), end.ptr);
}

std::string base64Text(const PropertyList::Data& bytes) {
    constexpr std::string_view alphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string text;
    for (std::size_t i = 0; i < bytes.size(); i += 3) {
        const std::size_t count = std::min<std::size_t>(bytes.size() - i, 3);
        uint32_t bits = 0;
        for (std::size_t k = 0; k < 3; ++k)
            bits = bits << 8 | (k < count ? static_cast<uint32_t>(bytes[i + k]) : 0);
        for (std::size_t k = 0; k < 4; ++k)
            text += k <= count ? alphabet[bits >> (18 - 6 * k) & 0x3F] : '=';
    }
    return text;
}

class Writer {
public:
    bool write(const PropertyList& list, int depth);
    void append(std::string_view part) { text += part; }

    std::string text;
    const char* problem = nullptr;

private:
    void indent(int depth) { text.append(static_cast<std::size_t>(depth), '\t'); }
    void element(std::string_view name, std::string_view content, int depth);
    void appendEscaped(std::string_view content);
    bool writeDictionary(const PropertyList::Dictionary& dictionary, int depth);
    bool writeArray(const PropertyList::Array& array, int depth);
};

// What XML can't hold, controls and broken UTF-8, is replaced.
void Writer::appendEscaped(std::string_view content) {
    const auto* const bytes = reinterpret_cast<const uint8_t*>(content.data());
    const auto length = static_cast<int32_t>(content.size());
    for (int32_t i = 0; i < length;) {
        const int32_t start = i;
        UChar32 character = 0;
        U8_NEXT(bytes, i, length, character);
        const std::string_view escape = escapeOf(character);
        text += escape.empty()
                    ? content.substr(static_cast<std::size_t>(start), static_cast<std::size_t>(i - start))
                    : escape;
    }
}

void Writer::element(std::string_view name, std::string_view content, int depth) {
    indent(depth);
    text.append("<").append(name).append(">");
    appendEscaped(content);
    text.append("</").append(name).append(">\n");
}

bool Writer::writeDictionary(const PropertyList::Dictionary& dictionary, int depth) {
    indent(depth);
    append("<dict>\n");
    for (const PropertyList::Entry& entry : dictionary) {
        element("key", entry.key, depth + 1);
        if (!write(entry.value, depth + 1)) return false;
    }
    indent(depth);
    append("</dict>\n");
    return true;
}

bool Writer::writeArray(const PropertyList::Array& array, int depth) {
    indent(depth);
    append("<array>\n");
    for (const PropertyList& item : array)
        if (!write(item, depth + 1)) return false;
    indent(depth);
    append("</array>\n");
    return true;
}

// Recursive, to the depth that a list may have.
bool Writer::write(const PropertyList& list, int depth) {
    const auto kind = list.kind();
    const bool isContainer = kind == PropertyList::Kind::dictionary || kind == PropertyList::Kind::array;
    if (isContainer && depth >= PropertyList::maximalDepth) {
        problem = "too many values within one another";
        return false;
    }
    switch (kind) {
    case PropertyList::Kind::dictionary:
        return writeDictionary(list.dictionary(), depth);
    case PropertyList::Kind::array:
        return writeArray(list.array(), depth);
    case PropertyList::Kind::string:
        element("string", *list.string(), depth);
        return true;
    case PropertyList::Kind::integer:
        element("integer", numberText(*list.integer()), depth);
        return true;
    case PropertyList::Kind::real:
        element("real", numberText(*list.real()), depth);
        return true;
    case PropertyList::Kind::boolean:
        indent(depth);
        append(*list.boolean() ? "<true/>\n" : "<false/>\n");
        return true;
    case PropertyList::Kind::date:
        element("date", dateText(*list.date()), depth);
        return true;
    case PropertyList::Kind::data:
        element("data", base64Text(*list.data()), depth);
        return true;
    case PropertyList::Kind::null:
        break;
    }
    problem = "a value without a kind";
    return false;
}

} // namespace

std::optional<std::string> writeXMLPropertyList(const PropertyList& list, std::string& error) {
    Writer writer;
    writer.append(opening);
    if (!writer.write(list, 0)) {
        error = writer.problem;
        return std::nullopt;
    }
    writer.append(closing);
    return std::move(writer.text);
}

} // namespace platform
