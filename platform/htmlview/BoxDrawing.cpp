#include "htmlview/BoxDrawing.h"

#include <algorithm>
#include <cairo.h>
#include <cmath>
#include <numbers>

namespace platform {

namespace {

struct Edges {
    double left, top, right, bottom;
};

void setColor(cairo_t* cairo, const RGBA& color) {
    cairo_set_source_rgba(cairo, color.red, color.green, color.blue, color.alpha);
}

Color colorOf(const litehtml::web_color& color) {
    return Color::rgb(color.red / 255.0, color.green / 255.0, color.blue / 255.0, color.alpha / 255.0);
}

// The edges with each moved to the nearest border of a pixel.
Edges snapped(cairo_t* cairo, Edges edges) {
    const auto snap = [cairo](double& x, double& y) {
        cairo_user_to_device(cairo, &x, &y);
        x = std::round(x);
        y = std::round(y);
        cairo_device_to_user(cairo, &x, &y);
    };
    snap(edges.left, edges.top);
    snap(edges.right, edges.bottom);
    return edges;
}

Edges edgesOf(const litehtml::position& place) {
    return {static_cast<double>(place.left()), static_cast<double>(place.top()),
            static_cast<double>(place.right()), static_cast<double>(place.bottom())};
}

void fill(cairo_t* cairo, const Edges& edges, const Color& color) {
    setColor(cairo, color.components());
    cairo_rectangle(cairo, edges.left, edges.top, edges.right - edges.left, edges.bottom - edges.top);
    cairo_fill(cairo);
}

// A path of a box whose corners have one radius, which is cut to what fits.
void addRoundedPath(cairo_t* cairo, const Edges& edges, double radius) {
    constexpr double quarter = std::numbers::pi / 2;
    radius =
        std::max(0.0, std::min({radius, (edges.right - edges.left) / 2, (edges.bottom - edges.top) / 2}));
    cairo_new_sub_path(cairo);
    cairo_arc(cairo, edges.right - radius, edges.top + radius, radius, -quarter, 0);
    cairo_arc(cairo, edges.right - radius, edges.bottom - radius, radius, 0, quarter);
    cairo_arc(cairo, edges.left + radius, edges.bottom - radius, radius, quarter, 2 * quarter);
    cairo_arc(cairo, edges.left + radius, edges.top + radius, radius, 2 * quarter, 3 * quarter);
    cairo_close_path(cairo);
}

bool isDrawn(const litehtml::border& border) {
    return border.width > 0 && border.style != litehtml::border_style_none &&
           border.style != litehtml::border_style_hidden && border.color.alpha > 0;
}

// A straight line along an edge, inside of the box, at least a pixel wide and as much paler as it is wider
// than it should be.
void drawEdge(cairo_t* cairo, const litehtml::border& border, Edges line, bool isVertical) {
    if (!isDrawn(border)) return;
    double x = border.width;
    double y = border.width;
    cairo_user_to_device_distance(cairo, &x, &y);
    const double pixels = isVertical ? std::abs(x) : std::abs(y);
    const double wanted = std::max(1.0, std::round(pixels));
    const double thickness = border.width * wanted / pixels;
    const Edges near = snapped(cairo, line);
    if (isVertical) {
        line = {near.left, near.top, near.left + thickness, near.bottom};
    } else {
        line = {near.left, near.top, near.right, near.top + thickness};
    }
    RGBA color = colorOf(border.color).components();
    color.alpha *= std::min(1.0, std::sqrt(pixels / wanted));
    fill(cairo, line, Color::rgb(color.red, color.green, color.blue, color.alpha));
}

void drawRoundedBorder(cairo_t* cairo, const litehtml::borders& borders, const Edges& box) {
    const litehtml::border& border = borders.top;
    if (!isDrawn(border)) return;
    const double inset = border.width / 2.0;
    addRoundedPath(cairo, {box.left + inset, box.top + inset, box.right - inset, box.bottom - inset},
                   borders.radius.top_left_x - inset);
    setColor(cairo, colorOf(border.color).components());
    cairo_set_line_width(cairo, border.width);
    cairo_stroke(cairo);
}

} // namespace

void fillBox(_cairo* cairo, const litehtml::position& place, const litehtml::border_radiuses& radius,
             const Color& color) {
    if (color.components().alpha == 0) return;
    if (radius.top_left_x <= 0) return fill(cairo, snapped(cairo, edgesOf(place)), color);
    addRoundedPath(cairo, edgesOf(place), radius.top_left_x);
    setColor(cairo, color.components());
    cairo_fill(cairo);
}

void drawBorders(_cairo* cairo, const litehtml::borders& borders, const litehtml::position& place) {
    const Edges box = edgesOf(place);
    if (borders.radius.top_left_x > 0) return drawRoundedBorder(cairo, borders, box);
    drawEdge(cairo, borders.left, {box.left, box.top, box.left + borders.left.width, box.bottom}, true);
    drawEdge(cairo, borders.right, {box.right - borders.right.width, box.top, box.right, box.bottom}, true);
    drawEdge(cairo, borders.top, {box.left, box.top, box.right, box.top + borders.top.width}, false);
    drawEdge(cairo, borders.bottom, {box.left, box.bottom - borders.bottom.width, box.right, box.bottom},
             false);
}

} // namespace platform
