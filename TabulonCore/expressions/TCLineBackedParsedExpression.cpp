#include "expressions/TCLineBackedParsedExpression.h"

#include "expressions/TCTokenizedExpression.h"
#include "lines/TCLine.h"

#include <utility>

TCLineBackedParsedExpression::TCLineBackedParsedExpression(std::weak_ptr<TCLine> line)
    : TCParsedExpression(nullptr)
    , backingLine(std::move(line)) {}

std::shared_ptr<TCExpression> TCLineBackedParsedExpression::expression() const {
    const std::shared_ptr<TCLine> line = backingLine.lock();
    return line ? line->expression() : nullptr;
}

const TCExpressionTokens& TCLineBackedParsedExpression::tokens() const {
    const std::shared_ptr<TCLine> line = backingLine.lock();
    const auto tokenized = line ? line->tokenizedExpression() : nullptr;
    return tokenized ? tokenized->tokens() : TCParsedExpression::tokens();
}
