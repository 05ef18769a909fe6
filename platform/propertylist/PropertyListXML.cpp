// Reads the XML form through libxml2's parser events, so that no tree of nodes stands between the file and
// the values. Entities beyond those of XML itself aren't known, and nothing outside of the bytes is read.

#include "propertylist/PropertyListForms.h"
#include "xml/XMLBounds.h"
#include "xml/XMLFeed.h"

#include <libxml/SAX2.h>
#include <libxml/parser.h>
#include <libxml/parserInternals.h>
#include <libxml/xmlerror.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <new>
#include <utility>

namespace platform {

namespace {

enum class Element { plist, dict, array, key, string, integer, real, yes, no, date, data, unknown };

struct ElementName {
    std::string_view name;
    Element element;
};

constexpr ElementName elementNames[] = {
    {"key", Element::key},     {"string", Element::string},   {"dict", Element::dict},
    {"array", Element::array}, {"integer", Element::integer}, {"true", Element::yes},
    {"false", Element::no},    {"real", Element::real},       {"date", Element::date},
    {"data", Element::data},   {"plist", Element::plist},
};

Element elementNamed(std::string_view name) {
    for (const ElementName& row : elementNames)
        if (row.name == name) return row.element;
    return Element::unknown;
}

bool isContainer(Element element) {
    return element == Element::plist || element == Element::dict || element == Element::array;
}

std::string_view trimmed(std::string_view text) {
    const auto isSpace = [](char c) { return c == ' ' || (c >= '\t' && c <= '\r'); };
    while (!text.empty() && isSpace(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isSpace(text.back()))
        text.remove_suffix(1);
    return text;
}

template <typename Number, typename... Arguments>
std::optional<Number> numberFrom(std::string_view text, Arguments... arguments) {
    Number number{};
    const auto end = std::from_chars(text.data(), text.data() + text.size(), number, arguments...);
    const bool isAll = end.ec == std::errc() && end.ptr == text.data() + text.size();
    return isAll ? std::optional(number) : std::nullopt;
}

std::optional<int64_t> integerFrom(std::string_view text) {
    text = trimmed(text);
    if (text.starts_with('+')) text.remove_prefix(1);
    if (text.starts_with("0x") || text.starts_with("0X")) return numberFrom<int64_t>(text.substr(2), 16);
    return numberFrom<int64_t>(text, 10);
}

std::optional<double> realFrom(std::string_view text) {
    text = trimmed(text);
    if (text.starts_with('+')) text.remove_prefix(1);
    return numberFrom<double>(text);
}

// "2014-03-01T12:30:00Z"
std::optional<PropertyList::Date> dateFrom(std::string_view text) {
    text = trimmed(text);
    constexpr std::string_view pattern = "dddd-dd-ddTdd:dd:ddZ";
    if (text.size() != pattern.size()) return std::nullopt;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isDigit = text[i] >= '0' && text[i] <= '9';
        if (pattern[i] == 'd' ? !isDigit : text[i] != pattern[i]) return std::nullopt;
    }
    const auto number = [text](std::size_t at, std::size_t length) {
        return numberFrom<int>(text.substr(at, length)).value_or(0);
    };
    const std::chrono::year_month_day day{std::chrono::year(number(0, 4)),
                                          std::chrono::month(static_cast<unsigned>(number(5, 2))),
                                          std::chrono::day(static_cast<unsigned>(number(8, 2)))};
    const int hours = number(11, 2);
    const int minutes = number(14, 2);
    const int seconds = number(17, 2);
    if (!day.ok() || day.year() < std::chrono::year(1) || hours > 23 || minutes > 59 || seconds > 60)
        return std::nullopt;
    return std::chrono::sys_days(day) + std::chrono::hours(hours) + std::chrono::minutes(minutes) +
           std::chrono::seconds(seconds);
}

constexpr std::array<int8_t, 256> base64Digits = [] {
    std::array<int8_t, 256> digits{};
    digits.fill(-1);
    constexpr std::string_view alphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    for (std::size_t i = 0; i < alphabet.size(); ++i)
        digits[static_cast<unsigned char>(alphabet[i])] = static_cast<int8_t>(i);
    return digits;
}();

std::optional<PropertyList::Data> dataFrom(std::string_view text) {
    PropertyList::Data bytes;
    uint32_t bits = 0;
    int count = 0;
    for (const char c : text) {
        if (c == '=' || std::isspace(static_cast<unsigned char>(c))) continue;
        const int8_t digit = base64Digits[static_cast<unsigned char>(c)];
        if (digit < 0) return std::nullopt;
        bits = (bits << 6 | static_cast<uint32_t>(digit)) & 0xFFFFFF;
        count += 6;
        if (count < 8) continue;
        count -= 8;
        bytes.push_back(static_cast<std::byte>(bits >> count & 0xFF));
    }
    return bytes;
}

// A value that is being read, with what it holds so far.
struct Open {
    Element element = Element::plist;
    std::vector<PropertyList::Entry> entries; // of a dictionary
    PropertyList::Array items;                // of an array, and the one value of the root
    std::optional<std::string> key;           // that waits for its value
};

class Reader {
public:
    explicit Reader(std::string_view text)
        : bytes(text) {}

    std::optional<PropertyList> read(std::string& error);

private:
    static Reader& self(void* reader) { return *static_cast<Reader*>(reader); }
    static void onStart(void* reader, const xmlChar* name, const xmlChar*, const xmlChar*, int,
                        const xmlChar**, int, int, const xmlChar**) {
        self(reader).start(reinterpret_cast<const char*>(name));
    }
    static void onEnd(void* reader, const xmlChar*, const xmlChar*, const xmlChar*) { self(reader).end(); }
    static void onText(void* reader, const xmlChar* text, int length) {
        self(reader).characters({reinterpret_cast<const char*>(text), static_cast<std::size_t>(length)});
    }
    static void onError(void* reader, xmlErrorPtr problem) {
        Reader& own = self(reader);
        if (problem->level < XML_ERR_ERROR || !own.failure.empty()) return;
        const std::string_view message = problem->message ? problem->message : "not well-formed";
        own.failure = "line " + std::to_string(problem->line) + ": " + std::string(trimmed(message));
    }

