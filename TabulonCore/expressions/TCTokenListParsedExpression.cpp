#include "expressions/TCTokenListParsedExpression.h"

#include <utility>

TCTokenListParsedExpression::TCTokenListParsedExpression(std::shared_ptr<TCExpression> expression,
                                                         TCExpressionTokens tokens)
    : TCParsedExpression(std::move(expression))
    , list(std::move(tokens)) {}

TCTokenListParsedExpression::TCTokenListParsedExpression(std::shared_ptr<TCExpression> expression,
                                                         Maker makeTokens)
    : TCParsedExpression(std::move(expression))
    , maker(std::move(makeTokens)) {}

const TCExpressionTokens& TCTokenListParsedExpression::tokens() const {
    if (const Maker make = std::exchange(maker, nullptr)) list = make();
    return list;
}
