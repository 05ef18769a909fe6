#include "expressions/TCTokenizedExpressionBackedParsedExpression.h"

#include "expressions/TCTokenizedExpression.h"

#include <utility>

TCTokenizedExpressionBackedParsedExpression::TCTokenizedExpressionBackedParsedExpression(
    std::shared_ptr<TCExpression> expression, std::shared_ptr<TCTokenizedExpression> tokenizedExpression)
    : TCParsedExpression(std::move(expression))
    , tokenized(std::move(tokenizedExpression)) {}

const TCExpressionTokens& TCTokenizedExpressionBackedParsedExpression::tokens() const {
    return tokenized ? tokenized->tokens() : TCParsedExpression::tokens();
}
