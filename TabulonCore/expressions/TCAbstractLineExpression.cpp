#include "expressions/TCAbstractLineExpression.h"

#include "expressions/TCExpression.h"
#include "expressions/TCExpressionSubstituter.h"
#include "expressions/TCLineExpressionParser.h"
#include "expressions/TCLineReading.h"
#include "expressions/TCParsedExpression.h"
#include "expressions/TCSimpleTokenizedExpression.h"
#include "runtime/ObjectPool.h"

#include <utility>

struct TCAbstractLineExpression::Forms {
    std::shared_ptr<TCSimpleTokenizedExpression> wholeTokens;
    std::shared_ptr<TCSimpleTokenizedExpression> evaluableTokens;
    std::shared_ptr<TCParsedExpression> parsedEvaluable;
    std::shared_ptr<TCParsedExpression> parsedWhole;
    bool isParsed = false; // by a parser; plain text has no parsed forms even then

    static void* operator new(std::size_t size) { return TBF::ObjectPool::take(size); }
    static void operator delete(void* memory, std::size_t size) { TBF::ObjectPool::give(memory, size); }
};

TCAbstractLineExpression::TCAbstractLineExpression(
    TCExpressionType expressionType, std::shared_ptr<TCExpression> expression,
    std::shared_ptr<TCSimpleTokenizedExpression> tokenizedExpression)
    : whole(std::move(expression))
    , type(expressionType) {
    if (!tokenizedExpression) return;
    hasTokens = true;
    madeForms().wholeTokens = std::move(tokenizedExpression);
}

TCAbstractLineExpression::~TCAbstractLineExpression() = default;

TCAbstractLineExpression::Forms& TCAbstractLineExpression::madeForms() const {
    if (!forms) forms = std::make_unique<Forms>();
    return *forms;
}

// The parser fills this object in, which is no change that anybody could see.
void TCAbstractLineExpression::parseNow() const {
    if (!formMaker || (forms && forms->isParsed)) return;
    madeForms().isParsed = true;
    const_cast<TCAbstractLineExpression*>(this)->process(*formMaker);
}

std::shared_ptr<TCSimpleTokenizedExpression> TCAbstractLineExpression::tokenizedExpression() const {
    if (!hasTokens || !whole) return nullptr;
    std::shared_ptr<TCSimpleTokenizedExpression>& tokens = madeForms().wholeTokens;
    if (!tokens)
        tokens = TCLineReading::tokenize(*whole, whole->locale(),
                                         TCExpressionSubstituter::defaultSubstituter().get());
    return tokens;
}

void TCAbstractLineExpression::setEvaluableExpression(std::shared_ptr<TCExpression> expression) {
    evaluable = std::move(expression);
}

std::shared_ptr<TCSimpleTokenizedExpression> TCAbstractLineExpression::tokenizedEvaluableExpression() const {
    // Of an ordinary line they are those of the whole, and need no parser.
    if (type == TCExpressionTypeNormal && formMaker) return tokenizedExpression();
    parseNow();
    return forms ? forms->evaluableTokens : nullptr;
}

void TCAbstractLineExpression::setTokenizedEvaluableExpression(
    std::shared_ptr<TCSimpleTokenizedExpression> tokens) {
    madeForms().evaluableTokens = std::move(tokens);
}

std::shared_ptr<TCParsedExpression> TCAbstractLineExpression::evaluableParsedExpression() const {
    if (waitsForParser) parseNow();
    return forms && isParsed() ? forms->parsedEvaluable : nullptr;
}

void TCAbstractLineExpression::setEvaluableParsedExpression(std::shared_ptr<TCParsedExpression> parsed) {
    madeForms().parsedEvaluable = std::move(parsed);
}

std::shared_ptr<TCParsedExpression> TCAbstractLineExpression::parsedExpression() const {
    if (waitsForParser) parseNow();
    return forms && isParsed() ? forms->parsedWhole : nullptr;
}

void TCAbstractLineExpression::setParsedExpression(std::shared_ptr<TCParsedExpression> parsed) {
    madeForms().parsedWhole = std::move(parsed);
}

bool TCAbstractLineExpression::isParsed() const {
    return waitsForParser || (!formMaker && forms && forms->parsedWhole);
}

void TCAbstractLineExpression::reset() {
    waitsForParser = false;
    if (!forms) return;
    forms->isParsed = false;
    forms->parsedEvaluable.reset();
    forms->parsedWhole.reset();
}

void TCAbstractLineExpression::parseOnDemand(std::shared_ptr<TCLineExpressionParser> parser) {
    reset();
    if (type == TCExpressionTypePlainText) return;
    formMaker = std::move(parser);
    waitsForParser = formMaker != nullptr;
}

std::shared_ptr<TCEnvironment> TCAbstractLineExpression::names() const {
    return formMaker ? formMaker->environment() : nullptr;
}

void TCAbstractLineExpression::dropTokens() {
    if (formMaker || !isParsed()) forms.reset();
}

void TCAbstractLineExpression::dropForms() {
    dropTokens();
    if (whole) whole->dropDerivedForms();
    if (evaluable && evaluable != whole) evaluable->dropDerivedForms();
}

void TCAbstractLineExpression::process(TCLineExpressionParser&) {}
