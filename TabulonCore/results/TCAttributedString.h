#pragma once

// A text with attributes by range, as far as answers need them. A plain value.

#include "runtime/TBFTypes.h"

#include <string>
#include <vector>

struct TCTextAttributes {
    std::string fontName;
    double pointSize = 0;
    int superscript = 0; // 1 raises the text

    bool operator==(const TCTextAttributes&) const = default;
};

struct TCAttributedString {
    struct Run {
        TBFRange range; // in UTF-16 code units; a later run wins where runs overlap
        TCTextAttributes attributes;
    };

    std::u16string text;
    std::vector<Run> runs;
};
