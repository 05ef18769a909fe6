#pragma once

// A colour in a device-independent space. A colour is held as it was made: by red, green and blue, or by a
// level of white. Values only.

#include <cstdint>
#include <string>

namespace platform {

// The components of a colour, each from 0.0 to 1.0.
struct RGBA {
    double red = 0;
    double green = 0;
    double blue = 0;
    double alpha = 1;

    friend bool operator==(const RGBA&, const RGBA&) = default;
};

class Color {
public:
    Color() = default; // opaque black

    // Components outside of 0.0 to 1.0 are taken to the nearer end, and those that are no number to 0.
    static Color rgb(double red, double green, double blue, double alpha = 1);
    static Color calibratedWhite(double white, double alpha = 1);

    const RGBA& components() const { return value; }
    bool isWhiteLevel() const { return isWhite; }

    // "#rrggbb" without the alpha: each component times 255, cut to a whole number.
    std::string cssHexString() const;

    friend bool operator==(const Color&, const Color&) = default;

private:
    RGBA value;
    bool isWhite = false;
};

} // namespace platform
