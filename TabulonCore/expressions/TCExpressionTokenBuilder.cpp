#include "expressions/TCExpressionTokenBuilder.h"

#include "analysis/ExpressionToken.h"
#include "eval/Evaluator.h"
#include "results/Result.h"
#include "runtime/ObjectPool.h"
#include "runtime/String.h"

#include <algorithm>
#include <charconv>
#include <utility>

namespace {

// Bracket, name, bracket, at least one token, bracket, bracket.
constexpr std::size_t leastReferenceTokens = 6;

TCRange rangeOf(TBFRange range) {
    return {range.location, range.length};
}

bool isBracket(const TBF::ExpressionToken& token, TBFTokenSubType subType) {
    return token.type() == TBFTokenTypeBracket && token.subType() == subType;
}

} // namespace

TCExpressionTokenBuilder::TCExpressionTokenBuilder(FoundationTokens foundationTokens,
                                                   const TCExpressionMappings* rangeMappings,
                                                   std::weak_ptr<const TCExpression> expression)
    : tokens(foundationTokens)
    , mappings(rangeMappings)
    , source(std::move(expression)) {}

TCExpressionTokens TCExpressionTokenBuilder::build() {
    made.reserve(tokens.size());
    for (std::size_t index = 0; index < tokens.size(); ++index) {
        if (span) {
            if (rangeOf(tokens[index]->range()).intersects(span->substituted)) {
                ++span->count;
                continue;
            }
            closeSpan();
        }
        span = openSpan(index);
        if (!span) appendPlainToken(index);
    }
    if (span) closeSpan();
    return std::move(made);
}

std::optional<TCExpressionTokenBuilder::Span> TCExpressionTokenBuilder::openSpan(std::size_t index) {
    const TBF::ExpressionToken& token = *tokens[index];
    if (token.type() != TBFTokenTypeComment && mappings) {
        if (const auto* const mapping = mappings->findRangeMapping(token.range().location))
            return Span{.substituted = mapping->tbfRange, .first = index};
    }
    if (isBracket(token, TBFTokenSubTypeOpenBracket)) return spanOfLineReference(index);
    return std::nullopt;
}

// "(name(argument))" with one of the reserved names. It takes one character on the screen.
std::optional<TCExpressionTokenBuilder::Span>
TCExpressionTokenBuilder::spanOfLineReference(std::size_t index) {
    if (index + 3 >= tokens.size()) return std::nullopt;
    if (TCLineReferenceTypeForFunctionName(tokens[index + 1]->view()) == TCLineReferenceTypeNone)
        return std::nullopt;
    if (!isBracket(*tokens[index + 2], TBFTokenSubTypeOpenBracket)) return std::nullopt;
    const std::size_t inner = index + 3;
    const std::size_t close = nextCloseBracket(inner);
    if (close + 1 >= tokens.size() || !isBracket(*tokens[close + 1], TBFTokenSubTypeCloseBracket))
        return std::nullopt;

    const int64_t start = tokens[index]->range().location;
    const int64_t length = rangeOf(tokens[close + 1]->range()).end() - start;
    return Span{.substituted = {start, length},
                .displayedLength = 1,
                .first = index,
                .firstInner = inner,
                .innerCount = close - inner};
}

// The index of the first close bracket from there on, or the number of tokens. Found for all places at once,
// so that a text full of beginnings of references takes no longer.
std::size_t TCExpressionTokenBuilder::nextCloseBracket(std::size_t index) {
    if (closeBrackets.empty()) {
        closeBrackets.resize(tokens.size());
        std::size_t next = tokens.size();
        for (std::size_t i = tokens.size(); i-- > 0;) {
            if (isBracket(*tokens[i], TBFTokenSubTypeCloseBracket)) next = i;
            closeBrackets[i] = next;
        }
    }
    return closeBrackets[index];
}

void TCExpressionTokenBuilder::closeSpan() {
    const Span closed = *std::exchange(span, std::nullopt);
    const FoundationTokens run = tokens.subspan(closed.first, closed.count);
    const ShownType shown = shownType(run);
    const TCRange typed = typedRange(run);
    const TCRange displayed{typed.location + highOffset, closed.displayedLength.value_or(typed.length)};
    auto token = TBF::makeShared<TCExpressionToken>(run, typed, displayed, shown.type, shown.subType);
    if (shown.subType == TCExpressionTokenSubTypeLineReference && closed.innerCount > 0)
        token->_setLineReferenceNumber(
            evaluatedArgument(tokens.subspan(closed.firstInner, closed.innerCount)));
    append(std::move(token));
    highOffset += displayed.length - typed.length;
}

// From where the run before ended. A run ends where the typed text of all its replaced phrases does.
TCRange TCExpressionTokenBuilder::typedRange(FoundationTokens run) {
    const int64_t start = typedEnd;
    const int64_t end = rangeOf(run.back()->range()).end();
    typedEnd = std::max(start, mappings ? mappings->tcEndOfTBFEnd(end) : end);
    return {start, typedEnd - start};
}

TCExpressionTokenBuilder::ShownType TCExpressionTokenBuilder::shownType(FoundationTokens run) const {
    const TBF::ExpressionToken* shown = run.front().get();
    if (run.size() >= leastReferenceTokens && shown->type() == TBFTokenTypeBracket &&
        run[1]->type() == TBFTokenTypeFunction) {
        const TCLineReferenceType reference = TCLineReferenceTypeForFunctionName(run[1]->view());
        if (reference == TCLineReferenceTypeAbsoluteByLineNumber)
            return {TCExpressionTokenTypeLineReference, TCExpressionTokenSubTypeLineNumberReference};
        if (reference != TCLineReferenceTypeNone)
            return {TCExpressionTokenTypeLineReference, TCExpressionTokenSubTypeLineReference};
    }
    // A phrase between marks shows as the word between them.
    if (run.size() >= 2 && shown->type() == TBFTokenTypeSubstitutionMark &&
        shown->subType() == TBFTokenSubTypeMarkOpen && run[1]->type() != TBFTokenTypeSubstitutionMark)
        shown = run[1].get();
    else if (run.size() == 1 && shown->type() == TBFTokenTypeVariable)
        return {TCExpressionTokenTypeVariable, TCExpressionTokenSubTypeVariable};
    return {TCExpressionTokenTypeFromTBFTokenType(shown->type()),
            TCExpressionTokenSubTypeFromTBFTokenSubType(shown->subType())};
}

// The argument is any constant expression: a negative offset is a sign and a number.
int64_t TCExpressionTokenBuilder::evaluatedArgument(FoundationTokens argument) const {
    const TBF::Ref<TBF::Result> result = TBF::Evaluator().evaluate(argument);
    if (!result || !result->string()) return 0;
    const std::string digits = result->string()->utf8();
    int32_t value = 0;
    const auto end = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (end.ec == std::errc::result_out_of_range) return digits.starts_with('-') ? INT32_MIN : INT32_MAX;
    return value;
}

void TCExpressionTokenBuilder::append(std::shared_ptr<TCExpressionToken> token) {
    token->_setExpression(source);
    made.push_back(std::move(token));
}

void TCExpressionTokenBuilder::appendPlainToken(std::size_t index) {
    const FoundationTokens run = tokens.subspan(index, 1);
    const TCRange typed = typedRange(run);
    const TCRange displayed{typed.location + highOffset, typed.length};
    const ShownType shown = shownType(run);
    append(TBF::makeShared<TCExpressionToken>(run, typed, displayed, shown.type, shown.subType));
}
