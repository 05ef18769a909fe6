#pragma once

// What the plug-in asks of the host that loaded it. The host makes a request object for each document and
// gives it to a generator, which answers through the request. Everything here runs on the thread on which the
// host called the generator.

#include "graphics/DrawingContext.h"

#include <map>
#include <memory>
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

// One wish for a thumbnail. The host owns it, and keeps it until the generator has returned.
class QLThumbnailRequest {
public:
    virtual ~QLThumbnailRequest() = default;

    // Called at most once: a context of this size in points, in which one point need not be one pixel unless
    // a bitmap is asked for. Null if there can be none.
    virtual std::shared_ptr<platform::DrawingContext> createContext(platform::Size size, bool isBitmap,
                                                                    const QLProperties* properties) = 0;

    // Called at most once, with the context when the drawing is complete.
    virtual void flushContext(platform::DrawingContext& context) = 0;
};

// A null request has no context.
inline std::shared_ptr<platform::DrawingContext>
QLThumbnailRequestCreateContext(QLThumbnailRequest* request, platform::Size size, bool isBitmap,
                                const QLProperties* properties) {
    return request ? request->createContext(size, isBitmap, properties) : nullptr;
}

inline void QLThumbnailRequestFlushContext(QLThumbnailRequest* request, platform::DrawingContext& context) {
    if (request) request->flushContext(context);
}
