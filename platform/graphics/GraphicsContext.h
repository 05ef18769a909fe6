#pragma once

// The drawing context as a view or a text sees it: with its origin in the lower left corner, or flipped, in
// the upper left one. One context is current on a thread, and texts are drawn into that.

#include "graphics/DrawingContext.h"
#include "graphics/Font.h"

#include <string_view>

namespace platform {

class GraphicsContext {
public:
    // The drawing context has to outlive this.
    GraphicsContext(DrawingContext& context, bool flipped)
        : target(&context)
        , isUpsideDown(flipped) {}

    // The context that texts are drawn into on this thread; null if there is none.
    static GraphicsContext* currentContext();

    DrawingContext& drawingContext() const { return *target; }
    bool isFlipped() const { return isUpsideDown; }

    // The place in the drawing context, whose origin is in the upper left corner.
    Point placeOf(Point point) const;

private:
    DrawingContext* target;
    bool isUpsideDown;
};

// Saves the state of the current context and makes another one current; its end restores both. Scopes nest.
class GraphicsStateScope {
public:
    explicit GraphicsStateScope(GraphicsContext& context);
    ~GraphicsStateScope();
    GraphicsStateScope(const GraphicsStateScope&) = delete;
    GraphicsStateScope& operator=(const GraphicsStateScope&) = delete;

private:
    GraphicsContext* previous;
    GraphicsContext* entered;
};

// The rectangle that the text takes up, within a bounding size that it may not exceed.
Size boundingSizeOfText(std::string_view text, const Font& font, Size bounds);

// Draws a line into the current context. `point` is the corner of the text's rectangle that is nearest to the
// origin. Nothing happens without a current context.
void drawTextAtPoint(std::string_view text, Point point, const Font& font, const Color& color);

} // namespace platform
