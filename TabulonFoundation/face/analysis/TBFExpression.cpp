#include "face/analysis/TBFExpression.h"

#include "analysis/Expression.h"

TBFExpressionRef TBFExpressionCreateWithString(TBFStringRef string) {
    return TBF::Expression::create(string).leak();
}

TBFExpressionRef TBFExpressionCreate(const std::string& bytes) {
    return TBF::Expression::create(TBF::String::createWithUTF8(bytes).get()).leak();
}

TBFExpressionRef TBFExpressionRetain(TBFExpressionRef expression) {
    return TBF::retain(expression).leak();
}

void TBFExpressionRelease(TBFExpressionRef expression) {
    if (expression) expression->release();
}

TBFStringRef TBFExpressionGetStringReference(TBFExpressionRef expression) {
    return expression ? expression->string() : nullptr;
}
