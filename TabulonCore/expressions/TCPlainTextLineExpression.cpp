#include "expressions/TCPlainTextLineExpression.h"

#include "expressions/TCLineExpressionParser.h"

#include <utility>

TCPlainTextLineExpression::TCPlainTextLineExpression(
    std::shared_ptr<TCExpression> expression,
    std::shared_ptr<TCSimpleTokenizedExpression> tokenizedExpression)
    : TCAbstractLineExpression(TCExpressionTypePlainText, std::move(expression),
                               std::move(tokenizedExpression)) {}

void TCPlainTextLineExpression::process(TCLineExpressionParser& parser) {
    parser.processPlainTextLineExpression(*this);
}
