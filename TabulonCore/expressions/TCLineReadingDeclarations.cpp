// What a declaration shows: its front as words, the name, the equals sign, and the value's own tokens.

#include "expressions/TCExpression.h"
#include "expressions/TCExpressionSubstituter.h"
#include "expressions/TCLineReading.h"
#include "expressions/TCLineVariableDeclaration.h"
#include "expressions/TCSimpleTokenizedExpression.h"
#include "runtime/ObjectPool.h"

#include <utility>

namespace {

// The name in a declaration has a subtype of its own.
constexpr auto declaredNameSubType = static_cast<TCExpressionTokenSubType>(27);

constexpr TCRange moved(TCRange range, int64_t distance) {
    return {range.location + distance, range.length};
}

// Stitches the display tokens of a declaration together.
class DeclarationTokens {
public:
    explicit DeclarationTokens(std::weak_ptr<const TCExpression> expression)
        : source(std::move(expression)) {}

    // In front of a declaration everything reads as a word, white space or a comment.
    void addFront(const TCSimpleTokenizedExpression& line, int64_t nameLocation) {
        if (nameLocation == 0) return;
        int64_t end = 0;
        line.enumerateTokensWithBlock([&](const TCSimpleTokenizedExpression::Token& token, bool& stop) {
            stop = token.range.end() > nameLocation;
            if (stop) return;
            const bool keepsType = token.type == TCExpressionTokenTypeWhitespace ||
                                   token.type == TCExpressionTokenTypeWord ||
                                   token.type == TCExpressionTokenTypeComment;
            add(token.substitutedRange, token.range, keepsType ? token.type : TCExpressionTokenTypeWord,
                keepsType ? token.subType : TCExpressionTokenSubTypeNone);
            end = token.range.end();
        });
        if (end != nameLocation)
            add({end, nameLocation - end}, TCExpressionTokenTypeWord, TCExpressionTokenSubTypeNone);
    }

    void add(TCRange range, TCExpressionTokenType type, TCExpressionTokenSubType subType) {
        add(range, range, type, subType);
    }

    // The value's own tokens, after the equals sign.
    void addValue(const TCExpressionTokens& value, const TCSimpleTokenizedExpression::Token& equals) {
        const int64_t lowOffset = equals.substitutedRange.end();
        const int64_t offset = equals.range.end();
        for (const auto& token : value) {
            append(TBF::makeShared<TCExpressionToken>(
                moved(token->lowLevelRange(), lowOffset), moved(token->range(), offset),
                moved(token->highLevelRange(), offset), token->type(), token->subType(),
                token->lineReferenceType(), token->lineReferenceNumber()));
        }
    }

    TCExpressionTokens take() { return std::move(tokens); }

private:
    void add(TCRange lowLevelRange, TCRange range, TCExpressionTokenType type,
             TCExpressionTokenSubType subType) {
        append(TBF::makeShared<TCExpressionToken>(lowLevelRange, range, range, type, subType));
    }

    void append(std::shared_ptr<TCExpressionToken> token) {
        token->_setExpression(source);
        tokens.push_back(std::move(token));
    }

    std::weak_ptr<const TCExpression> source;
    TCExpressionTokens tokens;
};

} // namespace

TCExpressionTokens TCLineReading::showDeclaration(const std::shared_ptr<const TCExpression>& line,
                                                  const TCLineVariableDeclaration& declaration,
                                                  const TCExpressionTokens& valueTokens) {
    const auto simple = tokenize(*line, line->locale(), TCExpressionSubstituter::defaultSubstituter().get());
    const auto equals = simple->tokenAtIndex(declaration.equalsTokenIndex());
    const TCRange name = declaration.nameRange();
    DeclarationTokens tokens(line);
    tokens.addFront(*simple, name.location);
    tokens.add(name, TCExpressionTokenTypeVariable, declaredNameSubType);
    tokens.add(equals.range, TCExpressionTokenTypeEquals, TCExpressionTokenSubTypeNone);
    tokens.addValue(valueTokens, equals);
    return tokens.take();
}
