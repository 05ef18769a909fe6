#include "expressions/TCPlainLineReferences.h"

#include "analysis/ExpressionToken.h"
#include "expressions/TCExpressionMappings.h"
#include "expressions/TCSimpleTokenizedExpression.h"
#include "variables/TCVariableList.h"

#include <algorithm>
#include <span>
#include <string_view>

namespace {

using Tokens = std::span<const TBF::Ref<TBF::ExpressionToken>>;

constexpr std::u16string_view reservedPrefix = u"___";
constexpr std::size_t mostDigits = 9; // what 32 bits hold in any case

bool isBracket(Tokens tokens, std::size_t index, TBFTokenSubType subType) {
    return index < tokens.size() && tokens[index]->type() == TBFTokenTypeBracket &&
           tokens[index]->subType() == subType;
}

std::optional<int64_t> wholeNumber(std::u16string_view text) {
    if (text.size() > mostDigits) return std::nullopt;
    int64_t number = 0;
    for (const char16_t unit : text) {
        if (unit < u'0' || unit > u'9') return std::nullopt;
        number = number * 10 + (unit - u'0');
    }
    return number;
}

// A phrase that was replaced is shown as one token: it must be exactly the reference, or apart from it.
bool isWholeOrApart(const TCExpressionMappings* mappings, TCRange range, bool& isMapped) {
    isMapped = false;
    if (!mappings) return true;
    for (const auto& mapping : mappings->mappingsAround(range)) {
        if (mapping.tbfRange == range)
            isMapped = true;
        else if (mapping.tbfRange.intersects(range))
            return false;
    }
    return true;
}

// The reference whose name stands at `name`.
std::optional<TCPlainLineReference> referenceAt(Tokens tokens, std::size_t name,
                                                const TCExpressionMappings* mappings) {
    TCPlainLineReference reference;
    reference.type = TCLineReferenceTypeForFunctionName(tokens[name]->view());
    if (reference.type == TCLineReferenceTypeNone || name == 0) return std::nullopt;
    if (!isBracket(tokens, name - 1, TBFTokenSubTypeOpenBracket) ||
        !isBracket(tokens, name + 1, TBFTokenSubTypeOpenBracket))
        return std::nullopt;
    std::size_t index = name + 2;
    const bool isNegative = index < tokens.size() && tokens[index]->type() == TBFTokenTypeOperator &&
                            tokens[index]->subType() == TBFTokenSubTypeMinus;
    if (isNegative) ++index;
    if (index >= tokens.size() || tokens[index]->type() != TBFTokenTypeNumber) return std::nullopt;
    const auto number = wholeNumber(tokens[index]->view());
    if (!number || !isBracket(tokens, index + 1, TBFTokenSubTypeCloseBracket) ||
        !isBracket(tokens, index + 2, TBFTokenSubTypeCloseBracket))
        return std::nullopt;
    reference.number = isNegative ? -*number : *number;

    const int64_t start = tokens[name - 1]->range().location;
    bool isMapped = false;
    if (!isWholeOrApart(mappings, {start, tokens[index + 2]->range().end() - start}, isMapped))
        return std::nullopt;
    // Of a line number, and in what a phrase gave, the digits are read without their sign.
    const bool readsDigits = isMapped || reference.type == TCLineReferenceTypeAbsoluteByLineNumber;
    if (isNegative && readsDigits) return std::nullopt;
    return reference;
}

} // namespace

std::optional<std::vector<TCPlainLineReference>>
TCPlainLineReferences(const TCSimpleTokenizedExpression& expression, const TCVariableList* variables) {
    const Tokens tokens = expression.tbfTokenizedExpression()->tokens();
    std::vector<TCPlainLineReference> found;
    int32_t depth = 0;
    for (std::size_t index = 0; index < tokens.size(); ++index) {
        const TBF::ExpressionToken& token = *tokens[index];
        switch (token.type()) {
        case TBFTokenTypeBracket:
            // After a bracket that closes nothing there is nothing left of the line.
            depth += token.subType() == TBFTokenSubTypeOpenBracket ? 1 : -1;
            if (depth < 0) return std::nullopt;
            break;
        case TBFTokenTypeEquals: // in front of it words are names yet to be given
            return std::nullopt;
        case TBFTokenTypeWord:
            if (token.view().starts_with(reservedPrefix)) {
                const auto reference = referenceAt(tokens, index, expression.rangeMappings());
                if (!reference || (variables && variables->containsVariableWithName(token.view())))
                    return std::nullopt;
                found.push_back(*reference);
            }
            break;
        default:
            break;
        }
    }
    return found;
}
