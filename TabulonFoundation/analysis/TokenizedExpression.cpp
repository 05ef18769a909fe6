#include "analysis/TokenizedExpression.h"

namespace TBF {

Ref<TokenizedExpression> TokenizedExpression::create(ExpressionTokenList tokens) {
    return make<TokenizedExpression>(std::move(tokens));
}

} // namespace TBF
