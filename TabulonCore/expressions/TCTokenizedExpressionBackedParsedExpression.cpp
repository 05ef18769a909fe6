#include "expressions/TCTokenizedExpressionBackedParsedExpression.h"

#include "environment/TCEnvironment.h"
#include "expressions/TCExpression.h"
#include "expressions/TCTokenizedExpression.h"

#include <utility>

TCTokenizedExpressionBackedParsedExpression::TCTokenizedExpressionBackedParsedExpression(
    std::shared_ptr<TCExpression> expression, std::shared_ptr<TCEnvironment> environment, bool parsesComments)
    : TCParsedExpression(std::move(expression))
    , names(std::move(environment))
    , withComments(parsesComments) {}

TCTokenizedExpressionBackedParsedExpression::~TCTokenizedExpressionBackedParsedExpression() = default;

const TCExpressionTokens& TCTokenizedExpressionBackedParsedExpression::tokens() const {
    if (!tokenized) {
        const std::shared_ptr<TCExpression> source = expression();
        if (!source) return TCParsedExpression::tokens();
        tokenized = std::make_unique<TCTokenizedExpression>(source);
        tokenized->setEnableCommentParsing(withComments);
        if (names) {
            tokenized->setVariableList(names->variables());
            tokenized->setUnitManager(names->unitManager());
            tokenized->setWordOperators(names->wordOperators());
        }
    }
    return tokenized->tokens();
}

bool TCTokenizedExpressionBackedParsedExpression::hasTokens() const {
    return tokenized && tokenized->isTokenized();
}

void TCTokenizedExpressionBackedParsedExpression::dropTokens() {
    tokenized.reset();
}
