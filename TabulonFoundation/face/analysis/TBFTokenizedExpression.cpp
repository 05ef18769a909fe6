#include "face/analysis/TBFTokenizedExpression.h"

#include "analysis/TokenizedExpression.h"

TBFTokenizedExpressionRef TBFTokenizedExpressionCreate(const TBF::ExpressionTokenList& tokens) {
    return TBF::TokenizedExpression::create(tokens).leak();
}

TBFTokenizedExpressionRef TBFTokenizedExpressionRetain(TBFTokenizedExpressionRef expression) {
    return TBF::retain(expression).leak();
}

void TBFTokenizedExpressionRelease(TBFTokenizedExpressionRef expression) {
    if (expression) expression->release();
}
