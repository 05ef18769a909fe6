#pragma once

// The short way from a text to tokens: substitutes and tokenizes, without any analysis. Immutable, so it may
// be shared between threads as far as its substituter may.

#include "environment/TCSimpleLocale.h"

#include <memory>

class TCExpression;
class TCExpressionSubstituter;
class TCSimpleTokenizedExpression;

class TCExpressionTokenizer {
public:
    TCExpressionTokenizer(TCSimpleLocale locale, std::shared_ptr<TCExpressionSubstituter> substituter);

    // Never null. An expression without a text has no tokens.
    std::shared_ptr<TCSimpleTokenizedExpression> tokenizeExpression(const TCExpression& expression) const;

private:
    TCSimpleLocale textLocale;
    std::shared_ptr<TCExpressionSubstituter> textSubstituter;
};
