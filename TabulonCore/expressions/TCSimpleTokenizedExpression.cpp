#include "expressions/TCSimpleTokenizedExpression.h"

#include "expressions/TCExpressionMappings.h"

#include <algorithm>
#include <utility>

TCSimpleTokenizedExpression::TCSimpleTokenizedExpression(
    TBF::Ref<TBF::TokenizedExpression> tokenizedExpression,
    std::shared_ptr<const TCExpressionMappings> rangeMappings, int64_t originalExpressionLength)
    : tokenized(std::move(tokenizedExpression))
    , mappings(std::move(rangeMappings))
    , typedLength(originalExpressionLength) {}

TCSimpleTokenizedExpression::Token TCSimpleTokenizedExpression::tokenAtIndex(std::size_t index) const {
    Token found;
    enumerateTokensWithBlock([&](const Token& token, bool& stop) {
        stop = index-- == 0;
        if (stop) found = token;
    });
    return found;
}

bool TCSimpleTokenizedExpression::hasEquals() const {
    return std::ranges::any_of(tokenized->tokens(),
                               [](const auto& token) { return token->type() == TBFTokenTypeEquals; });
}

// A replaced phrase may be several tokens: the first of them takes the whole phrase.
TCRange TCSimpleTokenizedExpression::transformSubstitutedRange(TCRange substitutedRange,
                                                               TCRange previousTokenRange) const {
    const int64_t location = previousTokenRange.end();
    if (!mappings) return {location, substitutedRange.length};
    return {location, std::max<int64_t>(mappings->tcEndOfTBFEnd(substitutedRange.end()) - location, 0)};
}

int64_t TCSimpleTokenizedExpression::substitutedLength() const {
    const auto& tokens = tokenized->tokens();
    return tokens.empty() ? 0 : tokens.back()->range().end() - tokens.front()->range().location;
}

TCSimpleTokenizedExpression::Token
TCSimpleTokenizedExpression::tokenAfter(const Token& previous,
                                        const TBF::ExpressionToken& foundationToken) const {
    Token token;
    token.type = TCExpressionTokenTypeFromTBFTokenType(foundationToken.type());
    token.subType = TCExpressionTokenSubTypeFromTBFTokenSubType(foundationToken.subType());
    token.substitutedRange = {foundationToken.range().location, foundationToken.range().length};
    token.range = transformSubstitutedRange(token.substitutedRange, previous.range);
    return token;
}
