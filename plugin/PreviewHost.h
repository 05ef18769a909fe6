#pragma once

// What the plug-in asks of the host that loaded it. The host makes a request object for each document and
// gives it to a generator, which answers through the request. Everything here runs on the thread on which the
// host called the generator.

#include <map>
#include <optional>
#include <string>
#include <string_view>

// Text by key: the options a host gives, and the properties a generator gives back.
using QLProperties = std::map<std::string, std::string, std::less<>>;

// Keys of a page's properties.
inline constexpr std::string_view kQLPreviewPropertyTextEncodingNameKey = "TextEncodingName";
inline constexpr std::string_view kQLPreviewPropertyMIMETypeKey = "MIMEType";

// The content type of an HTML page.
inline constexpr std::string_view kUTTypeHTML = "public.html";

// One wish for a preview. The host owns it, and keeps it until the generator has returned.
class QLPreviewRequest {
public:
    virtual ~QLPreviewRequest() = default;

    // Called at most once. `data` is the page, valid during the call; none if the document could not be read.
    // A request that is never answered is for a file that is no document.
    virtual void setDataRepresentation(std::optional<std::string_view> data, std::string_view contentType,
                                       const QLProperties& properties) = 0;
};

// A null request takes nothing.
inline void QLPreviewRequestSetDataRepresentation(QLPreviewRequest* request,
                                                  std::optional<std::string_view> data,
                                                  std::string_view contentType,
                                                  const QLProperties& properties) {
    if (request) request->setDataRepresentation(data, contentType, properties);
}
