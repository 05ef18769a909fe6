#pragma once

// Hands the bytes of a file to libxml2 piece by piece, so that it gets no more of a file that has shown
// itself to be broken, or to have more names than anybody needs: the parser goes on after most errors, and
// finds names more and more slowly. One object for one parse; it and the bytes outlive the parser's context.

#include <cstddef>
#include <memory>
#include <string_view>

struct _xmlParserCtxt;

namespace platform {

inline constexpr std::size_t maxXMLNames = 10'000;

struct XMLParserDeleter {
    // A document type makes a document on the side, which the parser doesn't free.
    void operator()(_xmlParserCtxt* context) const;
};
using XMLParser = std::unique_ptr<_xmlParserCtxt, XMLParserDeleter>;

class XMLFeed {
public:
    explicit XMLFeed(std::string_view bytes)
        : rest_(bytes) {}
    XMLFeed(const XMLFeed&) = delete;
    XMLFeed& operator=(const XMLFeed&) = delete;

    // A context that reads from here, in the encoding that `firstExcessOfXML` looked at, without the network.
    // Null where there is no memory.
    XMLParser makeParser();

    // Whether the bytes ended early because of their names.
    bool hasTooManyNames() const noexcept { return hasTooManyNames_; }

private:
    static int read(void* feed, char* buffer, int length);

    std::string_view rest_;
    _xmlParserCtxt* parser_ = nullptr; // the caller's, which asks for more as long as it lives
    bool hasTooManyNames_ = false;
};

} // namespace platform
