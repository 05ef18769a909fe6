#include "expressions/TCExpressionScanner.h"

#include "expressions/TCExpression.h"
#include "expressions/TCExpressionParser.h"
#include "expressions/TCParsedExpression.h"

#include <string>

bool TCExpressionScanner::isSingleTokenOfType(std::u16string_view text, TCExpressionTokenType type) {
    const auto parsed =
        TCExpressionParser(nullptr).parseExpression(TCExpression::expressionWithString(std::u16string(text)));
    const TCExpressionTokens& tokens = parsed->tokens();
    return tokens.size() == 1 && tokens.front()->type() == type;
}

bool TCExpressionScanner::isOperator(std::u16string_view text) {
    return isSingleTokenOfType(text, TCExpressionTokenTypeOperator);
}
