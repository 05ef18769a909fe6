#include "graphics/DrawingContext.h"

#include <algorithm>
#include <cairo.h>
#include <cmath>
#include <cstring>

namespace platform {

namespace {

constexpr double maxSide = 16384;

bool isDrawable(double side) {
    return side >= 0 && side <= maxSide; // false for what is no number
}

int pixelsOf(double side) {
    return std::max(1, static_cast<int>(std::lround(side)));
}

// The colour of a pixel that was multiplied by its alpha.
uint8_t divided(uint32_t part, uint32_t alpha) {
    return static_cast<uint8_t>(std::min<uint32_t>((part * 255 + alpha / 2) / alpha, 255));
}

} // namespace

DrawingContext::DrawingContext(_cairo* cairo, Size size)
    : context(cairo_reference(cairo))
    , extent(size) {}

DrawingContext::~DrawingContext() {
    cairo_destroy(context);
}

BitmapContext::BitmapContext(_cairo* cairo, Size size, uint32_t columnCount, uint32_t rowCount)
    : DrawingContext(cairo, size)
    , columns(columnCount)
    , rows(rowCount) {}

BitmapContext::~BitmapContext() = default;

std::unique_ptr<BitmapContext> BitmapContext::make(Size size) {
    if (!isDrawable(size.width) || !isDrawable(size.height)) return nullptr;
    const int width = pixelsOf(size.width);
    const int height = pixelsOf(size.height);
    cairo_surface_t* const surface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height);
    cairo_t* const cairo = cairo_create(surface);
    cairo_surface_destroy(surface); // `cairo` holds it
    std::unique_ptr<BitmapContext> context;
    if (cairo_status(cairo) == CAIRO_STATUS_SUCCESS) {
        context.reset(
            new BitmapContext(cairo, size, static_cast<uint32_t>(width), static_cast<uint32_t>(height)));
    }
    cairo_destroy(cairo);
    return context;
}

std::vector<uint8_t> BitmapContext::pixels() const {
    cairo_surface_t* const surface = cairo_get_target(cairo());
    cairo_surface_flush(surface);
    const uint8_t* const data = cairo_image_surface_get_data(surface);
    const auto stride = static_cast<std::size_t>(cairo_image_surface_get_stride(surface));
    std::vector<uint8_t> bytes;
    bytes.reserve(std::size_t{4} * columns * rows);
    for (std::size_t y = 0; y < rows; ++y) {
        for (std::size_t x = 0; x < columns; ++x) {
            uint32_t pixel = 0;
            std::memcpy(&pixel, data + y * stride + x * sizeof pixel, sizeof pixel);
            const uint32_t alpha = pixel >> 24;
            for (const int shift : {16, 8, 0})
                bytes.push_back(alpha == 0 ? 0 : divided(pixel >> shift & 0xFF, alpha));
            bytes.push_back(static_cast<uint8_t>(alpha));
        }
    }
    return bytes;
}

} // namespace platform
