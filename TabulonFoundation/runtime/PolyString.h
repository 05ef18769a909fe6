#pragma once

// One text in two forms, a string handle and UTF-8 bytes, of which each is made at most once, on first
// demand. It serves texts that arrive in one encoding and are read in the other over and over. Because
// reading may fill a cache, a PolyString is used by one thread at a time.

#include "runtime/Object.h"
#include "runtime/Ref.h"

#include <string>

namespace TBF {

class String;

class PolyString final : public Object<PolyString> {
public:
    // Keep the bytes, UTF-8. A null pointer counts as an empty text.
    static Ref<PolyString> create(const char* bytes);
    static Ref<PolyString> create(const std::string& bytes);

    // Retains the string, which may be null.
    static Ref<PolyString> create(String* string);

    // Borrowed; valid as long as this object.
    String* tbfString() const;
    const std::string& cppString() const;
    const char* cString() const { return cppString().c_str(); }

private:
    friend class Object<PolyString>;

    explicit PolyString(std::string text);
    explicit PolyString(Ref<String> text);
    ~PolyString() override;

    mutable Ref<String> string; // null until it is asked for
    mutable std::string bytes;  // empty until they are asked for
};

} // namespace TBF
