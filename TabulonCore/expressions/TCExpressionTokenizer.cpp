#include "expressions/TCExpressionTokenizer.h"

#include "expressions/TCExpressionSubstituter.h"
#include "expressions/TCLineReading.h"
#include "expressions/TCSimpleTokenizedExpression.h"

#include <utility>

TCExpressionTokenizer::TCExpressionTokenizer(TCSimpleLocale locale,
                                             std::shared_ptr<TCExpressionSubstituter> substituter)
    : textLocale(locale)
    , textSubstituter(std::move(substituter)) {}

std::shared_ptr<TCSimpleTokenizedExpression>
TCExpressionTokenizer::tokenizeExpression(const TCExpression& expression) const {
    return TCLineReading::tokenize(expression, textLocale, textSubstituter.get());
}
