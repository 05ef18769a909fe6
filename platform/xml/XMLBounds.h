#pragma once

// What XML may hold before a parser gets to see it. libxml2 takes time that grows with the square of the
// attributes of one tag and faster than that with the definitions of a document type, and no setting of it
// bounds either; names of namespaces are looked for one by one. One walk over the bytes finds them. It
// doesn't follow comments and the like, so that nothing can be hidden from it by XML that is broken. Pure
// functions.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace platform {

// In bytes, from the "<" to the ">".
inline constexpr std::size_t maxXMLTagLength = 4096;
inline constexpr std::size_t maxXMLNamespaces = 64;

// The mark that texts in UTF-8 may begin with.
inline constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
std::string_view withoutByteOrderMark(std::string_view bytes);

enum class XMLEncoding : uint8_t {
    utf8 = 0,       // or none is declared
    singleByte = 1, // one in which the bytes of ASCII mean themselves and nothing else does
    other = 2,      // one that could hide markup from whoever looks at the bytes
};

// What the declaration at the start of the bytes says.
XMLEncoding declaredXMLEncoding(std::string_view bytes);

struct XMLExcess {
    std::string_view what; // "has a tag of over 4,096 bytes"; empty where all is within bounds
    std::size_t line = 0;  // from 1 on
    explicit operator bool() const { return !what.empty(); }
};

// The first thing that is out of bounds: the encoding, definitions in the file, a tag's length, namespaces.
XMLExcess firstExcessOfXML(std::string_view bytes);

} // namespace platform
