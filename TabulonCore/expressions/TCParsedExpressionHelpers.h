#pragma once

// Questions to the tokens of an expression: which token holds a place, which are its neighbours, which
// references and variables there are. Places are those of the typed text, or of the displayed one where a
// parameter says so. Pure functions over tokens in order of their place.

#include "expressions/TCExpressionToken.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

enum TCTokenDirection : int32_t {
    TCTokenDirectionForward = 0,
    TCTokenDirectionBackward = 1,
};

enum TCTokenLocationType : int32_t {
    TCTokenLocationTypeTyped = 0,
    TCTokenLocationTypeDisplayed = 1,
};

class TCParsedExpressionHelpers {
public:
    using Token = std::shared_ptr<TCExpressionToken>;

    // Null where no token is, as at the end of the text. Another location type is logged and counts as typed.
    static Token tokenAtLocation(int64_t location, const TCExpressionTokens& tokens,
                                 int32_t locationType = TCTokenLocationTypeTyped);

    // The token at the location, unless it is skipped, and those next to it, at most `maxCount` in all.
    // Behind the last token only the backward direction finds any.
    static TCExpressionTokens findTokens(const TCExpressionTokens& tokens, int64_t location,
                                         int32_t direction, std::size_t maxCount, bool skipCurrentLocation,
                                         bool highLevelLocation);

    // None if there are no tokens at all.
    static std::optional<TCExpressionTokens> tokensOfType(TCExpressionTokenType type,
                                                          const TCExpressionTokens& tokens);

    // The references of exactly that kind.
    static TCExpressionTokens lineReferenceTokensOfType(TCLineReferenceType type,
                                                        const TCExpressionTokens& tokens);

    // The texts of the variables used, and whether a name is among them.
    static std::set<std::u16string> findVariableReferences(const TCExpressionTokens& tokens);
    static bool hasReferenceToVariableWithName(std::u16string_view name, const TCExpressionTokens& tokens);

    // The neighbour on that side; null if there is none.
    static Token tokenAfter(const TCExpressionToken& token, int32_t direction,
                            const TCExpressionTokens& tokens);

    // The neighbours, one after the other, until `visit(token, stop)` sets `stop`. Without a token from the
    // beginning on.
    static void enumerateTokensAfterToken(const TCExpressionToken* token, int32_t direction,
                                          const TCExpressionTokens& tokens,
                                          const std::function<void(const TCExpressionToken&, bool&)>& visit);

    // -1 for a token that isn't among them.
    static int64_t indexOfToken(const TCExpressionToken& token, const TCExpressionTokens& tokens);
};
