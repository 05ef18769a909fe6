#pragma once

// The plain functions over token lists. A null list is harmless.

#include "analysis/ExpressionTokenList.h"
#include "face/analysis/TBFExpressionToken.h"

#include <vector>

namespace TBF {
class TokenizedExpression;
}
using TBFTokenizedExpressionRef = TBF::TokenizedExpression*;

// The caller owns the result, which shares the tokens.
TBFTokenizedExpressionRef TBFTokenizedExpressionCreate(const TBF::ExpressionTokenList& tokens);
TBFTokenizedExpressionRef TBFTokenizedExpressionRetain(TBFTokenizedExpressionRef expression);
void TBFTokenizedExpressionRelease(TBFTokenizedExpressionRef expression);
