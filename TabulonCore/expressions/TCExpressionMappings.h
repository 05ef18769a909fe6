#pragma once

// What a substitution did to a text: which range of the rewritten text stands for which range of the typed
// one. Between the mapped ranges both texts are the same, so the mappings lead every place of the one to a
// place of the other. Filled by the substituter, while the text is rewritten from here to there, and read by
// whoever leads tokens back to the typed text. Filled on one thread; reading is safe on any.

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

    // One change of the rewritten text.
    struct Replacement {
        TCRange range;      // in the text before the change
        int64_t length = 0; // of what stands there afterwards
    };

    // Adds a mapping as it is. Replaces one that begins at the same place of the rewritten text.
    void addRangeMapping(TCRange tcRange, TCRange tbfRange);

    // The rewritten text was rewritten once more. The replacements are in ascending order and apart from each
    // other. Each becomes a mapping; one that touches older mappings takes them in. What is behind moves.
    void addReplacements(std::span<const Replacement> replacements);

    // The mapping that begins exactly at that place of the rewritten text; null if there is none. Borrowed
    // until the next change.
    const Mapping* findRangeMapping(int64_t tbfLocation) const;

    // Those that may share a place of the rewritten text with the range: from the last one that begins ahead
    // of it to the last that begins in it.
    std::span<const Mapping> mappingsAround(TCRange tbfRange) const;

    // Where in the typed text that ends which ends there in the rewritten text. A mapped range is never
    // divided: what ends inside of one ends where the typed range does.
    int64_t tcEndOfTBFEnd(int64_t tbfEnd) const;

    // In ascending order of the rewritten text.
    std::span<const Mapping> mappings() const { return entries; }

private:
    std::vector<Mapping> entries; // by location in the rewritten text
};
