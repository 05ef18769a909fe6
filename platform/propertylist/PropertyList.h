#pragma once

// A property list in memory: dictionaries and arrays of texts, numbers, booleans, dates and bytes, as content
// bundles and saved settings hold them. A plain value. Every question is safe on every value: what isn't
// there, or is of another kind, reads as null, and questions to null give null again, so that
// `list["Names"]["metre"]["singular"].string()` needs no test in between.
//
// Files are read in XML and in binary form, whichever it is, and written as XML. A file that is no property
// list, is cut off, or exceeds the bounds below, gives an error.

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace platform {

class PropertyList {
public:
    // What a file may hold at most: bytes, dictionaries and arrays within one another, and values in all.
    static constexpr std::size_t maximalFileSize = std::size_t{64} << 20;
    static constexpr int maximalDepth = 128;
    static constexpr std::size_t maximalCountOfValues = 2'000'000;

    enum class Kind { null, dictionary, array, string, integer, real, boolean, date, data };

    using Array = std::vector<PropertyList>;
    using Date = std::chrono::sys_time<std::chrono::milliseconds>; // XML keeps whole seconds
    using Data = std::vector<std::byte>;
    struct Entry;

    // Entries by key, in the order of the keys' bytes.
    class Dictionary {
    public:
        Dictionary();
        Dictionary(std::initializer_list<Entry> entries);
        ~Dictionary();
        Dictionary(const Dictionary&);
        Dictionary(Dictionary&&) noexcept;
        Dictionary& operator=(const Dictionary&);
        Dictionary& operator=(Dictionary&&) noexcept;

        const PropertyList* find(std::string_view key) const; // null for none
        PropertyList& operator[](std::string_view key);       // makes a null value for a new key
        void set(std::string_view key, PropertyList value);
        void remove(std::string_view key);
        std::size_t size() const;
        const Entry* begin() const;
        const Entry* end() const;
        bool operator==(const Dictionary& other) const;

        // Takes entries in any order; of several with one key the last stays.
        static Dictionary of(std::vector<Entry> entries);

    private:
        std::vector<Entry> sorted;
    };

    PropertyList() = default;
    PropertyList(Dictionary dictionary);
    PropertyList(Array array);
    PropertyList(std::string text); // UTF-8
    PropertyList(std::string_view text);
    PropertyList(const char* text);
    PropertyList(int64_t number);
    PropertyList(int number);
    PropertyList(double number);
    PropertyList(bool truth);
    PropertyList(Date date);
    PropertyList(Data bytes);
    ~PropertyList();
    PropertyList(const PropertyList&);
    PropertyList(PropertyList&&) noexcept;
    PropertyList& operator=(const PropertyList&);
    PropertyList& operator=(PropertyList&&) noexcept;

    Kind kind() const noexcept { return static_cast<Kind>(value.index()); }
    bool isNull() const noexcept { return kind() == Kind::null; }
    bool operator==(const PropertyList& other) const;

    // The contents; of another kind they are empty.
    const Dictionary& dictionary() const noexcept;
    const Array& array() const noexcept;

    // Null where there is no such entry.
    const PropertyList& operator[](std::string_view key) const noexcept;
    const PropertyList& at(std::size_t index) const noexcept;

    // The value, if it is of this kind; borrowed from the list.
    std::optional<std::string_view> string() const noexcept;
    std::optional<int64_t> integer() const noexcept;
    std::optional<double> real() const noexcept;
    std::optional<bool> boolean() const noexcept;
    std::optional<Date> date() const noexcept;
    const Data* data() const noexcept; // null for none

    // As a number or a truth, from what stands for one: numbers, booleans, and text that begins with an
    // integer
    // ("YES" and "true" are true as well).
    std::optional<int64_t> asInteger() const noexcept;
    std::optional<bool> asBoolean() const noexcept;

    // Files. None if there is an error, of which `error`, where given, then has one sentence with the path.
    // `isDamaged`, where given, tells a file whose bytes are no property list from one that couldn't be read.
    static std::optional<PropertyList> read(const std::string& path, std::string* error = nullptr,
                                            bool* isDamaged = nullptr);
    static std::optional<PropertyList> parse(std::string_view bytes, std::string* error = nullptr);

    // The old file or the new one is found at the path at any time, never a part. False with an error.
    bool write(const std::string& path, std::string* error = nullptr) const;

    // As a file has it. None for a value that isn't of a kind, or too deep.
    std::optional<std::string> text(std::string* error = nullptr) const;

private:
    std::variant<std::monostate, Dictionary, Array, std::string, int64_t, double, bool, Date, Data> value;
};

struct PropertyList::Entry {
    std::string key;
    PropertyList value;
    bool operator==(const Entry&) const = default;
};

} // namespace platform
