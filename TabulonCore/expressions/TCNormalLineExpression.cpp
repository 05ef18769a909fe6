#include "expressions/TCNormalLineExpression.h"

#include "expressions/TCLineExpressionParser.h"

#include <utility>

TCNormalLineExpression::TCNormalLineExpression(
    std::shared_ptr<TCExpression> expression,
    std::shared_ptr<TCSimpleTokenizedExpression> tokenizedExpression)
    : TCAbstractLineExpression(TCExpressionTypeNormal, expression, std::move(tokenizedExpression)) {
    setEvaluableExpression(std::move(expression));
    tokenizeOnDemand();
}

void TCNormalLineExpression::process(TCLineExpressionParser& parser) {
    parser.processNormalLineExpression(*this);
}
