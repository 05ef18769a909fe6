#pragma once

// The foundation tokens of an expression before any word is looked up, with their way back to the typed text.
// It is made at every change of a line: to tell what kind of line it is, and to evaluate it. Immutable; its
// foundation tokens are worked on by one evaluation at a time.

#include "analysis/TokenizedExpression.h"
#include "expressions/TCExpressionTokenTypes.h"
#include "expressions/TCRange.h"
#include "runtime/Ref.h"

#include <cstddef>
#include <cstdint>
#include <memory>

class TCExpressionMappings;

class TCSimpleTokenizedExpression {
public:
    // A token as the core layer reads it. All zero for a token that isn't there.
    struct Token {
        TCExpressionTokenType type = TCExpressionTokenTypeNone;
        TCExpressionTokenSubType subType = TCExpressionTokenSubTypeNone;
        TCRange range;            // in the typed text
        TCRange substitutedRange; // in the text that the foundation read
    };

    // The mappings may be null: then both texts are the same. `originalExpressionLength` is that of the typed
    // text.
    TCSimpleTokenizedExpression(TBF::Ref<TBF::TokenizedExpression> tokenizedExpression,
                                std::shared_ptr<const TCExpressionMappings> rangeMappings,
                                int64_t originalExpressionLength);

    // Sends each token, in order, to `visit(token, stop)`, which may set `stop`.
    template <typename Visitor>
    void enumerateTokensWithBlock(Visitor&& visit) const {
        bool stop = false;
        Token token;
        for (const auto& foundationToken : tokenized->tokens()) {
            token = tokenAfter(token, *foundationToken);
            visit(token, stop);
            if (stop) return;
        }
    }

    Token tokenAtIndex(std::size_t index) const;

    // Whether an equals sign is among the tokens.
    bool hasEquals() const;

    // The typed range of a token whose predecessor ends there. In the typed text, too, tokens lie end to end.
    TCRange transformSubstitutedRange(TCRange substitutedRange, TCRange previousTokenRange) const;

    // Borrowed.
    TBF::TokenizedExpression* tbfTokenizedExpression() const { return tokenized.get(); }

    // Null where both texts are the same. Borrowed.
    const TCExpressionMappings* rangeMappings() const { return mappings.get(); }

    int64_t length() const { return typedLength; }
    int64_t substitutedLength() const; // 0 without tokens

private:
    Token tokenAfter(const Token& previous, const TBF::ExpressionToken& foundationToken) const;

    TBF::Ref<TBF::TokenizedExpression> tokenized;
    std::shared_ptr<const TCExpressionMappings> mappings;
    int64_t typedLength;
};
