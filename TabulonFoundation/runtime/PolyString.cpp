#include "runtime/PolyString.h"

#include "runtime/String.h"

#include <utility>

namespace TBF {

PolyString::PolyString(std::string text)
    : bytes(std::move(text)) {}

PolyString::PolyString(Ref<String> text)
    : string(std::move(text)) {}

PolyString::~PolyString() = default;

Ref<PolyString> PolyString::create(const char* bytes) {
    return make<PolyString>(std::string(bytes ? bytes : ""));
}

Ref<PolyString> PolyString::create(const std::string& bytes) {
    return make<PolyString>(bytes);
}

Ref<PolyString> PolyString::create(String* string) {
    return make<PolyString>(TBF::retain(string));
}

String* PolyString::tbfString() const {
    if (!string) string = String::createWithUTF8(bytes);
    return string.get();
}

const std::string& PolyString::cppString() const {
    if (bytes.empty() && string) bytes = string->utf8();
    return bytes;
}

} // namespace TBF
