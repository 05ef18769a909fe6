#pragma once

// Leads from a location in a rewritten text back to the text before: by how much each stretch of the
// rewritten text has shifted. Kept while a text is rewritten from its end to its beginning or in any other
// order. A plain value.

#include <cstdint>
#include <map>

class TCContiguousIndexOffsets {
public:
    // What to add to the location to come to the original text.
    int64_t offsetForLocation(int64_t location) const;

    // The text has lost `amount` code units at the location, or gained them if that is negative.
    void offsetBy(int64_t amount, int64_t location);

private:
    std::map<int64_t, int64_t> offsets; // by the first location; 0 is one as soon as there is any
};
