#include "expressions/TCTokenizedExpression.h"

#include "analysis/ExpressionTokenizer.h"
#include "analysis/TokenizedExpression.h"
#include "environment/TCEnvironment.h"
#include "environment/TCEvaluator.h"
#include "expressions/TCExpression.h"
#include "expressions/TCLineReading.h"
#include "names/Namespace.h"
#include "variables/TCVariableList.h"

#include <utility>

TCTokenizedExpression::TCTokenizedExpression(std::weak_ptr<TCExpression> expression)
    : source(std::move(expression)) {}

TCTokenizedExpression::~TCTokenizedExpression() = default;

const TCExpressionTokens& TCTokenizedExpression::tokens() {
    if (!isTokenized()) tokenize();
    return *tokenArray;
}

const TBF::ExpressionTokenList& TCTokenizedExpression::tbfExpressionTokens() {
    if (!isTokenized()) tokenize();
    return expressionTokens;
}

void TCTokenizedExpression::setVariableList(std::shared_ptr<TCVariableList> variables) {
    if (variables == variableList) return;
    variableList = std::move(variables);
    variableListStateIndicator = 0;
    setNeedsTokenizing();
}

void TCTokenizedExpression::setUnitManager(std::shared_ptr<TCUnitCollection> units) {
    if (units == unitManager) return;
    unitManager = std::move(units);
    setNeedsTokenizing();
}

void TCTokenizedExpression::setWordOperators(std::shared_ptr<TCWordOperatorList> words) {
    if (words == wordOperators) return;
    wordOperators = std::move(words);
    setNeedsTokenizing();
}

void TCTokenizedExpression::setNeedsTokenizing() {
    tokenArray.reset();
    expressionTokens.clear();
}

bool TCTokenizedExpression::isTokenized() const {
    return tokenArray && (!variableList || variableList->stateIndicator() == variableListStateIndicator);
}

void TCTokenizedExpression::tokenize() {
    setNeedsTokenizing();
    const std::shared_ptr<TCExpression> expression = source.lock();
    if (!expression || expression->isEmpty() || expression->isTooLong()) {
        tokenArray.emplace();
        return;
    }
    const auto environment = TCEnvironment::make();
    environment->setWordOperators(wordOperators);
    environment->setFunctions(TCEvaluator::builtInFunctions());
    environment->setUnitManager(unitManager);
    environment->setVariables(variableList);

    const auto tokenizer =
        TBF::ExpressionTokenizer::create(TCTBFLocaleFromTCSimpleLocale(expression->locale()));
    tokenizer->setEnableComments(parsesComments);
    expressionTokens =
        TCLineReading::analyze(*tokenizer->tokenize(expression->tbfExpression()), environment->names(), 0);
    tokenArray = parseTBFExpressionTokens(*expression);
    if (variableList) variableListStateIndicator = variableList->stateIndicator();
}

TCExpressionTokens TCTokenizedExpression::parseTBFExpressionTokens(const TCExpression& expression) const {
    return TCLineReading::show(expressionTokens, expression);
}
