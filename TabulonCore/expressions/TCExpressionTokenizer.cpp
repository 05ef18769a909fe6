#include "expressions/TCExpressionTokenizer.h"

#include "analysis/Expression.h"
#include "analysis/ExpressionTokenizer.h"
#include "expressions/TCExpression.h"
#include "expressions/TCExpressionSubstituter.h"
#include "expressions/TCSimpleTokenizedExpression.h"
#include "runtime/ObjectPool.h"

#include <utility>

TCExpressionTokenizer::TCExpressionTokenizer(TCSimpleLocale locale,
                                             std::shared_ptr<TCExpressionSubstituter> substituter)
    : textLocale(locale)
    , textSubstituter(std::move(substituter)) {}

std::shared_ptr<TCSimpleTokenizedExpression>
TCExpressionTokenizer::tokenizeExpression(const TCExpression& expression) const {
    const auto tokenizer = TBF::ExpressionTokenizer::create(TCTBFLocaleFromTCSimpleLocale(textLocale));
    const auto& typed = expression.originalString();
    const auto length = static_cast<int64_t>(typed ? typed->size() : 0);
    // The expression itself keeps what the default substituter makes of its text.
    if (textSubstituter == TCExpressionSubstituter::defaultSubstituter() &&
        expression.isSubstitutedByDefault()) {
        return TBF::makeShared<TCSimpleTokenizedExpression>(tokenizer->tokenize(expression.tbfExpression()),
                                                            expression.expressionMappings(), length);
    }
    std::u16string text = expression.isTooLong() ? std::u16string() : typed.value_or(std::u16string());
    auto mappings = textSubstituter ? textSubstituter->applySubstitutionsToMutableString(text) : nullptr;
    return TBF::makeShared<TCSimpleTokenizedExpression>(
        tokenizer->tokenize(TBF::Expression::create(text).get()), std::move(mappings), length);
}
