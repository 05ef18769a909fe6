#include "expressions/TCParsedExpressionHelpers.h"

#include "runtime/TBFLog.h"

#include <algorithm>

namespace {

// Nothing makes tokens of this type any more; those who ask for one kind of reference accept it.
constexpr auto formerLineReferenceType = static_cast<TCExpressionTokenType>(14);

bool isLineReference(const TCExpressionToken& token) {
    return token.type() == TCExpressionTokenTypeLineReference || token.type() == formerLineReferenceType;
}

TCRange rangeOf(const TCExpressionToken& token, bool highLevel) {
    return highLevel ? token.highLevelRange() : token.range();
}

// The index of the token that holds the location; the number of tokens for a location at or behind the end,
// and none for one between or before the tokens.
std::optional<std::size_t> indexAtLocation(int64_t location, const TCExpressionTokens& tokens,
                                           bool highLevel) {
    if (tokens.empty() || location >= rangeOf(*tokens.back(), highLevel).end()) return tokens.size();
    const auto behind = std::ranges::upper_bound(
        tokens, location, {}, [highLevel](const auto& token) { return rangeOf(*token, highLevel).location; });
    for (auto token = behind; token != tokens.begin();) {
        const TCRange range = rangeOf(**--token, highLevel);
        if (range.contains(location)) return static_cast<std::size_t>(token - tokens.begin());
        if (range.length > 0) break; // only empty tokens can stand in front of the one looked for
    }
    return std::nullopt;
}

} // namespace

TCParsedExpressionHelpers::Token TCParsedExpressionHelpers::tokenAtLocation(int64_t location,
                                                                            const TCExpressionTokens& tokens,
                                                                            int32_t locationType) {
    if (locationType != TCTokenLocationTypeTyped && locationType != TCTokenLocationTypeDisplayed)
        TBFErrorLog("Unexpected type %d", static_cast<int>(locationType));
    const auto index = indexAtLocation(location, tokens, locationType == TCTokenLocationTypeDisplayed);
    return index && *index < tokens.size() ? tokens[*index] : nullptr;
}

TCExpressionTokens TCParsedExpressionHelpers::findTokens(const TCExpressionTokens& tokens, int64_t location,
                                                         int32_t direction, std::size_t maxCount,
                                                         bool skipCurrentLocation, bool highLevelLocation) {
    TCExpressionTokens found;
    const auto start = indexAtLocation(location, tokens, highLevelLocation);
    if (!start) return found;
    std::size_t index = *start;
    const bool isBehindEnd = index == tokens.size();
    if (direction == TCTokenDirectionBackward) {
        if (!isBehindEnd && !skipCurrentLocation) ++index;
        while (index > 0 && found.size() < maxCount)
            found.push_back(tokens[--index]);
    } else {
        if (!isBehindEnd && skipCurrentLocation) ++index;
        while (index < tokens.size() && found.size() < maxCount)
            found.push_back(tokens[index++]);
    }
    return found;
}

std::optional<TCExpressionTokens> TCParsedExpressionHelpers::tokensOfType(TCExpressionTokenType type,
                                                                          const TCExpressionTokens& tokens) {
    if (tokens.empty()) return std::nullopt;
    TCExpressionTokens found;
    std::ranges::copy_if(tokens, std::back_inserter(found),
                         [type](const Token& token) { return token->type() == type; });
    return found;
}

TCExpressionTokens TCParsedExpressionHelpers::lineReferenceTokensOfType(TCLineReferenceType type,
                                                                        const TCExpressionTokens& tokens) {
    TCExpressionTokens found;
    std::ranges::copy_if(tokens, std::back_inserter(found), [type](const Token& token) {
        return isLineReference(*token) && token->lineReferenceType() == type;
    });
    return found;
}

std::set<std::u16string> TCParsedExpressionHelpers::findVariableReferences(const TCExpressionTokens& tokens) {
    std::set<std::u16string> names;
    for (const Token& token : tokens) {
        if (token->type() == TCExpressionTokenTypeVariable && token->string()) names.insert(*token->string());
    }
    return names;
}

bool TCParsedExpressionHelpers::hasReferenceToVariableWithName(std::u16string_view name,
                                                               const TCExpressionTokens& tokens) {
    return std::ranges::any_of(tokens, [name](const Token& token) {
        return token->type() == TCExpressionTokenTypeVariable && token->string() == name;
    });
}

TCParsedExpressionHelpers::Token TCParsedExpressionHelpers::tokenAfter(const TCExpressionToken& token,
                                                                       int32_t direction,
                                                                       const TCExpressionTokens& tokens) {
    const bool backward = direction == TCTokenDirectionBackward;
    return tokenAtLocation(backward ? token.range().location - 1 : token.range().end(), tokens);
}

void TCParsedExpressionHelpers::enumerateTokensAfterToken(
    const TCExpressionToken* token, int32_t direction, const TCExpressionTokens& tokens,
    const std::function<void(const TCExpressionToken&, bool&)>& visit) {
    Token next = token ? tokenAfter(*token, direction, tokens) : tokenAtLocation(0, tokens);
    bool stop = false;
    while (next) {
        visit(*next, stop);
        if (stop) return;
        next = tokenAfter(*next, direction, tokens);
    }
}

int64_t TCParsedExpressionHelpers::indexOfToken(const TCExpressionToken& token,
                                                const TCExpressionTokens& tokens) {
    const auto found = std::ranges::find(tokens, &token, [](const Token& other) { return other.get(); });
    return found == tokens.end() ? -1 : found - tokens.begin();
}
