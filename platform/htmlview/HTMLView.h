#pragma once

// An HTML view without a window: lays a page out in a frame and draws it, at a scale, into a graphics
// context. A page is read as data: it runs no scripts, and nothing that it refers to is ever fetched, so that
// it draws without pictures, imports and style sheets of others. There are no scroll bars. Used by one thread
// at a time.

#include "graphics/Geometry.h"
#include "graphics/GraphicsContext.h"

#include <memory>
#include <string_view>

namespace platform {

class HTMLView {
public:
    // Frame and page are measured in CSS pixels.
    explicit HTMLView(Rect frame);
    ~HTMLView();
    HTMLView(const HTMLView&) = delete;
    HTMLView& operator=(const HTMLView&) = delete;

    // By how much what is drawn is larger than the page.
    void scaleUnitSquareToSize(Size size);

    // Parses and lays out the bytes of a page; it stands when this returns. A view without a page is white.
    // UTF-8 is the one encoding that is read; false for any other, and for a type that isn't "text/html".
    bool loadData(std::string_view bytes, std::string_view mimeType, std::string_view textEncodingName);

    // The part of the page that the view shows, from its upper left corner.
    Rect bounds() const;

    // Views have their origin in the lower left corner.
    bool isFlipped() const { return false; }

    // Draws a part of the page where it stands in the view, whose lower left corner lies on the origin of
    // the context; the page's background is white. What lies outside of the bounds isn't drawn.
    void displayRect(Rect rect, GraphicsContext& context) const;

private:
    class Page;

    Rect frame;
    Size scale{1, 1};
    std::unique_ptr<Page> page; // null without one
};

} // namespace platform
