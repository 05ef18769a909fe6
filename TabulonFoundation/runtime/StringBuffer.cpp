#include "runtime/StringBuffer.h"

#include "runtime/String.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstring>

namespace TBF {

struct StringBufferImpl {
    explicit StringBufferImpl(int32_t bytes)
        : capacity(std::max(bytes, 1))
        , data(std::make_unique<char[]>(static_cast<std::size_t>(capacity))) {}

    // Bytes that can still be stored; the last byte stays free for the terminator.
    int32_t room() const { return std::max(capacity - 1 - length, 0); }

    int32_t capacity;
    std::unique_ptr<char[]> data;
    int32_t length = 0;
};

StringBuffer::StringBuffer(int capacity)
    : impl(std::make_unique<StringBufferImpl>(capacity)) {}

StringBuffer::~StringBuffer() = default;

Ref<StringBuffer> StringBuffer::create(int capacity) {
    return make<StringBuffer>(capacity);
}

void StringBuffer::append(char byte) {
    if (impl->room() > 0) impl->data[static_cast<std::size_t>(impl->length++)] = byte;
}

void StringBuffer::append(const char* bytes) {
    if (!bytes) return;
    const std::size_t count = std::min(std::strlen(bytes), static_cast<std::size_t>(impl->room()));
    std::memcpy(impl->data.get() + impl->length, bytes, count);
    impl->length += static_cast<int32_t>(count);
}

void StringBuffer::appendFormat(const char* format, ...) {
    const int32_t left = impl->capacity - impl->length;
    if (left <= 0) return;
    std::va_list arguments;
    va_start(arguments, format);
    const int written =
        std::vsnprintf(impl->data.get() + impl->length, static_cast<std::size_t>(left), format, arguments);
    va_end(arguments);
    impl->length += std::max(written, 0);
}

int32_t StringBuffer::length() const {
    return impl->length;
}

void StringBuffer::reset() {
    impl->length = 0;
}

Ref<String> StringBuffer::createString() const {
    return impl->length < impl->capacity ? String::createWithUTF8(cppString()) : nullptr;
}

std::string StringBuffer::cppString() const {
    const int32_t stored = std::min(impl->length, impl->capacity - 1);
    impl->data[static_cast<std::size_t>(stored)] = '\0';
    return std::string(impl->data.get());
}

} // namespace TBF
