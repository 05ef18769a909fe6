#pragma once

// An expression with a tokenized form of its own, which makes the tokens when they are asked for. Used by one
// thread at a time.

#include "expressions/TCParsedExpression.h"

class TCTokenizedExpression;

class TCTokenizedExpressionBackedParsedExpression final : public TCParsedExpression {
public:
    // Both may be null.
    TCTokenizedExpressionBackedParsedExpression(std::shared_ptr<TCExpression> expression,
                                                std::shared_ptr<TCTokenizedExpression> tokenizedExpression);

    const TCExpressionTokens& tokens() const override;
    bool hasTokens() const override;
    void dropTokens() override;

private:
    std::shared_ptr<TCTokenizedExpression> tokenized;
};
