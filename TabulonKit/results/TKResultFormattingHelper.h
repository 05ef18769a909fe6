#pragma once

// The answers of lines as a list of lines shows them. No state; on the document's thread.

#include "results/TCAttributedString.h"
#include "results/TCResultFormattingOptions.h"

#include <optional>
#include <string>

class TCLine;

class TKResultFormattingHelper {
public:
    // The line's own options; amounts of currencies that nobody counts in hundredths lose their decimals.
    static TCResultFormattingOptions bestResultFormattingOptionsForLine(TCLine& line);

    // None without an answer, and for an error.
    static std::optional<std::u16string> formattedResultForLine(TCLine& line);

    // The same with its fonts; an error has its text. None without either.
    static std::optional<TCAttributedString>
    attributedFormattedResultForLine(TCLine& line, const TCTextAttributes& withAttributes);
};
