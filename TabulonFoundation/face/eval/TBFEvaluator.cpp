#include "face/eval/TBFEvaluator.h"

#include "analysis/ExpressionToken.h"
#include "eval/Evaluator.h"
#include "parser/ParsedExpression.h"
#include "results/Result.h"
#include "runtime/String.h"

#include <memory>

using TBF::Evaluator;

TBFEvaluatorRef TBFEvaluatorCreate() {
    return TBFEvaluatorCreate(nullptr);
}

TBFEvaluatorRef TBFEvaluatorCreate(TBF::UnitCollection* unitCollection) {
    return std::make_unique<Evaluator>(unitCollection).release();
}

void TBFEvaluatorFree(TBFEvaluatorRef evaluator) {
    delete evaluator;
}

void TBFEvaluatorSetIgnoresUndefinedTokens(TBFEvaluatorRef evaluator, bool ignores) {
    if (evaluator) evaluator->setIgnoresUndefinedTokens(ignores);
}

bool TBFEvaluatorGetIgnoresUndefinedTokens(const Evaluator* evaluator) {
    return evaluator && evaluator->ignoresUndefinedTokens();
}

void TBFEvaluatorSetWordOperatorList(TBFEvaluatorRef evaluator, TBF::WordOperatorList* list) {
    if (evaluator) evaluator->setWordOperatorList(list);
}

void TBFEvaluatorSetFunctionList(TBFEvaluatorRef evaluator, TBF::FunctionList* list) {
    if (evaluator) evaluator->setFunctionList(list);
}

void TBFEvaluatorSetUnitCollection(TBFEvaluatorRef evaluator, TBF::UnitCollection* collection) {
    if (evaluator) evaluator->setUnitCollection(collection);
}

void TBFEvaluatorSetVariableList(TBFEvaluatorRef evaluator, TBF::VariableList* list) {
    if (evaluator) evaluator->setVariableList(list);
}

void TBFEvaluatorSetTrigonometryMode(TBFEvaluatorRef evaluator, int32_t mode) {
    if (evaluator) evaluator->setTrigonometryMode(mode);
}

void TBFEvaluatorSetContextInfo(TBFEvaluatorRef evaluator, void* contextInfo) {
    if (evaluator) evaluator->setContextInfo(contextInfo);
}

TBF::Result* TBFEvaluatorEvaluateString(TBFEvaluatorRef evaluator, const TBF::String* string) {
    return TBFEvaluatorEvaluateStringInScope(evaluator, string, -1);
}

TBF::Result* TBFEvaluatorEvaluateStringInScope(TBFEvaluatorRef evaluator, const TBF::String* string,
                                               int32_t scope) {
    return evaluator && string ? evaluator->evaluate(*string, scope).leak() : nullptr;
}

TBF::Result* TBFEvaluatorEvaluateExpressionTokensInScope(TBFEvaluatorRef evaluator,
                                                         const TBF::ExpressionTokenList& tokens, int32_t) {
    return evaluator ? evaluator->evaluate(tokens).leak() : nullptr;
}

TBF::Result* TBFEvaluatorEvaluateExpressionTokensInScope(TBFEvaluatorRef evaluator, const TBF::Array* tokens,
                                                         int32_t) {
    return evaluator && tokens ? evaluator->evaluate(*tokens).leak() : nullptr;
}

TBF::Result* TBFEvaluatorEvaluateParsedExpressionInScope(TBFEvaluatorRef evaluator,
                                                         const TBF::ParsedExpression* expression, int32_t) {
    return evaluator && expression ? evaluator->evaluate(*expression).leak() : nullptr;
}

void TBFEvaluatorSetDebugEnabled(TBFEvaluatorRef evaluator, bool enabled) {
    if (evaluator) evaluator->setDebugEnabled(enabled);
}

bool TBFEvaluatorGetDebugEnabled(const Evaluator* evaluator) {
    return evaluator && evaluator->debugInfo();
}

TBFEvaluatorDebugInfoRef TBFEvaluatorGetDebugInfo(TBFEvaluatorRef evaluator) {
    return evaluator ? evaluator->debugInfo() : nullptr;
}

const char* TBFEvaluatorDebugInfoGetTreeString(const TBF::EvaluatorDebugInfo* info) {
    return info ? info->treeString.c_str() : nullptr;
}
