#include "expressions/TCLineExpressionParser.h"

#include "environment/TCEnvironment.h"
#include "expressions/TCAbstractLineExpression.h"
#include "expressions/TCExpression.h"
#include "expressions/TCExpressionSubstituter.h"
#include "expressions/TCExpressionTokenizer.h"
#include "expressions/TCLineReading.h"
#include "expressions/TCLineVariableDeclaration.h"
#include "expressions/TCParsedExpression.h"
#include "expressions/TCSimpleTokenizedExpression.h"
#include "expressions/TCTokenListParsedExpression.h"
#include "runtime/ObjectPool.h"

#include <utility>

TCLineExpressionParser::TCLineExpressionParser(std::shared_ptr<TCEnvironment> environment)
    : names(std::move(environment))
    , expressionParser(TBF::makeShared<TCExpressionParser>(names)) {}

TCLineExpressionParser::~TCLineExpressionParser() = default;

void TCLineExpressionParser::parseLineExpression(TCAbstractLineExpression& lineExpression) {
    lineExpression.process(*this);
}

void TCLineExpressionParser::processNormalLineExpression(TCAbstractLineExpression& lineExpression) {
    lineExpression.setTokenizedEvaluableExpression(lineExpression.tokenizedExpression());
    const auto parsed = expressionParser->parseExpression(lineExpression.expression());
    lineExpression.setEvaluableParsedExpression(parsed);
    lineExpression.setParsedExpression(parsed);
}

void TCLineExpressionParser::processVarDeclLineExpression(TCAbstractLineExpression& lineExpression) {
    const auto& evaluable = lineExpression.evaluableExpression();
    if (evaluable) {
        const TCExpressionTokenizer tokenizer(names ? names->locale() : evaluable->locale(),
                                              TCExpressionSubstituter::defaultSubstituter());
        lineExpression.setTokenizedEvaluableExpression(tokenizer.tokenizeExpression(*evaluable));
    }
    const std::shared_ptr<TCParsedExpression> value = expressionParser->parseExpression(evaluable);
    lineExpression.setEvaluableParsedExpression(value);

    // The stitching waits until somebody asks, as tokens are only needed for lines that are shown.
    auto stitch = [expression = std::weak_ptr<const TCExpression>(lineExpression.expression()),
                   declaration = lineExpression.variableDeclaration(), value] {
        const auto whole = expression.lock();
        if (!whole) return TCExpressionTokens();
        return TCLineReading::showDeclaration(whole, *declaration, value->tokens());
    };
    lineExpression.setParsedExpression(
        TBF::makeShared<TCTokenListParsedExpression>(lineExpression.expression(), std::move(stitch)));
}

void TCLineExpressionParser::processPlainTextLineExpression(TCAbstractLineExpression& lineExpression) {
    lineExpression.setTokenizedEvaluableExpression(nullptr);
    lineExpression.reset();
}

void TCLineExpressionParser::setParser(std::shared_ptr<TCExpressionParser> parser) {
    expressionParser = std::move(parser);
}
