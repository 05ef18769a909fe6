#pragma once

// A byte buffer of fixed capacity, to put a short UTF-8 text together in one allocation. It never grows: what
// doesn't fit is dropped without a word. Used by one thread at a time.

#include "runtime/Object.h"
#include "runtime/Ref.h"

#include <cstdint>
#include <memory>
#include <string>

namespace TBF {

class String;
struct StringBufferImpl;

class StringBuffer final : public Object<StringBuffer> {
public:
    // `capacity` counts bytes, the terminating NUL included.
    static Ref<StringBuffer> create(int capacity);

    void append(char byte);
    void append(const char* bytes);

    // Adds the formatted text as far as it fits, but its whole length to `length()`.
    [[gnu::format(printf, 2, 3)]] void appendFormat(const char* format, ...);

    // In bytes. At or above the capacity after a format that didn't fit.
    int32_t length() const;

    void reset();

    // Null if the text overran the capacity.
    Ref<String> createString() const;

    // If the text overran the capacity, the part that fitted.
    std::string cppString() const;

private:
    friend class Object<StringBuffer>;

    explicit StringBuffer(int capacity);
    ~StringBuffer() override;

    std::unique_ptr<StringBufferImpl> impl;
};

} // namespace TBF
