#pragma once

// The string of the foundation's handles: an immutable sequence of UTF-16 code units with a cached
// hash, in one allocation. Indexes and lengths count code units. Code that analyses text works on
// `view()`; a String is made where a text has to outlive its source. Strings may be shared between
// threads.

#include "runtime/Object.h"
#include "runtime/Ref.h"

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <new>
#include <string>
#include <string_view>

namespace TBF {

class String final : public Object<String> {
public:
    // A string of a copy of the code units.
    static Ref<String> create(std::u16string_view text);

    // Decodes the bytes; broken sequences become U+FFFD.
    static Ref<String> createWithUTF8(std::string_view bytes);

    // The decimal text of `value`.
    static Ref<String> createWithInteger(int64_t value);

    // A string of `a` followed by `b`.
    static Ref<String> createWithConcatenation(std::u16string_view a, std::u16string_view b);

    // The shared string of no code units.
    static const Ref<String>& empty();

    // Valid as long as the string lives. The units are followed by a NUL.
    std::u16string_view view() const noexcept { return {characters(), count}; }
    std::u16string utf16() const { return std::u16string(view()); }
    std::string utf8() const;

    int32_t length() const noexcept { return static_cast<int32_t>(count); }
    bool isEmpty() const noexcept { return count == 0; }

    // 0 for an index outside of the string.
    char16_t at(int32_t index) const noexcept {
        return index >= 0 && static_cast<std::size_t>(index) < count ? characters()[index] : u'\0';
    }

    // The part of the range that lies inside of the string; the string itself if that is all of it.
    Ref<String> substring(int32_t location, int32_t length) const;

    // The lower-case form, without regard to any locale; the string itself if nothing changes.
    Ref<String> lowercase() const;

    // Computed at most once. Equal to `hashOf(view())`.
    std::size_t hash() const noexcept;
    static std::size_t hashOf(std::u16string_view text) noexcept;

    bool equals(const String& other) const noexcept;

    // Knows the size of the memory from the string itself.
    static void operator delete(String* string, std::destroying_delete_t);

private:
    friend class Object<String>;

    // A string of `length` code units yet to be written, then only to be read.
    static Ref<String> createUninitialized(std::size_t length);

    // Of a string of that many code units, with the NUL.
    static constexpr std::size_t sizeFor(std::size_t length);
    static void* operator new(std::size_t size, std::size_t length);

    explicit String(std::size_t length) noexcept;
    ~String() override = default;

    // The code units stand right behind the object.
    const char16_t* characters() const noexcept { return reinterpret_cast<const char16_t*>(this + 1); }
    char16_t* characters() noexcept { return reinterpret_cast<char16_t*>(this + 1); }

    std::size_t count;
    mutable std::atomic<std::size_t> cachedHash{0}; // 0 while unknown
};

// A text with its hash, for a search in several places. Borrows the text.
struct HashedText {
    std::u16string_view text;
    std::size_t hash;

    explicit HashedText(std::u16string_view view) noexcept
        : text(view)
        , hash(String::hashOf(view)) {}
    explicit HashedText(const String& string) noexcept
        : text(string.view())
        , hash(string.hash()) {}
};

// Tells of most texts that aren't in a set that they aren't, by one bit of their hashes. Texts stay in it.
class HashFilter {
public:
    void add(std::size_t hash) noexcept { words[indexOf(hash)] |= bitOf(hash); }
    bool mayHold(std::size_t hash) const noexcept { return (words[indexOf(hash)] & bitOf(hash)) != 0; }
    void clear() noexcept { words = {}; }

private:
    static constexpr std::size_t count = 16; // words of 64 bits
    static constexpr std::size_t indexOf(std::size_t hash) { return hash / 64 % count; }
    static constexpr uint64_t bitOf(std::size_t hash) { return uint64_t{1} << (hash % 64); }

    std::array<uint64_t, count> words{};
};

// For unordered containers whose keys are strings by content, as in
// `std::unordered_map<Ref<String>, X, StringContentHash, StringContentEqual>`. They can be searched
// with a Ref, a handle, a view or a hashed text, without making a String. Null handles are no keys.
struct StringContentHash {
    using is_transparent = void;
    std::size_t operator()(const Ref<String>& key) const noexcept { return key->hash(); }
    std::size_t operator()(const String* key) const noexcept { return key->hash(); }
    std::size_t operator()(std::u16string_view key) const noexcept { return String::hashOf(key); }
    std::size_t operator()(const HashedText& key) const noexcept { return key.hash; }
};

struct StringContentEqual {
    using is_transparent = void;
    template <typename A, typename B>
    bool operator()(const A& a, const B& b) const noexcept {
        return text(a) == text(b);
    }

private:
    static std::u16string_view text(const Ref<String>& key) noexcept { return key->view(); }
    static std::u16string_view text(const String* key) noexcept { return key->view(); }
    static std::u16string_view text(std::u16string_view key) noexcept { return key; }
    static std::u16string_view text(const HashedText& key) noexcept { return key.text; }
};

} // namespace TBF
