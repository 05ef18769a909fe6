#include "parser/Parser.h"

#include <utility>

namespace TBF {

Ref<Parser> Parser::create() {
    return make<Parser>();
}

Ref<ExpressionTree> Parser::parse(ExpressionTokens tokens) {
    ParseResult result = parseExpressionTokens(tokens);
    lastError = result.error;
    return std::move(result.tree);
}

} // namespace TBF
