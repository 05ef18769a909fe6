#pragma once

// Turns the analyzed foundation tokens of a substituted text into tokens for display. The foundation's tokens
// lie end to end in the substituted text, and those made do in the typed one and in the displayed one. A run
// of foundation tokens that becomes one token is a span: a replaced phrase or a reference to another line.
// Used for one expression, on one thread.

#include "expressions/TCExpressionMappings.h"
#include "expressions/TCExpressionToken.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <vector>

class TCExpressionTokenBuilder {
public:
    using FoundationTokens = TCExpressionToken::FoundationTokens;

    // `mappings`, which may be null, and the tokens outlive the builder. The tokens made find back to
    // `expression`.
    TCExpressionTokenBuilder(FoundationTokens foundationTokens, const TCExpressionMappings* rangeMappings,
                             std::weak_ptr<const TCExpression> expression);

    // Called once.
    TCExpressionTokens build();

private:
    struct Span {
        TCRange substituted;
        std::optional<int64_t> displayedLength = std::nullopt; // as typed if not given
        std::size_t first = 0;                                 // index of the first foundation token
        std::size_t count = 1;
        std::size_t firstInner = 0; // the argument of a reference
        std::size_t innerCount = 0;
    };

    struct ShownType {
        TCExpressionTokenType type;
        TCExpressionTokenSubType subType;
    };

    std::optional<Span> openSpan(std::size_t index);
    std::optional<Span> spanOfLineReference(std::size_t index);
    std::size_t nextCloseBracket(std::size_t index);
    void closeSpan();
    TCRange typedRange(FoundationTokens run);
    ShownType shownType(FoundationTokens run) const;
    int64_t evaluatedArgument(FoundationTokens argument) const;
    void append(std::shared_ptr<TCExpressionToken> token);
    void appendPlainToken(std::size_t index);

    FoundationTokens tokens;
    const TCExpressionMappings* mappings;
    std::weak_ptr<const TCExpression> source;
    TCExpressionTokens made;
    std::optional<Span> span;
    int64_t typedEnd = 0;                   // of the token made last
    int64_t highOffset = 0;                 // from the typed text to the displayed one
    std::vector<std::size_t> closeBrackets; // for each token the next close bracket; empty until needed
};
