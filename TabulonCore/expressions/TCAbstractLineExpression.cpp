#include "expressions/TCAbstractLineExpression.h"

#include "expressions/TCExpression.h"
#include "expressions/TCParsedExpression.h"
#include "expressions/TCSimpleTokenizedExpression.h"

#include <utility>

TCAbstractLineExpression::TCAbstractLineExpression(
    TCExpressionType expressionType, std::shared_ptr<TCExpression> expression,
    std::shared_ptr<TCSimpleTokenizedExpression> tokenizedExpression)
    : type(expressionType)
    , whole(std::move(expression))
    , wholeTokens(std::move(tokenizedExpression)) {}

TCAbstractLineExpression::~TCAbstractLineExpression() = default;

void TCAbstractLineExpression::setEvaluableExpression(std::shared_ptr<TCExpression> expression) {
    evaluable = std::move(expression);
}

void TCAbstractLineExpression::setTokenizedEvaluableExpression(
    std::shared_ptr<TCSimpleTokenizedExpression> tokens) {
    evaluableTokens = std::move(tokens);
}

void TCAbstractLineExpression::setEvaluableParsedExpression(std::shared_ptr<TCParsedExpression> parsed) {
    parsedEvaluable = std::move(parsed);
}

void TCAbstractLineExpression::setParsedExpression(std::shared_ptr<TCParsedExpression> parsed) {
    parsedWhole = std::move(parsed);
}

void TCAbstractLineExpression::reset() {
    parsedEvaluable.reset();
    parsedWhole.reset();
}

void TCAbstractLineExpression::process(TCLineExpressionParser&) {}
