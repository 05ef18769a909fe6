#include "analysis/TBFTokenizedExpression.h"

#include "analysis/TokenizedExpression.h"

TBFTokenizedExpressionRef
TBFTokenizedExpressionCreate(const std::vector<TBF::Ref<TBF::ExpressionToken>>& tokens) {
    return TBF::TokenizedExpression::create(tokens).leak();
}

TBFTokenizedExpressionRef TBFTokenizedExpressionRetain(TBFTokenizedExpressionRef expression) {
    return TBF::retain(expression).leak();
}

void TBFTokenizedExpressionRelease(TBFTokenizedExpressionRef expression) {
    if (expression) expression->release();
}
