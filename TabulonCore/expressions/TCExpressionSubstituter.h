#pragma once

// Rewrites the spellings which the foundation's scanner can't read into ones that it can, before a line is
// tokenized, and records what it rewrote. One instance is shared; it is set up on one thread, and may then be
// used on any.

#include "expressions/TCExpressionMappings.h"

#include <cstdint>
#include <memory>
#include <string>

class TCExpressionSubstituter {
public:
    // The one for all lines.
    static const std::shared_ptr<TCExpressionSubstituter>& defaultSubstituter();

    // Rewrites the text in place. Never null.
    std::shared_ptr<const TCExpressionMappings> applySubstitutionsToMutableString(std::u16string& text) const;
    std::shared_ptr<const TCExpressionMappings> _regexParseExpressionString(std::u16string& text) const {
        return applySubstitutionsToMutableString(text);
    }

    // Goes up with every change of the patterns: a text that was rewritten at the same state would come out
    // the same again.
    uint64_t stateIndicator() const { return changes; }

private:
    uint64_t changes = 0;
};
