#pragma once

// Boxes of a page and their borders. Straight edges fall on whole pixels of what is drawn into, at any scale:
// neighbouring boxes have no seam between them, and lines stay lines. Used by the HTML view alone.

#include "graphics/Color.h"

#include <litehtml/litehtml.h>

struct _cairo;

namespace platform {

void fillBox(_cairo* cairo, const litehtml::position& place, const litehtml::border_radiuses& radius,
             const Color& color);

// Borders of all styles are drawn as solid lines.
void drawBorders(_cairo* cairo, const litehtml::borders& borders, const litehtml::position& place);

} // namespace platform
