#include "expressions/TCParsedExpression.h"

#include <utility>

TCParsedExpression::TCParsedExpression(std::shared_ptr<TCExpression> expression)
    : wholeExpression(std::move(expression)) {}

TCParsedExpression::~TCParsedExpression() = default;

const TCExpressionTokens& TCParsedExpression::tokens() const {
    static const TCExpressionTokens none;
    return none;
}

std::shared_ptr<TCExpressionToken> TCParsedExpression::tokenAtLocation(int64_t location) const {
    return TCParsedExpressionHelpers::tokenAtLocation(location, tokens());
}

std::shared_ptr<TCExpressionToken> TCParsedExpression::tokenAtLocation(int64_t location,
                                                                       int32_t locationType) const {
    return TCParsedExpressionHelpers::tokenAtLocation(location, tokens(), locationType);
}

std::optional<TCExpressionTokens> TCParsedExpression::tokensOfType(TCExpressionTokenType type) const {
    return TCParsedExpressionHelpers::tokensOfType(type, tokens());
}

TCExpressionTokens TCParsedExpression::lineReferenceTokensOfType(TCLineReferenceType type) const {
    return TCParsedExpressionHelpers::lineReferenceTokensOfType(type, tokens());
}

bool TCParsedExpression::hasReferenceToVariableWithName(std::u16string_view name) const {
    return TCParsedExpressionHelpers::hasReferenceToVariableWithName(name, tokens());
}

std::set<std::u16string> TCParsedExpression::variableReferences() const {
    return TCParsedExpressionHelpers::findVariableReferences(tokens());
}

std::shared_ptr<TCExpressionToken> TCParsedExpression::tokenAfter(const TCExpressionToken& token,
                                                                  int32_t direction) const {
    return TCParsedExpressionHelpers::tokenAfter(token, direction, tokens());
}

void TCParsedExpression::enumerateTokensAfterToken(
    const TCExpressionToken* token, int32_t direction,
    const std::function<void(const TCExpressionToken&, bool&)>& visit) const {
    TCParsedExpressionHelpers::enumerateTokensAfterToken(token, direction, tokens(), visit);
}

void TCParsedExpression::enumerateTokensWithBlock(
    const std::function<void(const TCExpressionToken&, bool&)>& visit) const {
    bool stop = false;
    for (const auto& token : tokens()) {
        visit(*token, stop);
        if (stop) return;
    }
}
