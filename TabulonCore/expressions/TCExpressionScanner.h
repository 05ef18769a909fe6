#pragma once

// Quick questions about a short text, without any names: whether it is one single token, and of which type.
// No state; one thread at a time, as with all tokens.

#include "expressions/TCExpressionTokenTypes.h"

#include <string_view>

class TCExpressionScanner {
public:
    static bool isSingleTokenOfType(std::u16string_view text, TCExpressionTokenType type);
    static bool isOperator(std::u16string_view text);
};
