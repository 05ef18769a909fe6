#include "runtime/String.h"

#include "runtime/Unicode.h"

#include <algorithm>
#include <charconv>
#include <cstring>

namespace TBF {

static_assert(sizeof(String) % alignof(char16_t) == 0, "the code units stand right behind the object");

constexpr std::size_t String::sizeFor(std::size_t length) {
    return sizeof(String) + (length + 1) * sizeof(char16_t);
}

void* String::operator new(std::size_t, std::size_t length) {
    return ObjectPool::take(sizeFor(length));
}

void String::operator delete(String* string, std::destroying_delete_t) {
    const std::size_t size = sizeFor(string->count);
    string->~String();
    ObjectPool::give(string, size);
}

String::String(std::size_t length) noexcept
    : count(length) {
    characters()[length] = u'\0';
}

Ref<String> String::createUninitialized(std::size_t length) {
    return adopt(new (length) String(length));
}

Ref<String> String::create(std::u16string_view text) {
    Ref<String> string = createUninitialized(text.size());
    std::copy(text.begin(), text.end(), string->characters());
    return string;
}

Ref<String> String::createWithUTF8(std::string_view bytes) {
    const bool ascii = std::all_of(bytes.begin(), bytes.end(),
                                   [](char byte) { return static_cast<unsigned char>(byte) < 0x80; });
    if (!ascii) return create(TBF::utf16(bytes));
    Ref<String> string = createUninitialized(bytes.size());
    std::copy(bytes.begin(), bytes.end(), string->characters());
    return string;
}

Ref<String> String::createWithInteger(int64_t value) {
    char digits[24];
    const char* const end = std::to_chars(digits, digits + sizeof digits, value).ptr;
    return createWithUTF8({digits, end});
}

Ref<String> String::createWithConcatenation(std::u16string_view a, std::u16string_view b) {
    Ref<String> string = createUninitialized(a.size() + b.size());
    std::copy(b.begin(), b.end(), std::copy(a.begin(), a.end(), string->characters()));
    return string;
}

const Ref<String>& String::empty() {
    // Never destroyed, so that it outlives whatever else ends at exit.
    static const Ref<String>& shared = *new Ref<String>(create({}));
    return shared;
}

std::string String::utf8() const {
    return TBF::utf8(view());
}

Ref<String> String::substring(int32_t location, int32_t length) const {
    const int64_t start = std::clamp<int64_t>(location, 0, static_cast<int64_t>(count));
    const int64_t end = std::clamp<int64_t>(static_cast<int64_t>(location) + std::max(length, 0), start,
                                            static_cast<int64_t>(count));
    // Strings are immutable, so sharing this one is as good as a copy.
    if (start == 0 && static_cast<std::size_t>(end) == count) return TBF::retain(const_cast<String*>(this));
    return create(view().substr(static_cast<std::size_t>(start), static_cast<std::size_t>(end - start)));
}

Ref<String> String::lowercase() const {
    if (isLowercaseASCII(view())) return TBF::retain(const_cast<String*>(this));
    const std::u16string lower = TBF::lowercase(view());
    if (lower == view()) return TBF::retain(const_cast<String*>(this));
    return create(lower);
}

std::size_t String::hash() const noexcept {
    std::size_t value = cachedHash.load(std::memory_order_relaxed);
    if (value == 0) {
        value = hashOf(view());
        cachedHash.store(value, std::memory_order_relaxed);
    }
    return value;
}

// Four code units at a time, each time spread over all bits. Most texts are single words.
std::size_t String::hashOf(std::u16string_view text) noexcept {
    constexpr std::size_t unitsAtATime = sizeof(uint64_t) / sizeof(char16_t);
    constexpr uint64_t multiplier = 0x9E3779B97F4A7C15;
    uint64_t value = text.size() * multiplier;
    while (!text.empty()) {
        uint64_t part = 0;
        const std::size_t length = std::min(text.size(), unitsAtATime);
        std::memcpy(&part, text.data(), length * sizeof(char16_t));
        text.remove_prefix(length);
        value = (value ^ part) * multiplier;
        value ^= value >> 32;
    }
    return value == 0 ? 1 : value; // 0 stands for a hash not yet known
}

bool String::equals(const String& other) const noexcept {
    if (this == &other) return true;
    const std::size_t hash = cachedHash.load(std::memory_order_relaxed);
    const std::size_t otherHash = other.cachedHash.load(std::memory_order_relaxed);
    if (hash != 0 && otherHash != 0 && hash != otherHash) return false;
    return view() == other.view();
}

} // namespace TBF
