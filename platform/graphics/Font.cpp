#include "graphics/Font.h"

#include "graphics/LocalFonts.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <pango/pangocairo.h>
#include <unordered_map>

namespace platform {

namespace {

constexpr std::size_t maxRememberedLength = 64; // bytes
constexpr std::size_t maxRememberedTexts = 4096;

// The stand-in for letters, in parts of the size.
constexpr double barAdvance = 0.55;
constexpr double barAscent = 0.9;
constexpr double barDescent = 0.25;
constexpr double barHeight = 0.45;

// Letters of fewer pixels are drawn as shapes: as letters they would each move to a whole pixel.
constexpr double smallLetters = 13;

bool isDrawnSmall(cairo_t* cairo, double size) {
    double x = 0;
    cairo_user_to_device_distance(cairo, &x, &size);
    return std::abs(size) < smallLetters;
}

// Whether the text has characters that fonts may hold as pictures, which have no shape: those that UTF-8
// writes with four bytes.
bool hasPictures(std::string_view text) {
    return std::any_of(text.begin(), text.end(),
                       [](char c) { return static_cast<unsigned char>(c) >= 0xF0; });
}

double units(int pangoUnits) {
    return static_cast<double>(pangoUnits) / PANGO_SCALE;
}

struct GObjectRelease {
    void operator()(void* object) const { g_object_unref(object); }
};
using Layout = std::unique_ptr<PangoLayout, GObjectRelease>;

struct StringHash : std::hash<std::string_view> {
    using is_transparent = void;
};

} // namespace

class Font::Shapes {
public:
    Shapes(LocalFonts& localFonts, std::string_view families, double fontSize, int weight, bool isItalic)
        : size(fontSize)
        , context(localFonts.pangoContext())
        , description(pango_font_description_new()) {
        pango_font_description_set_family(description, localFonts.familyOf(families).c_str());
        pango_font_description_set_absolute_size(description, fontSize * PANGO_SCALE);
        pango_font_description_set_weight(description, static_cast<PangoWeight>(weight));
        pango_font_description_set_style(description, isItalic ? PANGO_STYLE_ITALIC : PANGO_STYLE_NORMAL);
        measure();
    }
    ~Shapes() { pango_font_description_free(description); }
    Shapes(const Shapes&) = delete;
    Shapes& operator=(const Shapes&) = delete;

    Layout layoutOf(std::string_view text) const {
        Layout layout(pango_layout_new(context));
        pango_layout_set_font_description(layout.get(), description);
        pango_layout_set_single_paragraph_mode(layout.get(), TRUE);
        pango_layout_set_text(layout.get(), text.data(), static_cast<int>(text.size()));
        return layout;
    }

    // Valid until the next call.
    PangoLayout* remembered(std::string_view text) {
        if (const auto found = layouts.find(text); found != layouts.end()) return found->second.get();
        if (layouts.size() >= maxRememberedTexts) layouts.clear();
        if (text.size() > maxRememberedLength) {
            lastLong = layoutOf(text);
            return lastLong.get();
        }
        return layouts.emplace(text, layoutOf(text)).first->second.get();
    }

    const double size;
    PangoContext* const context; // null without fonts; of the local fonts
    double ascent = 0;
    double descent = 0;
    double xHeight = 0;

private:
    void measure() {
        ascent = barAscent * size;
        descent = barDescent * size;
        xHeight = barHeight * size;
        if (!context) return;
        PangoFontMetrics* const metrics = pango_context_get_metrics(context, description, nullptr);
        ascent = units(pango_font_metrics_get_ascent(metrics));
        descent = units(pango_font_metrics_get_descent(metrics));
        pango_font_metrics_unref(metrics);
        PangoRectangle ink = {};
        pango_layout_get_extents(remembered("x"), &ink, nullptr);
        xHeight = units(ink.height);
    }

    PangoFontDescription* description;
    std::unordered_map<std::string, Layout, StringHash, std::equal_to<>> layouts;
    Layout lastLong;
};

Font Font::boldSystemFontOfSize(double size) {
    return Font(LocalFonts::shared(), "", size, PANGO_WEIGHT_BOLD);
}

Font::Font(LocalFonts& fonts, std::string_view families, double size, int weight, bool isItalic)
    : shapes(std::make_shared<Shapes>(fonts, families, size, weight, isItalic)) {}

double Font::size() const {
    return shapes->size;
}

double Font::ascent() const {
    return shapes->ascent;
}

double Font::descent() const {
    return shapes->descent;
}

double Font::xHeight() const {
    return shapes->xHeight;
}

Size Font::sizeOfText(std::string_view text) const {
    const double height = shapes->ascent + shapes->descent;
    if (!shapes->context) {
        const glong characters = g_utf8_strlen(text.data(), static_cast<gssize>(text.size()));
        return {barAdvance * shapes->size * static_cast<double>(characters), height};
    }
    PangoRectangle extent = {};
    pango_layout_get_extents(shapes->remembered(text), nullptr, &extent);
    return {units(extent.width), height};
}

void Font::drawText(_cairo* cairo, Point start, std::string_view text, const Color& color) const {
    const RGBA& ink = color.components();
    if (!shapes->context) {
        const bool isBlank = text.find_first_not_of(" \t\n\r") == std::string_view::npos;
        const double gap = shapes->size / 16;
        cairo_set_source_rgba(cairo, ink.red, ink.green, ink.blue, ink.alpha / 2);
        if (isBlank) return;
        cairo_rectangle(cairo, start.x + gap, start.y - shapes->xHeight, sizeOfText(text).width - 2 * gap,
                        shapes->xHeight);
        cairo_fill(cairo);
        return;
    }
    cairo_set_source_rgba(cairo, ink.red, ink.green, ink.blue, ink.alpha);
    cairo_move_to(cairo, start.x, start.y);
    PangoLayoutLine* const line = pango_layout_get_line_readonly(shapes->remembered(text), 0);
    if (isDrawnSmall(cairo, shapes->size) && !hasPictures(text)) {
        pango_cairo_layout_line_path(cairo, line);
        cairo_fill(cairo);
    } else {
        pango_cairo_show_layout_line(cairo, line);
    }
}

} // namespace platform
