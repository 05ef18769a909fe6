#pragma once

// A font of a size, which measures and draws one line of text. Where the machine has no fonts at all, words
// are drawn as bars of their length, so that a page keeps its look. Used by one thread at a time.

#include "graphics/Color.h"
#include "graphics/Geometry.h"

#include <memory>
#include <string>
#include <string_view>

struct _cairo;

namespace platform {

class LocalFonts;

class Font {
public:
    // The platform's font for titles, `size` units from line to line of its design.
    static Font boldSystemFontOfSize(double size);

    // `families` is a list as style sheets write it; the weight is from 100 to 900, where 400 is regular.
    // `fonts` has to outlive the font.
    Font(LocalFonts& fonts, std::string_view families, double size, int weight = 400, bool isItalic = false);

    double size() const;

    // Distances from the baseline, not negative.
    double ascent() const;
    double descent() const;
    double xHeight() const;

    // The extent of a line of UTF-8 text; texts are shaped once and remembered while they are short.
    Size sizeOfText(std::string_view text) const;

    // Draws with the left end of the baseline at `start`.
    void drawText(_cairo* cairo, Point start, std::string_view text, const Color& color) const;

private:
    class Shapes;
    std::shared_ptr<Shapes> shapes;
};

} // namespace platform
