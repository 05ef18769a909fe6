#include "expressions/TCLineExpressionParser.h"

#include "environment/TCEnvironment.h"
#include "expressions/TCAbstractLineExpression.h"
#include "expressions/TCExpression.h"
#include "expressions/TCExpressionSubstituter.h"
#include "expressions/TCExpressionTokenizer.h"
#include "expressions/TCLineVariableDeclaration.h"
#include "expressions/TCParsedExpression.h"
#include "expressions/TCSimpleTokenizedExpression.h"
#include "expressions/TCTokenListParsedExpression.h"
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

    // The value's own tokens, behind the equals sign.
    void addValue(const TCParsedExpression& value, const TCSimpleTokenizedExpression::Token& equals) {
        const int64_t lowOffset = equals.substitutedRange.end();
        const int64_t offset = equals.range.end();
        for (const auto& token : value.tokens()) {
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

TCLineExpressionParser::TCLineExpressionParser(std::shared_ptr<TCEnvironment> environment)
    : names(std::move(environment))
    , expressionParser(TBF::makeShared<TCExpressionParser>(names)) {}

TCLineExpressionParser::~TCLineExpressionParser() = default;

void TCLineExpressionParser::parseLineExpression(TCAbstractLineExpression& lineExpression) {
    lineExpression.process(*this);
}

void TCLineExpressionParser::processNormalLineExpression(TCAbstractLineExpression& lineExpression) {
    lineExpression.setTokenizedEvaluableExpression(lineExpression.tokenizedExpression());
    const auto parsed = expressionParser->parseExpression(lineExpression.expression());
    lineExpression.setEvaluableParsedExpression(parsed);
    lineExpression.setParsedExpression(parsed);
}

void TCLineExpressionParser::processVarDeclLineExpression(TCAbstractLineExpression& lineExpression) {
    const auto& evaluable = lineExpression.evaluableExpression();
    if (evaluable) {
        const TCExpressionTokenizer tokenizer(names ? names->locale() : evaluable->locale(),
                                              TCExpressionSubstituter::defaultSubstituter());
        lineExpression.setTokenizedEvaluableExpression(tokenizer.tokenizeExpression(*evaluable));
    }
    const std::shared_ptr<TCParsedExpression> value = expressionParser->parseExpression(evaluable);
    lineExpression.setEvaluableParsedExpression(value);

    // The stitching waits until somebody asks, as tokens are only needed for lines that are shown.
    auto stitch = [expression = std::weak_ptr<const TCExpression>(lineExpression.expression()),
                   declaration = lineExpression.variableDeclaration(), value] {
        const auto whole = expression.lock();
        if (!whole) return TCExpressionTokens();
        const auto line =
            TCExpressionTokenizer(whole->locale(), TCExpressionSubstituter::defaultSubstituter())
                .tokenizeExpression(*whole);
        const auto equals = line->tokenAtIndex(declaration->equalsTokenIndex());
        const TCRange name = declaration->nameRange();
        DeclarationTokens tokens(expression);
        tokens.addFront(*line, name.location);
        tokens.add(name, TCExpressionTokenTypeVariable, declaredNameSubType);
        tokens.add(equals.range, TCExpressionTokenTypeEquals, TCExpressionTokenSubTypeNone);
        tokens.addValue(*value, equals);
        return tokens.take();
    };
    lineExpression.setParsedExpression(
        TBF::makeShared<TCTokenListParsedExpression>(lineExpression.expression(), std::move(stitch)));
}

void TCLineExpressionParser::processPlainTextLineExpression(TCAbstractLineExpression& lineExpression) {
    lineExpression.setTokenizedEvaluableExpression(nullptr);
    lineExpression.reset();
}

void TCLineExpressionParser::setParser(std::shared_ptr<TCExpressionParser> parser) {
    expressionParser = std::move(parser);
}
