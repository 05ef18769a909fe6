#pragma once

// Token lists as compact text, for tests that state a whole list in one row. Each token is its letter,
// then its text in brackets: "N[5]_[ ]W[kg]".

#include "analysis/BasicToken.h"
#include "analysis/TokenizedExpression.h"
#include "runtime/Unicode.h"

#include <string>
#include <vector>

namespace TBFTests {

inline std::string letterOf(const TBF::BasicToken& token) {
    switch (token.subType()) {
    case TBFBasicTokenSubTypeDecimalNumber:
        return "N";
    case TBFBasicTokenSubTypePrefixedNumber:
        return "X";
    case TBFBasicTokenSubTypePlus:
    case TBFBasicTokenSubTypeMinus:
    case TBFBasicTokenSubTypeMultiply:
    case TBFBasicTokenSubTypeDivide:
        return "O";
    case TBFBasicTokenSubTypeOpenBracket:
    case TBFBasicTokenSubTypeCloseBracket:
        return "B";
    case TBFBasicTokenSubTypeWhitespace:
        return "_";
    case TBFBasicTokenSubTypeMarkOpen:
        return "<";
    case TBFBasicTokenSubTypeMarkClose:
        return ">";
    case TBFBasicTokenSubTypeWord:
        return "W";
    case TBFBasicTokenSubTypeWordBreaker:
        return "b";
    case TBFBasicTokenSubTypeLetterE:
        return "E";
    case TBFBasicTokenSubTypeCommentStart:
        return "C";
    case TBFBasicTokenSubTypeEquals:
        return "=";
    default:
        return "?";
    }
}

inline std::string letterOf(const TBF::ExpressionToken& token) {
    switch (token.subType()) {
    case TBFTokenSubTypeRightwardsTitle:
        return "RT";
    case TBFTokenSubTypeLeftwardsTitle:
        return "LT";
    case TBFTokenSubTypeInlineComment:
        return "IC";
    case TBFTokenSubTypeLeftwardsComment:
        return "LC";
    case TBFTokenSubTypeRightwardsComment:
        return "RC";
    default:
        return token.basicTokens().empty() ? "?" : letterOf(*token.basicTokens().front());
    }
}

// Of a list of references to tokens of either kind.
template <typename Tokens>
std::string textOf(const Tokens& tokens) {
    std::string text;
    for (const auto& token : tokens)
        text += letterOf(*token) + "[" + TBF::utf8(token->view()) + "]";
    return text;
}

} // namespace TBFTests
