#include "analysis/TokenizedExpression.h"

namespace TBF {

Ref<TokenizedExpression> TokenizedExpression::create(std::vector<Ref<ExpressionToken>> tokens) {
    return make<TokenizedExpression>(std::move(tokens));
}

} // namespace TBF
