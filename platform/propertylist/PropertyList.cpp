#include "propertylist/PropertyList.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cmath>
#include <utility>

namespace platform {

namespace {

const PropertyList& nothing() {
    static const auto& null = *new PropertyList;
    return null;
}

// The integer that the text begins with, as far as it is one.
std::optional<int64_t> leadingInteger(std::string_view text) {
    while (!text.empty() && std::isspace(static_cast<unsigned char>(text.front())))
        text.remove_prefix(1);
    if (text.starts_with('+')) text.remove_prefix(1);
    int64_t number = 0;
    const auto end = std::from_chars(text.data(), text.data() + text.size(), number);
    return end.ec == std::errc() ? std::optional(number) : std::nullopt;
}

std::optional<int64_t> wholeNumber(double number) {
    constexpr double limit = 9.0e18;
    return std::abs(number) < limit ? std::optional(static_cast<int64_t>(number)) : std::nullopt;
}

struct KeyLess {
    bool operator()(const PropertyList::Entry& a, const PropertyList::Entry& b) const {
        return a.key < b.key;
    }
    bool operator()(const PropertyList::Entry& a, std::string_view b) const { return a.key < b; }
};

} // namespace

PropertyList::Dictionary::Dictionary() = default;
PropertyList::Dictionary::Dictionary(std::initializer_list<Entry> entries) {
    *this = of(std::vector<Entry>(entries));
}
PropertyList::Dictionary::~Dictionary() = default;
PropertyList::Dictionary::Dictionary(const Dictionary&) = default;
PropertyList::Dictionary::Dictionary(Dictionary&&) noexcept = default;
PropertyList::Dictionary& PropertyList::Dictionary::operator=(const Dictionary&) = default;
PropertyList::Dictionary& PropertyList::Dictionary::operator=(Dictionary&&) noexcept = default;

PropertyList::Dictionary PropertyList::Dictionary::of(std::vector<Entry> entries) {
    std::stable_sort(entries.begin(), entries.end(), KeyLess());
    // Backwards, so that of equal keys the last one is met first.
    const auto kept = std::unique(entries.rbegin(), entries.rend(),
                                  [](const Entry& a, const Entry& b) { return a.key == b.key; });
    entries.erase(entries.begin(), kept.base());
    Dictionary dictionary;
    dictionary.sorted = std::move(entries);
    return dictionary;
}

const PropertyList* PropertyList::Dictionary::find(std::string_view key) const {
    const auto place = std::lower_bound(sorted.begin(), sorted.end(), key, KeyLess());
    return place != sorted.end() && place->key == key ? &place->value : nullptr;
}

PropertyList& PropertyList::Dictionary::operator[](std::string_view key) {
    auto place = std::lower_bound(sorted.begin(), sorted.end(), key, KeyLess());
    if (place == sorted.end() || place->key != key) {
        place = sorted.insert(place, Entry{std::string(key), PropertyList()});
    }
    return place->value;
}

void PropertyList::Dictionary::set(std::string_view key, PropertyList newValue) {
    (*this)[key] = std::move(newValue);
}

void PropertyList::Dictionary::remove(std::string_view key) {
    std::erase_if(sorted, [key](const Entry& entry) { return entry.key == key; });
}

std::size_t PropertyList::Dictionary::size() const {
    return sorted.size();
}

const PropertyList::Entry* PropertyList::Dictionary::begin() const {
    return sorted.data();
}

const PropertyList::Entry* PropertyList::Dictionary::end() const {
    return sorted.data() + sorted.size();
}

bool PropertyList::Dictionary::operator==(const Dictionary& other) const {
    return sorted == other.sorted;
}

PropertyList::PropertyList(Dictionary dictionary)
    : value(std::move(dictionary)) {}
PropertyList::PropertyList(Array array)
    : value(std::move(array)) {}
PropertyList::PropertyList(std::string text)
    : value(std::move(text)) {}
PropertyList::PropertyList(std::string_view text)
    : value(std::string(text)) {}
PropertyList::PropertyList(const char* text)
    : value(std::string(text ? text : "")) {}
PropertyList::PropertyList(int64_t number)
    : value(number) {}
PropertyList::PropertyList(int number)
    : value(int64_t{number}) {}
PropertyList::PropertyList(double number)
    : value(number) {}
PropertyList::PropertyList(bool truth)
    : value(truth) {}
PropertyList::PropertyList(Date date)
    : value(date) {}
PropertyList::PropertyList(Data bytes)
    : value(std::move(bytes)) {}
PropertyList::~PropertyList() = default;
PropertyList::PropertyList(const PropertyList&) = default;
PropertyList::PropertyList(PropertyList&&) noexcept = default;
PropertyList& PropertyList::operator=(const PropertyList&) = default;
PropertyList& PropertyList::operator=(PropertyList&&) noexcept = default;

bool PropertyList::operator==(const PropertyList& other) const {
    return value == other.value;
}

const PropertyList::Dictionary& PropertyList::dictionary() const noexcept {
    static const auto& none = *new Dictionary;
    const auto* const own = std::get_if<Dictionary>(&value);
    return own ? *own : none;
}

const PropertyList::Array& PropertyList::array() const noexcept {
    static const auto& none = *new Array;
    const auto* const own = std::get_if<Array>(&value);
    return own ? *own : none;
}

const PropertyList& PropertyList::operator[](std::string_view key) const noexcept {
    const PropertyList* const found = dictionary().find(key);
    return found ? *found : nothing();
}

const PropertyList& PropertyList::at(std::size_t index) const noexcept {
    const Array& items = array();
    return index < items.size() ? items[index] : nothing();
}

std::optional<std::string_view> PropertyList::string() const noexcept {
    const auto* const own = std::get_if<std::string>(&value);
    return own ? std::optional<std::string_view>(*own) : std::nullopt;
}

std::optional<int64_t> PropertyList::integer() const noexcept {
    const auto* const own = std::get_if<int64_t>(&value);
    return own ? std::optional(*own) : std::nullopt;
}

std::optional<double> PropertyList::real() const noexcept {
    const auto* const own = std::get_if<double>(&value);
    return own ? std::optional(*own) : std::nullopt;
}

std::optional<bool> PropertyList::boolean() const noexcept {
    const auto* const own = std::get_if<bool>(&value);
    return own ? std::optional(*own) : std::nullopt;
}

std::optional<PropertyList::Date> PropertyList::date() const noexcept {
    const auto* const own = std::get_if<Date>(&value);
    return own ? std::optional(*own) : std::nullopt;
}

const PropertyList::Data* PropertyList::data() const noexcept {
    return std::get_if<Data>(&value);
}

std::optional<int64_t> PropertyList::asInteger() const noexcept {
    switch (kind()) {
    case Kind::integer:
        return integer();
    case Kind::real:
        return wholeNumber(*real());
    case Kind::boolean:
        return *boolean() ? 1 : 0;
    case Kind::string:
        return leadingInteger(*string());
    default:
        return std::nullopt;
    }
}

std::optional<bool> PropertyList::asBoolean() const noexcept {
    if (const auto text = string()) {
        if (*text == "YES" || *text == "true") return true;
        if (*text == "NO" || *text == "false") return false;
    }
    const std::optional<int64_t> number = asInteger();
    return number ? std::optional(*number != 0) : std::nullopt;
}

} // namespace platform
