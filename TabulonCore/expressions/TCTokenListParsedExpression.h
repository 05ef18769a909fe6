#pragma once

// An expression with given tokens: a list, or something that makes the list when it is first asked for. Used
// by one thread at a time.

#include "expressions/TCParsedExpression.h"

#include <functional>

class TCTokenListParsedExpression final : public TCParsedExpression {
public:
    using Maker = std::function<TCExpressionTokens()>;

    TCTokenListParsedExpression(std::shared_ptr<TCExpression> expression, TCExpressionTokens tokens);
    TCTokenListParsedExpression(std::shared_ptr<TCExpression> expression, Maker makeTokens);

    const TCExpressionTokens& tokens() const override;

private:
    mutable TCExpressionTokens list;
    mutable Maker maker; // empty once the list is made
};
