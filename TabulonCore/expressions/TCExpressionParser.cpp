#include "expressions/TCExpressionParser.h"

#include "environment/TCEnvironment.h"
#include "expressions/TCExpression.h"
#include "expressions/TCParsedExpression.h"
#include "expressions/TCTokenizedExpressionBackedParsedExpression.h"
#include "lines/TCLine.h"
#include "runtime/ObjectPool.h"

#include <utility>

namespace {

using RangeOfToken = TCRange (TCExpressionToken::*)() const;

struct TokensOfRange {
    const TCExpressionToken* first = nullptr;
    const TCExpressionToken* last = nullptr;
};

// The tokens at both ends of a range of the text in which `rangeIn` tells their places.
TokensOfRange tokensOfRange(const TCExpressionTokens& tokens, TCRange range, int32_t locationType) {
    const auto tokenAt = [&](int64_t location) {
        return TCParsedExpressionHelpers::tokenAtLocation(location, tokens, locationType).get();
    };
    return {tokenAt(range.location), tokenAt(range.length > 0 ? range.end() - 1 : range.location)};
}

// A place without a token of its own, as the end of the text, keeps its distance to the end of the last one.
TCRange convertedRange(TCRange range, const TCExpressionTokens& tokens, RangeOfToken from, RangeOfToken to,
                       int32_t locationType) {
    if (tokens.empty()) return range;
    const auto [first, last] = tokensOfRange(tokens, range, locationType);
    const TCExpressionToken& end = last ? *last : *tokens.back();
    const int64_t location = first ? range.location - (first->*from)().location + (first->*to)().location
                                   : range.location - (end.*from)().end() + (end.*to)().end();
    if (range.length == 0 || !first) return {location, range.length};
    const int64_t length = (end.*to)().end() - location;
    const int64_t lengthBefore = (end.*from)().end() - range.location;
    return {location, length == lengthBefore ? range.length : length};
}

} // namespace

TCExpressionParser::TCExpressionParser()
    : TCExpressionParser(TCEnvironment::current()) {}

TCExpressionParser::TCExpressionParser(std::shared_ptr<TCEnvironment> environment)
    : names(std::move(environment)) {}

TCExpressionParser::~TCExpressionParser() = default;

std::shared_ptr<TCParsedExpression>
TCExpressionParser::parseExpression(const std::shared_ptr<TCExpression>& expression) const {
    return TBF::makeShared<TCTokenizedExpressionBackedParsedExpression>(expression, names, parsesComments);
}

TCExpressionParser::Token
TCExpressionParser::tokenInExpression(const std::shared_ptr<TCExpression>& expression,
                                      int64_t location) const {
    return tokenInExpression(expression, location, usesHighLevelLocations);
}

TCExpressionParser::Token
TCExpressionParser::tokenInExpression(const std::shared_ptr<TCExpression>& expression, int64_t location,
                                      bool highLevelLocation) const {
    return parseExpression(expression)
        ->tokenAtLocation(location,
                          highLevelLocation ? TCTokenLocationTypeDisplayed : TCTokenLocationTypeTyped);
}

// Tokens don't keep their expression, so those of a passing text take their part of it along.
TCExpressionParser::Token TCExpressionParser::tokenInString(std::u16string_view text,
                                                            int64_t location) const {
    const auto expression = TCExpression::expressionWithString(std::u16string(text));
    const Token token = tokenInExpression(expression, location);
    if (token) token->string();
    return token;
}

TCExpressionTokens TCExpressionParser::findTokensInExpression(const std::shared_ptr<TCExpression>& expression,
                                                              int64_t location, int32_t direction,
                                                              std::size_t maxCount,
                                                              bool skipCurrentLocation) const {
    return findTokensInExpression(expression, location, direction, maxCount, skipCurrentLocation,
                                  usesHighLevelLocations);
}

TCExpressionTokens TCExpressionParser::findTokensInExpression(const std::shared_ptr<TCExpression>& expression,
                                                              int64_t location, int32_t direction,
                                                              std::size_t maxCount, bool skipCurrentLocation,
                                                              bool highLevelLocation) const {
    const auto parsed = parseExpression(expression);
    return TCParsedExpressionHelpers::findTokens(parsed->tokens(), location, direction, maxCount,
                                                 skipCurrentLocation, highLevelLocation);
}

TCExpressionTokens TCExpressionParser::findTokensInString(std::u16string_view text, int64_t location,
                                                          int32_t direction, std::size_t maxCount,
                                                          bool skipCurrentLocation) const {
    const auto expression = TCExpression::expressionWithString(std::u16string(text));
    TCExpressionTokens found =
        findTokensInExpression(expression, location, direction, maxCount, skipCurrentLocation);
    for (const Token& token : found)
        token->string();
    return found;
}

TCRange TCExpressionParser::convertHighLevelRangeToLowLevelRange(
    TCRange range, const std::shared_ptr<TCExpression>& expression) const {
    const auto parsed = parseExpression(expression);
    return convertedRange(range, parsed->tokens(), &TCExpressionToken::highLevelRange,
                          &TCExpressionToken::range, TCTokenLocationTypeDisplayed);
}

TCRange TCExpressionParser::convertLowLevelRangeToHighLevelRange(
    TCRange range, const std::shared_ptr<TCExpression>& expression) const {
    const auto parsed = parseExpression(expression);
    return convertedRange(range, parsed->tokens(), &TCExpressionToken::range,
                          &TCExpressionToken::highLevelRange, TCTokenLocationTypeTyped);
}

std::set<std::u16string> TCExpressionParser::findVariableReferencesInLine(const TCLine& line) {
    const auto parsed = line.parsedExpression();
    return parsed ? parsed->variableReferences() : std::set<std::u16string>();
}

bool TCExpressionParser::isVariableReferencedInLine(std::u16string_view name, const TCLine& line) {
    const auto parsed = line.parsedExpression();
    return parsed && parsed->hasReferenceToVariableWithName(name);
}

void TCExpressionParser::findLineReferencesInLine(const TCLine& line, int32_t typeMask,
                                                  std::optional<std::vector<int64_t>>* indexes,
                                                  std::optional<std::vector<TCRange>>* ranges,
                                                  bool useHighLevelRange) {
    if (indexes) indexes->reset();
    if (ranges) ranges->reset();
    const auto parsed = line.parsedExpression();
    const auto references = parsed ? parsed->tokensOfType(TCExpressionTokenTypeLineReference)
                                   : std::optional<TCExpressionTokens>();
    if (!references || references->empty()) return;
    if (indexes) indexes->emplace();
    if (ranges) ranges->emplace();
    for (const Token& token : *references) {
        if (!(token->lineReferenceType() & typeMask)) continue;
        const bool isNumbered = token->subType() == TCExpressionTokenSubTypeLineNumberReference;
        if (indexes) (*indexes)->push_back(token->lineReferenceNumber() - (isNumbered ? 1 : 0));
        if (ranges) (*ranges)->push_back(useHighLevelRange ? token->highLevelRange() : token->range());
    }
}

TCExpressionTokens TCExpressionParser::lineReferenceTokensOfType(TCLineReferenceType type,
                                                                 const TCLine& line) {
    const auto parsed = line.parsedExpression();
    return parsed ? parsed->lineReferenceTokensOfType(type) : TCExpressionTokens();
}