    void start(std::string_view name);
    void end();
    void characters(std::string_view part);
    void endContainer();
    void add(PropertyList value);
    std::optional<PropertyList> leafValue() const;
    void fail(std::string message);

    std::string_view bytes;
    xmlParserCtxtPtr parser = nullptr;
    std::vector<Open> open;
    Element leaf = Element::unknown; // the element whose text is being read
    bool isInLeaf = false;
    std::string content;
    std::size_t countOfValues = 0;
    std::optional<PropertyList> result;
    std::string failure;
};

void Reader::fail(std::string message) {
    if (failure.empty()) {
        failure = "line " + std::to_string(xmlSAX2GetLineNumber(parser)) + ": " + std::move(message);
    }
    xmlStopParser(parser);
}

void Reader::start(std::string_view name) {
    if (!failure.empty()) return;
    const Element element = elementNamed(name);
    if (element == Element::unknown) return fail("unknown element <" + std::string(name) + ">");
    if (isInLeaf) return fail("an element within a value");
    if (open.empty() != (element == Element::plist)) {
        return fail(open.empty() ? "no property list" : "a property list within a property list");
    }
    if (!open.empty()) {
        const Open& parent = open.back();
        if ((parent.element == Element::dict && !parent.key) != (element == Element::key)) {
            return fail(element == Element::key ? "a key without need" : "a value without a key");
        }
        if (parent.element == Element::plist && !parent.items.empty()) return fail("more than one value");
    }
    if (++countOfValues > PropertyList::maximalCountOfValues) return fail("too many values");
    if (!isContainer(element)) {
        isInLeaf = true;
        leaf = element;
        content.clear();
    } else if (open.size() > static_cast<std::size_t>(PropertyList::maximalDepth)) {
        fail("too many values within one another");
    } else {
        open.emplace_back().element = element;
    }
}

void Reader::characters(std::string_view part) {
    if (!failure.empty()) return;
    if (isInLeaf) {
        content += part;
    } else if (!trimmed(part).empty()) {
        fail("text outside of a value");
    }
}

std::optional<PropertyList> Reader::leafValue() const {
    const auto wrapped = [](auto&& value) {
        return value ? std::optional(PropertyList(std::move(*value))) : std::nullopt;
    };
    switch (leaf) {
    case Element::string:
        return PropertyList(content);
    case Element::integer:
        return wrapped(integerFrom(content));
    case Element::real:
        return wrapped(realFrom(content));
    case Element::date:
        return wrapped(dateFrom(content));
    case Element::data:
        return wrapped(dataFrom(content));
    default:
        return PropertyList(leaf == Element::yes);
    }
}

void Reader::end() {
    if (!failure.empty()) return;
    if (!isInLeaf) return endContainer();
    isInLeaf = false;
    if (leaf == Element::key) {
        open.back().key = content;
    } else if (auto value = leafValue()) {
        add(std::move(*value));
    } else {
        constexpr std::size_t shown = 40;
        std::string sentence = "\"";
        sentence.append(content, 0, shown).append("\" is no value of its kind");
        fail(sentence);
    }
}

void Reader::endContainer() {
    Open done = std::move(open.back());
    open.pop_back();
    if (done.key) return fail("a key without a value");
    if (done.element == Element::dict) {
        add(PropertyList(PropertyList::Dictionary::of(std::move(done.entries))));
    } else if (done.element == Element::array) {
        add(PropertyList(std::move(done.items)));
    } else if (done.items.empty()) {
        fail("no value");
    } else {
        result = std::move(done.items.front());
    }
}

void Reader::add(PropertyList value) {
    Open& parent = open.back();
    if (parent.element == Element::dict) {
        parent.entries.push_back({std::move(*parent.key), std::move(value)});
        parent.key.reset();
    } else {
        parent.items.push_back(std::move(value));
    }
}

std::optional<PropertyList> Reader::read(std::string& error) {
    if (const XMLExcess excess = firstExcessOfXML(bytes)) {
        error = "line " + std::to_string(excess.line) + ": it " + std::string(excess.what);
        return std::nullopt;
    }
    XMLFeed feed(bytes);
    const XMLParser context = feed.makeParser();
    if (!context) throw std::bad_alloc();
    parser = context.get();
    *context->sax = xmlSAXHandler{};
    context->sax->initialized = XML_SAX2_MAGIC;
    context->sax->startElementNs = onStart;
    context->sax->endElementNs = onEnd;
    context->sax->characters = onText;
    context->sax->cdataBlock = onText;
    context->sax->serror = onError;
    context->userData = this;
    xmlParseDocument(context.get());
    // Nothing is wrong with the file then.
    if (context->errNo == XML_ERR_NO_MEMORY) throw std::bad_alloc();
    if (feed.hasTooManyNames()) failure = "over 10,000 different names";
    if (failure.empty() && !context->wellFormed) failure = "not well-formed";
    if (failure.empty() && !result) failure = "no property list";
    if (!failure.empty()) {
        error = std::move(failure);
        return std::nullopt;
    }
    return std::move(result);
}

} // namespace

std::optional<PropertyList> readXMLPropertyList(std::string_view bytes, std::string& error) {
    return Reader(bytes).read(error);
}

} // namespace platform
