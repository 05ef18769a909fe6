#include "expressions/TCExpressionToken.h"

#include "analysis/ExpressionToken.h"
#include "environment/TCWarnLog.h"
#include "expressions/TCExpression.h"
#include "runtime/PolyString.h"
#include "runtime/Unicode.h"

#include <charconv>
#include <utility>

namespace {

TCRange lowLevelRangeOf(TCExpressionToken::FoundationTokens tokens) {
    TCRange range{tokens.front()->range().location, 0};
    for (const auto& token : tokens)
        range.length += token->range().length;
    return range;
}

// The whole number at the beginning of the text, held within 32 bits.
int64_t integerValue(const std::string& digits) {
    int32_t value = 0;
    const auto end = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    return end.ec == std::errc::result_out_of_range ? INT32_MAX : value;
}

} // namespace

TCExpressionToken::TCExpressionToken(TCRange lowLevelRange, TCRange range, TCRange highLevelRange,
                                     TCExpressionTokenType type, TCExpressionTokenSubType subType,
                                     TCLineReferenceType lineReferenceType, int64_t lineReferenceNumber)
    : substitutedRange(lowLevelRange)
    , typedRange(range)
    , displayedRange(highLevelRange)
    , tokenType(type)
    , tokenSubType(subType)
    , referenceType(lineReferenceType)
    , referenceNumber(lineReferenceNumber) {}

TCExpressionToken::TCExpressionToken(FoundationTokens tokens, TCRange range, TCRange highLevelRange,
                                     TCExpressionTokenType type, TCExpressionTokenSubType subType)
    : TCExpressionToken(lowLevelRangeOf(tokens), range, highLevelRange, type, subType) {
    if (type != TCExpressionTokenTypeLineReference) return;
    const LineReference reference = parseLineReferenceTokens(tokens);
    referenceType = reference.type;
    referenceNumber = reference.number;
}

TCExpressionToken::TCExpressionToken(FoundationTokens tokens, TCRange range, TCRange highLevelRange)
    : TCExpressionToken(tokens, range, highLevelRange,
                        TCExpressionTokenTypeFromTBFTokenType(tokens.front()->type()),
                        TCExpressionTokenSubTypeFromTBFTokenSubType(tokens.front()->subType())) {}

const std::optional<std::u16string>& TCExpressionToken::string() const {
    if (cachedText || typedRange.location == TCNotFound) return cachedText;
    const std::shared_ptr<const TCExpression> expression = source.lock();
    if (!expression || !expression->originalString()) return cachedText;
    const std::u16string& text = *expression->originalString();
    if (typedRange.location < 0 || typedRange.length < 0 || typedRange.end() > std::ssize(text)) {
        TCWarnLog("Warning! The expression parser has given this token an incorrect range in expression: %s",
                  TBF::utf8(text).c_str());
        return cachedText;
    }
    cachedText = text.substr(static_cast<std::size_t>(typedRange.location),
                             static_cast<std::size_t>(typedRange.length));
    return cachedText;
}

void TCExpressionToken::_setExpression(std::weak_ptr<const TCExpression> expression) {
    source = std::move(expression);
}

void TCExpressionToken::_setTokenType(TCExpressionTokenType type, TCExpressionTokenSubType subType) {
    tokenType = type;
    tokenSubType = subType;
}

TCExpressionToken::LineReference TCExpressionToken::parseLineReferenceTokens(FoundationTokens tokens) {
    LineReference reference;
    for (const auto& token : tokens) {
        if (token->type() == TBFTokenTypeNumber) {
            reference.number = integerValue(token->decimalString()->cppString());
            break;
        }
        if (token->type() != TBFTokenTypeFunction) continue;
        const TCLineReferenceType type = TCLineReferenceTypeForFunctionName(token->view());
        if (type != TCLineReferenceTypeNone) reference.type = type;
    }
    return reference;
}
