#pragma once

// What a substitution did to a text: which range of the rewritten text stands for which range of the typed
// one. Filled by the substituter, while the text is rewritten from here to there, and read by whoever leads
// tokens back to the typed text. Filled on one thread; reading is safe on any.

#include "expressions/TCRange.h"

#include <cstdint>
#include <span>
#include <vector>

class TCExpressionMappings {
public:
    // Substituted ranges lead to typed ranges. The names of the two ranges are those of their layers.
    struct Mapping {
        TCRange tbfRange; // in the rewritten text
        TCRange tcRange;  // in the typed text
    };

    // Replaces a mapping that begins at the same place of the rewritten text.
    void addRangeMapping(TCRange tcRange, TCRange tbfRange);

    // Moves the rewritten range of each mapping that begins at or behind `location`.
    void offsetTBFRanges(int64_t amount, int64_t location);

    // The mapping that begins exactly at that place of the rewritten text; null if there is none. Borrowed
    // until the next change.
    const Mapping* findRangeMapping(int64_t tbfLocation) const;

    // In ascending order of the rewritten text.
    std::span<const Mapping> mappings() const { return entries; }

private:
    std::vector<Mapping> entries; // by location in the rewritten text
};
