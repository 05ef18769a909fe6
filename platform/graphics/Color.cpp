#include "graphics/Color.h"

#include <algorithm>
#include <cstdio>

namespace platform {

namespace {

double component(double value) {
    return value >= 0 ? std::min(value, 1.0) : 0.0;
}

unsigned hexadecimalPart(double value) {
    return static_cast<unsigned>(value * 255.0);
}

} // namespace

Color Color::rgb(double red, double green, double blue, double alpha) {
    Color color;
    color.value = {component(red), component(green), component(blue), component(alpha)};
    return color;
}

Color Color::calibratedWhite(double white, double alpha) {
    Color color = rgb(white, white, white, alpha);
    color.isWhite = true;
    return color;
}

std::string Color::cssHexString() const {
    char text[8];
    std::snprintf(text, sizeof text, "#%02x%02x%02x", hexadecimalPart(value.red),
                  hexadecimalPart(value.green), hexadecimalPart(value.blue));
    return text;
}

} // namespace platform
