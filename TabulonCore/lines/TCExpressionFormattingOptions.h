#pragma once

// How the text of a line is laid out, beside how its answer is formatted. Belongs to a line.

#include <cstdint>

// Any other value is shown as left.
enum TCTextAlignment : int32_t {
    TCTextAlignmentLeft = 0,
    TCTextAlignmentRight = 1,
    TCTextAlignmentCentre = 2,
};

class TCExpressionFormattingOptions {
public:
    int32_t textAlignment() const { return alignment; }
    void setTextAlignment(int32_t newAlignment) { alignment = newAlignment; }

private:
    int32_t alignment = TCTextAlignmentLeft; // kept as read from a file, whatever it is
};
