#include "expressions/TCSimpleTokenizedExpression.h"

#include <utility>

TCSimpleTokenizedExpression::TCSimpleTokenizedExpression(
    TBF::Ref<TBF::TokenizedExpression> tokenizedExpression, TBF::Ref<RangeMappings> rangeMappings,
    int64_t originalExpressionLength)
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

// A replaced phrase may be several tokens: the last of them that holds a mapped place takes the rest of the
// phrase, and what comes behind the phrase in the same token keeps its length.
TCRange TCSimpleTokenizedExpression::transformSubstitutedRange(TCRange substitutedRange,
                                                               TCRange previousTokenRange) const {
    const int64_t location = previousTokenRange.end();
    const auto key = mappings ? mappings->findMaxKeyInRange(static_cast<int32_t>(substitutedRange.location),
                                                            static_cast<int32_t>(substitutedRange.end()))
                              : std::nullopt;
    const TCRange* const mapped = key ? mappings->get(*key) : nullptr;
    if (!mapped) return {location, substitutedRange.length};
    return {location, substitutedRange.end() - 1 - *key + mapped->end() - location};
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
