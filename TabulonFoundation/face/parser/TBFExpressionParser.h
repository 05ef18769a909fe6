#pragma once

// The plain functions that take a text or its tokens all the way to a tree, and those over the result. Null
// handles are accepted everywhere and give null. A parsed expression is used by one thread at a time.

#include "face/parser/TBFExpressionTree.h"
#include "runtime/Ref.h"

#include <vector>

namespace TBF {
class Expression;
class ExpressionParser;
class FunctionList;
class ParsedExpression;
class Token;
class TokenizedExpression;
class UnitCollection;
class VariableList;
class WordOperatorList;
} // namespace TBF

using TBFExpressionParserRef = TBF::ExpressionParser*;
using TBFParsedExpressionRef = TBF::ParsedExpression*;

// Retains the lists, any of which may be null. The caller owns the result.
TBFExpressionParserRef TBFExpressionParserCreate(TBF::FunctionList* functions, TBF::VariableList* variables,
                                                 TBF::WordOperatorList* wordOperators,
                                                 TBF::UnitCollection* units);
TBFExpressionParserRef TBFExpressionParserRetain(TBFExpressionParserRef parser);
void TBFExpressionParserRelease(TBFExpressionParserRef parser);

// The caller owns the result. A text is tokenized in the default locale, with comments.
TBFParsedExpressionRef TBFExpressionParserParseExpression(TBFExpressionParserRef parser,
                                                          TBF::Expression* expression);
TBFParsedExpressionRef
TBFExpressionParserParseTokenizedExpression(TBFExpressionParserRef parser,
                                            TBF::TokenizedExpression* tokenizedExpression);

TBFParsedExpressionRef TBFParsedExpressionRetain(TBFParsedExpressionRef parsed);
void TBFParsedExpressionRelease(TBFParsedExpressionRef parsed);

// Borrowed from the parsed expression. The vector of a null object is empty, its tree null.
const std::vector<TBF::Ref<TBF::Token>>& TBFParsedExpressionGetTokens(TBFParsedExpressionRef parsed);
TBFExpressionTreeRef TBFParsedExpressionGetExpressionTree(TBFParsedExpressionRef parsed);
