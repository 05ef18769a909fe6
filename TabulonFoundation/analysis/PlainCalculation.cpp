#include "analysis/PlainCalculation.h"

#include "analysis/ExpressionToken.h"
#include "analysis/SpecialWords.h"
#include "names/Namespace.h"
#include "names/functions/Function.h"
#include "names/variables/ScopedVariable.h"
#include "names/wordoperators/WordOperator.h"
#include "units/AmbiguousUnit.h"
#include "units/UnitContainer.h"
#include "units/UnitFraction.h"

#include <cstddef>
#include <span>
#include <string_view>

namespace TBF {

namespace {

// What a word may touch without becoming a part of another one.
bool standsApart(const ExpressionToken& token) {
    switch (token.type()) {
    case TBFTokenTypeWhitespace:
    case TBFTokenTypeSubstitutionMark:
    case TBFTokenTypeBracket:
    case TBFTokenTypeOperator:
    case TBFTokenTypeComment:
        return true;
    default:
        return false;
    }
}

class Reading {
public:
    Reading(const ExpressionTokenList& lineTokens, const Namespace* lineNames, int32_t lineScope,
            ExpressionTokenList& out)
        : tokens(lineTokens)
        , names(lineNames)
        , scope(lineScope)
        , output(out) {}

    bool run() {
        output.reserve(tokens.size());
        for (std::size_t index = 0; index < tokens.size(); ++index) {
            if (!take(index)) return false;
        }
        return true;
    }

private:
    bool take(std::size_t index) {
        const ExpressionToken& token = *tokens[index];
        switch (token.type()) {
        case TBFTokenTypeNumber:
            if (!takeValue()) return false;
            break;
        case TBFTokenTypeOperator:
            valueWaits = false;
            break;
        case TBFTokenTypeBracket:
            valueWaits = false;
            depth += token.subType() == TBFTokenSubTypeOpenBracket ? 1 : -1;
            if (depth < 0) return false; // the line ends here
            break;
        case TBFTokenTypeWhitespace:
        case TBFTokenTypeSubstitutionMark:
        case TBFTokenTypeComment:
            break;
        case TBFTokenTypeWord:
            return takeWord(index);
        default:
            return false;
        }
        output.push_back(tokens[index]);
        return true;
    }

    // Of two values with nothing but a gap between them only one may count, or they are one number.
    bool takeValue() {
        if (valueWaits) return false;
        valueWaits = true;
        return true;
    }

    bool takeWord(std::size_t index) {
        const ExpressionToken& word = *tokens[index];
        const std::u16string_view text = word.view();
        if (!names || word.basicTokens().size() != 1 || !isAlone(index) || findSpecialWord(text))
            return false;
        WordMeaning meaning;
        const TBFNamespaceType type = names->lookUp(std::span(&text, 1), scope, meaning);
        Ref<ExpressionToken> named;
        if (type == TBFNamespaceTypeFunction) {
            valueWaits = false; // what follows is its argument
            named = ExpressionToken::create(word.basicTokens().front());
            named->setType(TBFTokenTypeFunction);
            named->setFunction(meaning.function.get());
        } else if (type == TBFNamespaceTypeVariable) {
            if (!takeValue()) return false;
            named = ExpressionToken::create(word.basicTokens().front());
            named->setType(TBFTokenTypeVariable);
            named->setVariable(meaning.variable.get());
        } else {
            return false;
        }
        output.push_back(std::move(named));
        return true;
    }

    // Whether the word neither touches anything that it could be joined with nor begins a name of several
    // words.
    bool isAlone(std::size_t index) const {
        if (index > 0 && !standsApart(*tokens[index - 1])) return false;
        std::size_t next = index + 1;
        if (next < tokens.size() && !standsApart(*tokens[next])) return false;
        while (next < tokens.size() && (tokens[next]->type() == TBFTokenTypeWhitespace ||
                                        tokens[next]->type() == TBFTokenTypeSubstitutionMark))
            ++next;
        return next == tokens.size() || tokens[next]->type() != TBFTokenTypeWord;
    }

    const ExpressionTokenList& tokens;
    const Namespace* names;
    int32_t scope;
    ExpressionTokenList& output;
    bool valueWaits = false; // the last value has seen no operator, function or bracket behind it
    int32_t depth = 0;       // of brackets
};

} // namespace

bool analyzePlainCalculation(const ExpressionTokenList& tokens, const Namespace* names, int32_t scope,
                             ExpressionTokenList& output) {
    return Reading(tokens, names, scope, output).run();
}

} // namespace TBF
