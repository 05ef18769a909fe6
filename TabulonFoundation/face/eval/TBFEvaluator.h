#pragma once

// The plain functions of the evaluator front. Setters ignore a null evaluator, and evaluating with one gives
// null. An evaluator is used by one thread.

#include "analysis/ExpressionTokenList.h"
#include "runtime/Ref.h"

#include <cstdint>
#include <vector>

namespace TBF {
class Array;
class Evaluator;
class EvaluatorDebugInfo;
class ExpressionToken;
class FunctionList;
class ParsedExpression;
class Result;
class String;
class UnitCollection;
class VariableList;
class WordOperatorList;
} // namespace TBF
using TBFEvaluatorRef = TBF::Evaluator*;
using TBFEvaluatorDebugInfoRef = TBF::EvaluatorDebugInfo*;

// Create. The caller owns the evaluator, which isn't counted.
TBFEvaluatorRef TBFEvaluatorCreate();
TBFEvaluatorRef TBFEvaluatorCreate(TBF::UnitCollection* unitCollection);
void TBFEvaluatorFree(TBFEvaluatorRef evaluator);

// Set up. Lists and context information are borrowed, the unit collection is retained.
void TBFEvaluatorSetIgnoresUndefinedTokens(TBFEvaluatorRef evaluator, bool ignores);
bool TBFEvaluatorGetIgnoresUndefinedTokens(const TBF::Evaluator* evaluator);
void TBFEvaluatorSetWordOperatorList(TBFEvaluatorRef evaluator, TBF::WordOperatorList* list);
void TBFEvaluatorSetFunctionList(TBFEvaluatorRef evaluator, TBF::FunctionList* list);
void TBFEvaluatorSetUnitCollection(TBFEvaluatorRef evaluator, TBF::UnitCollection* collection);
void TBFEvaluatorSetVariableList(TBFEvaluatorRef evaluator, TBF::VariableList* list);
void TBFEvaluatorSetTrigonometryMode(TBFEvaluatorRef evaluator, int32_t mode); // 1 degrees, 2 radians
void TBFEvaluatorSetContextInfo(TBFEvaluatorRef evaluator, void* contextInfo);

// Evaluate. The result is owned by the caller; null when there is nothing to evaluate. Of the scopes only
// that of a string has an effect: variables are read as they stand at that line.
TBF::Result* TBFEvaluatorEvaluateString(TBFEvaluatorRef evaluator, const TBF::String* string);
TBF::Result* TBFEvaluatorEvaluateStringInScope(TBFEvaluatorRef evaluator, const TBF::String* string,
                                               int32_t scope);
TBF::Result* TBFEvaluatorEvaluateExpressionTokensInScope(TBFEvaluatorRef evaluator,
                                                         const TBF::ExpressionTokenList& tokens,
                                                         int32_t scope);
TBF::Result* TBFEvaluatorEvaluateExpressionTokensInScope(TBFEvaluatorRef evaluator, const TBF::Array* tokens,
                                                         int32_t scope);
TBF::Result* TBFEvaluatorEvaluateParsedExpressionInScope(TBFEvaluatorRef evaluator,
                                                         const TBF::ParsedExpression* expression,
                                                         int32_t scope);

// Diagnostics, off at first: the tree of the last evaluation, as the tree printer writes it. Borrowed until
// the next evaluation; empty before the first one, and after a text that gave no tree.
void TBFEvaluatorSetDebugEnabled(TBFEvaluatorRef evaluator, bool enabled);
bool TBFEvaluatorGetDebugEnabled(const TBF::Evaluator* evaluator);
TBFEvaluatorDebugInfoRef TBFEvaluatorGetDebugInfo(TBFEvaluatorRef evaluator); // null while it is off
const char* TBFEvaluatorDebugInfoGetTreeString(const TBF::EvaluatorDebugInfo* info);
