#include "graphics/GraphicsContext.h"

#include <algorithm>
#include <cairo.h>

namespace platform {

namespace {

thread_local GraphicsContext* current = nullptr;

} // namespace

GraphicsContext* GraphicsContext::currentContext() {
    return current;
}

Point GraphicsContext::placeOf(Point point) const {
    return {point.x, isUpsideDown ? point.y : target->size().height - point.y};
}

GraphicsStateScope::GraphicsStateScope(GraphicsContext& context)
    : previous(current)
    , entered(&context) {
    cairo_save(entered->drawingContext().cairo());
    current = entered;
}

GraphicsStateScope::~GraphicsStateScope() {
    cairo_restore(entered->drawingContext().cairo());
    current = previous;
}

Size boundingSizeOfText(std::string_view text, const Font& font, Size bounds) {
    const Size size = font.sizeOfText(text);
    return {std::min(size.width, bounds.width), std::min(size.height, bounds.height)};
}

void drawTextAtPoint(std::string_view text, Point point, const Font& font, const Color& color) {
    if (!current) return;
    const Point corner = current->placeOf(point);
    const double baseline = current->isFlipped() ? corner.y + font.ascent() : corner.y - font.descent();
    font.drawText(current->drawingContext().cairo(), {corner.x, baseline}, text, color);
}

} // namespace platform
