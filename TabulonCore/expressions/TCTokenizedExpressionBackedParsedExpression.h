#pragma once

// An expression with a tokenized form of its own, which is made when tokens are asked for: most lines of a
// document never are. Used by one thread at a time.

#include "expressions/TCParsedExpression.h"

class TCEnvironment;
class TCTokenizedExpression;

class TCTokenizedExpressionBackedParsedExpression final : public TCParsedExpression {
public:
    // The names that the tokens are read with are those of the environment. Both may be null.
    TCTokenizedExpressionBackedParsedExpression(std::shared_ptr<TCExpression> expression,
                                                std::shared_ptr<TCEnvironment> environment,
                                                bool parsesComments);
    ~TCTokenizedExpressionBackedParsedExpression() override;

    const TCExpressionTokens& tokens() const override;
    bool hasTokens() const override;
    void dropTokens() override;

private:
    std::shared_ptr<TCEnvironment> names;
    bool withComments;
    mutable std::unique_ptr<TCTokenizedExpression> tokenized; // null until asked for
};
