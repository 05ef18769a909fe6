// How a line declares a variable. The name is the last word before the equals sign that stands behind white
// space, with what follows it up to the sign; an operator or anything else with a meaning there, or a second
// equals sign, makes the line plain text.

#include "expressions/TCAbstractLineExpression.h"
#include "expressions/TCExpressionParser.h"
#include "expressions/TCLineVariableDeclaration.h"
#include "expressions/TCSimpleTokenizedExpression.h"

namespace {

// Reads the simple tokens of a line one by one.
class DeclarationFinder {
public:
    using Token = TCSimpleTokenizedExpression::Token;

    void take(const Token& token) {
        switch (token.type) {
        case TCExpressionTokenTypeNumber:
        case TCExpressionTokenTypeComment:
            break;
        case TCExpressionTokenTypeWhitespace:
            inWord = false;
            break;
        case TCExpressionTokenTypeWord:
            takeWord(token);
            break;
        case TCExpressionTokenTypeEquals:
            takeEquals(token);
            break;
        default:
            if (!equalsSeen) otherSeen = true;
            break;
        }
        ++index;
    }

    bool isBad() const { return bad; }
    bool isDeclaration() const { return equalsSeen && !bad; }

    TCVariableDeclarationRecord record(int64_t length) const {
        return {equalsIndex,
                {name.range.location, equals.range.location - name.range.location},
                {equals.range.end(), length - equals.range.end()}};
    }

private:
    void takeWord(const Token& token) {
        if (inWord || equalsSeen) return;
        name = token;
        inWord = true;
        hasName = true;
    }

    void takeEquals(const Token& token) {
        bad = bad || !hasName || equalsSeen || otherSeen;
        equalsSeen = true;
        equals = token;
        equalsIndex = index;
    }

    bool inWord = false;
    bool equalsSeen = false;
    bool hasName = false;
    bool bad = false;
    bool otherSeen = false;
    Token name;
    Token equals;
    uint64_t equalsIndex = 0;
    uint64_t index = 0;
};

} // namespace

bool TCExpressionParser::findVariableDeclarationInTokenizedExpression(
    const TCSimpleTokenizedExpression& expression, TCVariableDeclarationRecord* record,
    bool* isBadDeclaration) {
    if (isBadDeclaration) *isBadDeclaration = false;
    if (!expression.hasEquals()) return false;
    DeclarationFinder finder;
    expression.enumerateTokensWithBlock([&finder](const DeclarationFinder::Token& token, bool& stop) {
        finder.take(token);
        stop = finder.isBad();
    });
    if (!finder.isDeclaration()) {
        if (isBadDeclaration) *isBadDeclaration = finder.isBad();
        return false;
    }
    if (record) *record = finder.record(expression.length());
    return true;
}

int32_t TCExpressionParser::expressionTypeOfTokenizedExpression(const TCSimpleTokenizedExpression& expression,
                                                                TCVariableDeclarationRecord* record) {
    bool isBad = false;
    if (findVariableDeclarationInTokenizedExpression(expression, record, &isBad))
        return TCExpressionTypeVariableDeclaration;
    return isBad ? TCExpressionTypePlainText : TCExpressionTypeNormal;
}
