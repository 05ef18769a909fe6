#pragma once

// What a drawing lands in. A host makes one, hands it to whoever draws, and takes it back when the drawing is
// complete. Used by one thread at a time.

#include "graphics/Geometry.h"

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

struct _cairo;

namespace platform {

class DrawingContext {
public:
    // Draws through a context of the host's own, of which it takes a share. Its user space must have the
    // origin in the upper left corner of an area of `size`, with y growing downwards.
    DrawingContext(_cairo* cairo, Size size);
    virtual ~DrawingContext();
    DrawingContext(const DrawingContext&) = delete;
    DrawingContext& operator=(const DrawingContext&) = delete;

    Size size() const { return extent; }

    // For the drawing functions of this folder and its neighbours. Never null; owned by the context.
    _cairo* cairo() const { return context; }

private:
    _cairo* context;
    Size extent;
};

// A context over pixels of its own, transparent at first.
class BitmapContext final : public DrawingContext {
public:
    // The size in pixels is the size rounded, and at least 1. Null for a side above 16,384 and for a size
    // that is no number.
    static std::unique_ptr<BitmapContext> make(Size size);
    ~BitmapContext() override;

    uint32_t pixelWidth() const { return columns; }
    uint32_t pixelHeight() const { return rows; }

    // Red, green, blue and alpha of each pixel, a byte each, from the upper left on; colours are not
    // multiplied by the alpha.
    std::vector<uint8_t> pixels() const;

private:
    BitmapContext(_cairo* cairo, Size size, uint32_t columns, uint32_t rows);

    uint32_t columns;
    uint32_t rows;
};

} // namespace platform
