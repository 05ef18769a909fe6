#include "export/TKInlinedStyle.h"

#include "export/TKLineCollectionExporterHTMLStyle.h"

#include <cctype>
#include <map>
#include <optional>

namespace {

using Style = TKLineCollectionExporterHTMLStyle;

bool isWordCharacter(char c) {
    return std::isalnum(static_cast<unsigned char>(c)) || c == '_';
}

bool isSpace(char c) {
    return std::isspace(static_cast<unsigned char>(c)) != 0;
}

struct Attribute {
    std::size_t start = 0; // in the tag's attribute text
    std::size_t length = 0;
    std::string_view value;
};

// The attribute `class="..."` with a value that isn't empty.
std::optional<Attribute> classAttribute(std::string_view attributes) {
    for (std::size_t start = attributes.find("class"); start != std::string_view::npos;
         start = attributes.find("class", start + 1)) {
        std::size_t at = start + 5;
        while (at < attributes.size() && isSpace(attributes[at]))
            ++at;
        if (at >= attributes.size() || attributes[at] != '=') continue;
        ++at;
        while (at < attributes.size() && isSpace(attributes[at]))
            ++at;
        if (at >= attributes.size() || attributes[at] != '"') continue;
        const std::size_t end = attributes.find('"', at + 1);
        if (end == std::string_view::npos || end == at + 1) continue;
        return Attribute{start, end + 1 - start, attributes.substr(at + 1, end - at - 1)};
    }
    return std::nullopt;
}

// What the style declares for one tag. The same few tags come again on every line of a page.
class Declarations {
public:
    explicit Declarations(const Style& pageStyle)
        : style(pageStyle) {}

    std::string of(std::string_view tag, std::string_view classes) {
        std::string result = forSelector(std::string(tag));
        std::size_t at = 0;
        while (at < classes.size()) {
            while (at < classes.size() && isSpace(classes[at]))
                ++at;
            const std::size_t start = at;
            while (at < classes.size() && !isSpace(classes[at]))
                ++at;
            if (at > start)
                result +=
                    forSelector(std::string(tag) + "." + std::string(classes.substr(start, at - start)));
        }
        return result;
    }

private:
    const std::string& forSelector(const std::string& selector) {
        const auto [entry, isNew] = known.try_emplace(selector);
        if (isNew) {
            const std::optional<std::string> css = style.cssForSelector(selector);
            if (css && !css->empty()) entry->second = *css + " ";
        }
        return entry->second;
    }

    const Style& style;
    std::map<std::string, std::string> known;
};

} // namespace

std::string TKPageWithInlinedStyle(std::string_view page, const Style& style) {
    Declarations declarations(style);
    std::string inlined;
    inlined.reserve(page.size() * 2);
    std::size_t at = 0;
    while (at < page.size()) {
        const std::size_t open = page.find('<', at);
        std::size_t nameEnd = open == std::string_view::npos ? page.size() : open + 1;
        while (nameEnd < page.size() && isWordCharacter(page[nameEnd]))
            ++nameEnd;
        const std::size_t close = page.find('>', nameEnd);
        if (open == std::string_view::npos || close == std::string_view::npos) break;
        inlined += page.substr(at, open - at);
        at = close + 1;
        const std::string_view name = page.substr(open + 1, nameEnd - open - 1);
        const std::string_view attributes = page.substr(nameEnd, close - nameEnd);
        const std::optional<Attribute> classes = classAttribute(attributes);
        const std::string css =
            name.empty() ? std::string() : declarations.of(name, classes ? classes->value : "");
        if (css.empty())
            inlined += page.substr(open, close + 1 - open);
        else if (classes)
            inlined += std::string(page.substr(open, nameEnd - open)) +
                       std::string(attributes.substr(0, classes->start)) + "style=\"" + css + "\"" +
                       std::string(attributes.substr(classes->start + classes->length)) + ">";
        else
            inlined += std::string(page.substr(open, close - open)) + " style=\"" + css + "\">";
    }
    return inlined + std::string(page.substr(at));
}
