#include "analysis/TokenDump.h"

#include "runtime/Unicode.h"

namespace TBFTests {

namespace {

struct Label {
    token_type type;
    TBFTokenSubType subType; // None fits any
    const char* text;
};

constexpr Label labels[] = {
    {TBFTokenTypeOperator, TBFTokenSubTypePower, "Power"},
    {TBFTokenTypeOperator, TBFTokenSubTypeE10, "E10"},
    {TBFTokenTypeOperator, TBFTokenSubTypeFactorial, "Fact"},
    {TBFTokenTypeOperator, TBFTokenSubTypeUnaryPlus, "Pos"},
    {TBFTokenTypeOperator, TBFTokenSubTypeUnaryMinus, "Neg"},
    {TBFTokenTypeOperator, TBFTokenSubTypeUnitConversion, "Conv"},
    {TBFTokenTypeOperator, TBFTokenSubTypeModulo, "Mod"},
    {TBFTokenTypeOperator, TBFTokenSubTypeWordOperator, "WordOp"},
    {TBFTokenTypeOperator, TBFTokenSubTypePercent, "Percent"},
    {TBFTokenTypeOperator, TBFTokenSubTypeHighPriorityDivide, "High"},
    {TBFTokenTypeOperator, TBFTokenSubTypeHighPriorityMultiply, "High"},
    {TBFTokenTypeOperator, TBFTokenSubTypeHighPriorityUnitConversion, "HighConv"},
    {TBFTokenTypeOperator, TBFTokenSubTypeNone, "Op"},
    {TBFTokenTypeVariable, TBFTokenSubTypeNone, "Var"},
    {TBFTokenTypeNumber, TBFTokenSubTypePrefixedNumber, "Hex"},
    {TBFTokenTypeNumber, TBFTokenSubTypeNone, "Num"},
    {TBFTokenTypeFunction, TBFTokenSubTypeNone, "Fn"},
    {TBFTokenTypeSeparator, TBFTokenSubTypeNone, "Sep"},
    {TBFTokenTypeWord, TBFTokenSubTypeNone, "Word"},
    {TBFTokenTypeUnit, TBFTokenSubTypeUnitPrefix, "Pre"},
    {TBFTokenTypeUnit, TBFTokenSubTypeUnitPostfix, "Post"},
    {TBFTokenTypeUnit, TBFTokenSubTypeUnitAlone, "Alone"},
    {TBFTokenTypeUnit, TBFTokenSubTypeNone, "Unit"},
    {TBFTokenTypeEquals, TBFTokenSubTypeNone, "Eq"},
    {TBFTokenTypeBracket, TBFTokenSubTypeNone, "Br"},
    {TBFTokenTypeComment, TBFTokenSubTypeNone, "Comment"},
    {TBFTokenTypeSubstitutionMark, TBFTokenSubTypeNone, "Mark"},
};

std::string labelOf(const TBF::ExpressionToken& token) {
    for (const Label& label : labels) {
        if (label.type != token.type()) continue;
        if (label.subType == TBFTokenSubTypeNone || label.subType == token.actualSubType()) return label.text;
    }
    return "?";
}

} // namespace

std::string dump(const TBF::ExpressionTokenList& tokens) {
    std::string text;
    for (const auto& token : tokens) {
        if (token->type() == TBFTokenTypeWhitespace) continue;
        if (!text.empty()) text += ' ';
        text += labelOf(*token) + "(" + TBF::utf8(token->view()) + ")";
    }
    return text;
}

} // namespace TBFTests
