#include "xml/XMLFeed.h"

#include "xml/XMLBounds.h"

#include <libxml/parser.h>
#include <libxml/parserInternals.h>

#include <algorithm>

namespace platform {

void XMLParserDeleter::operator()(_xmlParserCtxt* context) const {
    xmlFreeDoc(context->myDoc);
    context->myDoc = nullptr;
    xmlFreeParserCtxt(context);
}

XMLParser XMLFeed::makeParser() {
    // Before the first context: libxml2 sets itself up without a lock of its own.
    static const bool isSetUp = (xmlInitParser(), true);
    static_cast<void>(isSetUp);
    const bool isUTF8 = declaredXMLEncoding(rest_) == XMLEncoding::utf8;
    XMLParser parser(xmlCreateIOParserCtxt(nullptr, nullptr, read, nullptr, this, XML_CHAR_ENCODING_NONE));
    parser_ = parser.get();
    // What the bounds were checked by is what is parsed, whatever else the declaration may mean.
    if (parser) xmlCtxtUseOptions(parser.get(), XML_PARSE_NONET | (isUTF8 ? XML_PARSE_IGNORE_ENC : 0));
    return parser;
}

int XMLFeed::read(void* feed, char* buffer, int length) {
    auto& self = *static_cast<XMLFeed*>(feed);
    if (self.parser_ && self.parser_->wellFormed == 0) return 0;
    if (self.parser_ && xmlDictSize(self.parser_->dict) > static_cast<int>(maxXMLNames)) {
        self.hasTooManyNames_ = true;
        return 0;
    }
    const std::size_t count = std::min(self.rest_.size(), static_cast<std::size_t>(std::max(length, 0)));
    self.rest_.copy(buffer, count);
    self.rest_.remove_prefix(count);
    return static_cast<int>(count);
}

} // namespace platform
