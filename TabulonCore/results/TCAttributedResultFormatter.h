#pragma once

// Styles an answer's text: the base string and the exponent of scientific form in fonts of their own. Holds
// nothing but borrowed options, which outlive it.

#include "results/TCAttributedString.h"
#include "results/TCResultFormatter.h"

class TCAttributedResultFormatter {
public:
    const TCResultFormattingOptions* options() const { return borrowedOptions; }
    void setOptions(const TCResultFormattingOptions* options) { borrowedOptions = options; }

    TCAttributedString formatResultString(std::u16string text, const TCResultRanges& withRanges,
                                          const TCTextAttributes& normalAttributes) const;

private:
    const TCResultFormattingOptions* borrowedOptions = nullptr;
};
