#pragma once

// Places and extents in a drawing, in points. Values only.

namespace platform {

struct Size {
    double width = 0;
    double height = 0;
};

struct Point {
    double x = 0;
    double y = 0;
};

struct Rect {
    Point origin;
    Size size;
};

} // namespace platform
