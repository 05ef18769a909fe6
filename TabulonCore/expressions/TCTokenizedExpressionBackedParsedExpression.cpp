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

bool TCTokenizedExpressionBackedParsedExpression::hasTokens() const {
    return tokenized && tokenized->isTokenized();
}

void TCTokenizedExpressionBackedParsedExpression::dropTokens() {
    if (tokenized) tokenized->setNeedsTokenizing();
}
