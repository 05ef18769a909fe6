#include "expressions/TCVarDeclLineExpression.h"

#include "expressions/TCLineExpressionParser.h"
#include "expressions/TCLineVariableDeclaration.h"

#include <utility>

TCVarDeclLineExpression::TCVarDeclLineExpression(
    std::shared_ptr<TCExpression> expression,
    std::shared_ptr<TCSimpleTokenizedExpression> tokenizedExpression,
    std::shared_ptr<TCLineVariableDeclaration> variableDeclaration)
    : TCAbstractLineExpression(TCExpressionTypeVariableDeclaration, std::move(expression),
                               std::move(tokenizedExpression))
    , declaration(std::move(variableDeclaration)) {
    setEvaluableExpression(declaration->valueExpression());
    tokenizeOnDemand();
}

void TCVarDeclLineExpression::process(TCLineExpressionParser& parser) {
    parser.processVarDeclLineExpression(*this);
}
