#pragma once

// The plain functions over token lists. A null list is harmless.

#include "analysis/TBFExpressionToken.h"

#include <vector>

namespace TBF {
class TokenizedExpression;
}
using TBFTokenizedExpressionRef = TBF::TokenizedExpression*;

// The caller owns the result, which shares the tokens.
TBFTokenizedExpressionRef
TBFTokenizedExpressionCreate(const std::vector<TBF::Ref<TBF::ExpressionToken>>& tokens);
TBFTokenizedExpressionRef TBFTokenizedExpressionRetain(TBFTokenizedExpressionRef expression);
void TBFTokenizedExpressionRelease(TBFTokenizedExpressionRef expression);
