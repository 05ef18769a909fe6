#pragma once

// Fits the choices of how answers read to the answer at hand: a percentage gets significant digits, money
// gets two places. Holds one switch, so an object may be used anywhere.

#include "results/TCResultFormattingOptions.h"

class TCResult;

class TCResultFormattingOptionsContextualizer {
public:
    // Whether the numbers of digits are fitted too, or only the signs.
    bool enableAutoPrecision() const { return autoPrecision; }
    void setEnableAutoPrecision(bool enabled) { autoPrecision = enabled; }

    // A changed copy; a plain one without a result.
    TCResultFormattingOptions contextualizedOptions(const TCResultFormattingOptions& options,
                                                    const TCResult* forResult) const;

private:
    bool autoPrecision = true;
};
