#include "xml/XMLBounds.h"

#include <algorithm>
#include <cctype>
#include <cstring>

namespace platform {

namespace {

constexpr std::string_view documentType = "<!DOCTYPE";
constexpr std::string_view encodingWord = "encoding";
constexpr std::string_view namespaceWord = "xmlns";

// By how their names begin, in capitals.
constexpr std::string_view singleByteEncodings[] = {"ISO-8859-", "WINDOWS-125", "KOI8-"};
constexpr std::string_view forms8Bit[] = {"UTF-8", "UTF8", "US-ASCII", "ASCII"};

bool isSpace(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

// What a tag's name begins with; anything beyond ASCII may be a letter.
bool beginsName(char c) {
    return std::isalpha(static_cast<unsigned char>(c)) || c == '_' || c == ':' || (c & 0x80) != 0;
}

// The length of the tag at the start of `bytes`: up to the first ">" outside of quotes, or to the next "<",
// which no tag holds. One more than the bound for any longer one.
std::size_t tagLength(std::string_view bytes) {
    const std::size_t end = std::min(bytes.size(), maxXMLTagLength + 1);
    char quote = 0;
    for (std::size_t i = 1; i < end; ++i) {
        const char c = bytes[i];
        if (c == '<') return i;
        if (quote != 0) {
            if (c == quote) quote = 0;
        } else if (c == '>') {
            return i + 1;
        } else if (c == '"' || c == '\'') {
            quote = c;
        }
    }
    return end;
}

std::size_t countOf(std::string_view word, std::string_view text) {
    std::size_t count = 0;
    for (std::size_t at = text.find(word); at != std::string_view::npos; at = text.find(word, at + 1))
        ++count;
    return count;
}

// Whether the document type at the start of `bytes` has definitions in brackets, or is too long to tell.
bool hasDefinitions(std::string_view bytes) {
    const std::size_t end = std::min(bytes.size(), maxXMLTagLength + 1);
    char quote = 0;
    for (std::size_t i = documentType.size(); i < end; ++i) {
        const char c = bytes[i];
        if (c == '[') return true; // even in quotes, which a parser may see otherwise
        if (quote == 0 && c == '>') return false;
        if (quote == 0 && (c == '"' || c == '\'')) {
            quote = c;
        } else if (c == quote) {
            quote = 0;
        }
    }
    return end > maxXMLTagLength;
}

} // namespace

std::string_view withoutByteOrderMark(std::string_view bytes) {
    if (bytes.starts_with(byteOrderMark)) bytes.remove_prefix(byteOrderMark.size());
    return bytes;
}

XMLEncoding declaredXMLEncoding(std::string_view bytes) {
    bytes = withoutByteOrderMark(bytes);
    // Two bytes for each character, without a declaration that could be read here.
    if (bytes.starts_with("\xFE\xFF") || bytes.starts_with("\xFF\xFE")) return XMLEncoding::other;
    if (bytes.size() >= 2 && (bytes[0] == 0 || bytes[1] == 0)) return XMLEncoding::other;
    if (!bytes.starts_with("<?xml")) return XMLEncoding::utf8;
    const std::string_view declaration = bytes.substr(0, bytes.find('>'));
    std::size_t at = declaration.find(encodingWord);
    if (at == std::string_view::npos) return XMLEncoding::utf8;
    at += encodingWord.size();
    while (at < declaration.size() && (isSpace(declaration[at]) || declaration[at] == '='))
        ++at;
    if (at == declaration.size()) return XMLEncoding::utf8; // no name: the parser says so
    const std::size_t end = declaration.find(declaration[at], at + 1);
    std::string name(declaration.substr(at + 1, end == std::string_view::npos ? end : end - at - 1));
    std::transform(name.begin(), name.end(), name.begin(), [](unsigned char c) { return std::toupper(c); });
    if (std::find(std::begin(forms8Bit), std::end(forms8Bit), name) != std::end(forms8Bit))
        return XMLEncoding::utf8;
    const bool isSingleByte = std::any_of(std::begin(singleByteEncodings), std::end(singleByteEncodings),
                                          [&](std::string_view start) { return name.starts_with(start); });
    return isSingleByte ? XMLEncoding::singleByte : XMLEncoding::other;
}

XMLExcess firstExcessOfXML(std::string_view bytes) {
    if (declaredXMLEncoding(bytes) == XMLEncoding::other)
        return {"is in an encoding that isn't read: it has to be UTF-8", 1};
    const auto excess = [bytes](std::string_view what, std::size_t offset) {
        const auto end = bytes.begin() + static_cast<std::ptrdiff_t>(offset);
        return XMLExcess{what, 1 + static_cast<std::size_t>(std::count(bytes.begin(), end, '\n'))};
    };
    std::size_t namespaces = 0;
    for (std::size_t at = bytes.find('<'); at != std::string_view::npos; at = bytes.find('<', at + 1)) {
        const std::string_view rest = bytes.substr(at);
        if (rest.starts_with(documentType) && hasDefinitions(rest))
            return excess("has definitions of its own (a document type)", at);
        if (rest.size() < 2 || !beginsName(rest[1])) continue;
        const std::size_t length = tagLength(rest);
        if (length > maxXMLTagLength) return excess("has a tag of over 4,096 bytes", at);
        namespaces += countOf(namespaceWord, rest.substr(0, length));
        if (namespaces > maxXMLNamespaces) return excess("has over 64 namespaces", at);
    }
    return {};
}

} // namespace platform
