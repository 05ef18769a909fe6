#pragma once

// One token of a line as an editor, an exporter or the reference tracking sees it. It knows where it stands
// in three texts: the substituted one, which the foundation read; the typed one; and the displayed one, in
// which a reference to another line takes one character. Immutable but for its number and its cached text;
// used by one thread at a time.

#include "expressions/TCExpressionTokenTypes.h"
#include "expressions/TCLineReferenceType.h"
#include "expressions/TCRange.h"
#include "runtime/Ref.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

class TCExpression;
class TCExpressionToken;

namespace TBF {
class ExpressionToken;
}

// The tokens of an expression, in order of their place.
using TCExpressionTokens = std::vector<std::shared_ptr<TCExpressionToken>>;

class TCExpressionToken {
public:
    using FoundationTokens = std::span<const TBF::Ref<TBF::ExpressionToken>>;

    // What the foundation tokens of a reference tell; the number is 0 if they have none.
    struct LineReference {
        TCLineReferenceType type = TCLineReferenceTypeNone;
        int64_t number = 0;
    };

    TCExpressionToken(TCRange lowLevelRange, TCRange range, TCRange highLevelRange,
                      TCExpressionTokenType type, TCExpressionTokenSubType subType,
                      TCLineReferenceType lineReferenceType = {}, int64_t lineReferenceNumber = 0);

    // Over a run of foundation tokens, which isn't empty. A reference gets its kind and number from them.
    // Without a type, the first one gives it.
    TCExpressionToken(FoundationTokens tokens, TCRange range, TCRange highLevelRange,
                      TCExpressionTokenType type, TCExpressionTokenSubType subType);
    TCExpressionToken(FoundationTokens tokens, TCRange range, TCRange highLevelRange);

    // The part of the typed text; none if the expression is gone, or too short for the range.
    const std::optional<std::u16string>& string() const;

    TCRange lowLevelRange() const { return substitutedRange; }
    TCRange range() const { return typedRange; }
    TCRange highLevelRange() const { return displayedRange; }

    TCExpressionTokenType type() const { return tokenType; }
    TCExpressionTokenSubType subType() const { return tokenSubType; }
    TCLineReferenceType lineReferenceType() const { return referenceType; }
    int64_t lineReferenceNumber() const { return referenceNumber; }

    // For those who make tokens.
    void _setExpression(std::weak_ptr<const TCExpression> expression);
    void _setTokenType(TCExpressionTokenType type, TCExpressionTokenSubType subType);
    void _setLineReferenceNumber(int64_t number) { referenceNumber = number; }

    // By the name of the first reserved function, and by the first number behind it.
    static LineReference parseLineReferenceTokens(FoundationTokens tokens);

private:
    TCRange substitutedRange;
    TCRange typedRange;
    TCRange displayedRange;
    TCExpressionTokenType tokenType;
    TCExpressionTokenSubType tokenSubType;
    TCLineReferenceType referenceType = TCLineReferenceTypeNone;
    int64_t referenceNumber = 0;
    std::weak_ptr<const TCExpression> source;         // the tokens don't keep their expression
    mutable std::optional<std::u16string> cachedText; // none until asked for
};
