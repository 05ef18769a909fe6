#include "htmlview/HTMLView.h"

#include "graphics/LocalFonts.h"
#include "htmlview/DefaultStyleSheet.h"
#include "htmlview/PageContainer.h"

#include <algorithm>
#include <cairo.h>
#include <string>

namespace platform {

namespace {

litehtml::context makeContext() {
    litehtml::context context;
    context.load_master_stylesheet(defaultStyleSheet);
    return context;
}

// How elements look of themselves.
litehtml::context& sharedContext() {
    static litehtml::context context = makeContext();
    return context;
}

} // namespace

class HTMLView::Page {
public:
    Page(const std::string& source, Size view)
        : container(LocalFonts::shared(), view)
        , document(litehtml::document::createFromUTF8(source.c_str(), &container, &sharedContext())) {
        if (document) document->render(static_cast<int>(view.width));
    }

    PageContainer container; // first: the document gives its fonts back to it
    litehtml::document::ptr document;
};

HTMLView::HTMLView(Rect frameRect)
    : frame(frameRect) {}

HTMLView::~HTMLView() = default;

void HTMLView::scaleUnitSquareToSize(Size size) {
    scale = size;
}

bool HTMLView::loadData(std::string_view bytes, std::string_view mimeType,
                        std::string_view textEncodingName) {
    page.reset();
    if (mimeType != "text/html" || textEncodingName != "UTF-8") return false;
    LocalFonts::shared().provideFor(bytes);
    // The layout reads up to a NUL; a page has none.
    page = std::make_unique<Page>(std::string(bytes.substr(0, bytes.find('\0'))), frame.size);
    return true;
}

Rect HTMLView::bounds() const {
    return {{0, 0}, frame.size};
}

void HTMLView::displayRect(Rect rect, GraphicsContext& context) const {
    const Point corner = context.placeOf({0, context.isFlipped() ? 0 : frame.size.height * scale.height});
    cairo_t* const cairo = context.drawingContext().cairo();
    cairo_save(cairo);
    cairo_translate(cairo, corner.x, corner.y);
    cairo_scale(cairo, scale.width, scale.height);

    const double left = std::max(rect.origin.x, 0.0);
    const double top = std::max(rect.origin.y, 0.0);
    const double width = std::min(rect.origin.x + rect.size.width, frame.size.width) - left;
    const double height = std::min(rect.origin.y + rect.size.height, frame.size.height) - top;
    if (width > 0 && height > 0) {
        cairo_rectangle(cairo, left, top, width, height);
        cairo_clip(cairo);
        cairo_set_source_rgb(cairo, 1, 1, 1);
        cairo_paint(cairo);
        const litehtml::position part(static_cast<int>(left), static_cast<int>(top), static_cast<int>(width),
                                      static_cast<int>(height));
        if (page && page->document) {
            page->container.setDrawing(cairo);
            page->document->draw(reinterpret_cast<litehtml::uint_ptr>(cairo), 0, 0, &part);
            page->container.setDrawing(nullptr);
        }
    }
    cairo_restore(cairo);
}

} // namespace platform
