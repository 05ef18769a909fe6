#pragma once

// The text and the tokens of a line, as they are at the time of asking. Used by one thread at a time.

#include "expressions/TCParsedExpression.h"

class TCLine;

class TCLineBackedParsedExpression final : public TCParsedExpression {
public:
    // The line is not owned; without it there are no tokens.
    explicit TCLineBackedParsedExpression(std::weak_ptr<TCLine> line);

    std::shared_ptr<TCExpression> expression() const override;
    const TCExpressionTokens& tokens() const override;

private:
    std::weak_ptr<TCLine> backingLine;
};
