#include "parser/TokenNotation.h"

#include "names/functions/Function.h"
#include "names/variables/ScopedVariable.h"
#include "names/wordoperators/WordOperator.h"
#include "numbers/TBFOperatorType.h"
#include "parser/ExpressionNodeTreePrinter.h"
#include "parser/ParserImpl.h"
#include "units/AmbiguousUnit.h"
#include "units/Unit.h"
#include "units/UnitContainer.h"
#include "units/UnitFraction.h"
#include "units/UnitFractionBuilder.h"

#include <algorithm>
#include <array>
#include <map>

using namespace TBF;

namespace TBFTests {

namespace {

struct PieceRow {
    std::string_view piece;
    token_type type;
    TBFTokenSubType subType;
};

constexpr std::array pieceRows = std::to_array<PieceRow>({
    {"+", TBFTokenTypeOperator, TBFTokenSubTypePlus},
    {"-", TBFTokenTypeOperator, TBFTokenSubTypeMinus},
    {"*", TBFTokenTypeOperator, TBFTokenSubTypeMultiply},
    {"/", TBFTokenTypeOperator, TBFTokenSubTypeDivide},
    {"^", TBFTokenTypeOperator, TBFTokenSubTypePower},
    {"!", TBFTokenTypeOperator, TBFTokenSubTypeFactorial},
    {"%", TBFTokenTypeOperator, TBFTokenSubTypePercent},
    {"e", TBFTokenTypeOperator, TBFTokenSubTypeE10},
    {"to", TBFTokenTypeOperator, TBFTokenSubTypeUnitConversion},
    {"to!", TBFTokenTypeOperator, TBFTokenSubTypeHighPriorityUnitConversion},
    {"*!", TBFTokenTypeOperator, TBFTokenSubTypeHighPriorityMultiply},
    {"/!", TBFTokenTypeOperator, TBFTokenSubTypeHighPriorityDivide},
    {"(", TBFTokenTypeBracket, TBFTokenSubTypeOpenBracket},
    {")", TBFTokenTypeBracket, TBFTokenSubTypeCloseBracket},
    {";", TBFTokenTypeSeparator, TBFTokenSubTypeNone},
    {"=", TBFTokenTypeEquals, TBFTokenSubTypeNone},
    {"_", TBFTokenTypeWhitespace, TBFTokenSubTypeWhitespace},
    {"//", TBFTokenTypeComment, TBFTokenSubTypeRightwardsComment},
    {"x", TBFTokenTypeVariable, TBFTokenSubTypeNone},
    {"now", TBFTokenTypeFunction, TBFTokenSubTypeNone},
    {"sin", TBFTokenTypeFunction, TBFTokenSubTypeNone},
    {"sum", TBFTokenTypeFunction, TBFTokenSubTypeNone},
    {"mod", TBFTokenTypeOperator, TBFTokenSubTypeWordOperator},
    {"not", TBFTokenTypeOperator, TBFTokenSubTypeWordOperator},
    {"pct", TBFTokenTypeOperator, TBFTokenSubTypeWordOperator},
    {"ft", TBFTokenTypeUnit, TBFTokenSubTypeUnitPostfix},
    {"in", TBFTokenTypeUnit, TBFTokenSubTypeUnitPostfix},
    {"m?", TBFTokenTypeUnit, TBFTokenSubTypeUnitPostfix},
    {"@ft", TBFTokenTypeUnit, TBFTokenSubTypeUnitAlone},
    {"@s", TBFTokenTypeUnit, TBFTokenSubTypeUnitAlone},
    {"$", TBFTokenTypeUnit, TBFTokenSubTypeUnitPrefix},
});

Ref<UnitContainer> makeUnit(const char* name, TBFUnitType type, int32_t tieBreakFactor) {
    UnitContainer::Names names;
    names.byType[TBFUnitNameTypeSingular] = String::createWithUTF8(name);
    Ref<UnitContainer> container = UnitContainer::create(name, names);
    const Ref<Unit> unit = Unit::create(type, "1", String::createWithUTF8(name));
    container->setUnitFraction(UnitFractionBuilder::create(unit.get())->unitFraction());
    container->setAmbiguousTieBreakFactor(tieBreakFactor);
    return container;
}

void giveUnit(ExpressionToken& token, std::string_view piece) {
    static const std::map<std::string_view, Ref<UnitContainer>> units = {
        {"ft", makeUnit("ft", TBFUnitTypeLength, 0)},   {"@ft", makeUnit("ft", TBFUnitTypeLength, 0)},
        {"in", makeUnit("in", TBFUnitTypeLength, 0)},   {"@s", makeUnit("s", TBFUnitTypeTime, 0)},
        {"$", makeUnit("dollar", TBFUnitTypeMoney, 0)},
    };
    static const Ref<AmbiguousUnit> metreOrMinute = AmbiguousUnit::create(
        {makeUnit("metre", TBFUnitTypeLength, 0), makeUnit("minute", TBFUnitTypeTime, 1)});
    if (piece == "m?") {
        token.setAmbiguousUnit(metreOrMinute.get());
    } else {
        token.setUnitContainer(units.at(piece).get());
    }
}

void giveMeaning(ExpressionToken& token, std::string_view piece) {
    static const std::map<std::string_view, Ref<Function>> functions = {
        {"now", Function::create(String::create(u"now"))},
        {"sin", Function::create(String::create(u"Sin"), {}, 1)},
        {"sum", Function::create(String::create(u"sum"), {}, 2)},
    };
    static const auto wordOperator = [](const char* word, TBFOperatorNotation notation,
                                        TBFOperatorPrecedence precedence) {
        return WordOperator::create(String::createWithUTF8(word), notation, String::empty(), precedence, 0);
    };
    static const std::map<std::string_view, Ref<WordOperator>> wordOperators = {
        {"mod", wordOperator("mod", TBFOperatorNotationInfix, TBFOperatorPrecedenceAddSubtract)},
        {"not", wordOperator("not", TBFOperatorNotationPrefix, TBFOperatorPrecedenceAddSubtract)},
        {"pct", wordOperator("pct", TBFOperatorNotationPostfix, TBFOperatorPrecedenceAddSubtract)},
    };
    static const Ref<Variable> variable = [] {
        Ref<Variable> x = Variable::create();
        x->setName(String::create(u"x"));
        return x;
    }();
    switch (token.type()) {
    case TBFTokenTypeVariable:
        token.setVariable(ScopedVariable::create(variable, 0).get());
        break;
    case TBFTokenTypeFunction:
        token.setFunction(functions.at(piece).get());
        break;
    case TBFTokenTypeUnit:
        giveUnit(token, piece);
        break;
    case TBFTokenTypeOperator:
        if (token.subType() == TBFTokenSubTypeWordOperator)
            token.setWordOperator(wordOperators.at(piece).get());
        break;
    default:
        break;
    }
}

Ref<ExpressionToken> tokenForPiece(std::string_view piece) {
    const Ref<String> text = String::createWithUTF8(piece);
    const auto row = std::ranges::find(pieceRows, piece, &PieceRow::piece);
    if (row == pieceRows.end()) {
        const bool isNumber = piece[0] >= '0' && piece[0] <= '9';
        return isNumber
                   ? ExpressionToken::create(text.get(), TBFTokenTypeNumber, TBFTokenSubTypeDecimalNumber)
                   : ExpressionToken::create(text.get(), TBFTokenTypeWord, TBFTokenSubTypeNone);
    }
    Ref<ExpressionToken> token = ExpressionToken::create(text.get(), row->type, row->subType);
    giveMeaning(*token, piece);
    return token;
}

} // namespace

ExpressionTokenList tokensInNotation(std::string_view notation) {
    ExpressionTokenList tokens;
    while (!notation.empty()) {
        const std::string_view piece = notation.substr(0, notation.find(' '));
        notation.remove_prefix(std::min(piece.size() + 1, notation.size()));
        if (!piece.empty()) tokens.push_back(tokenForPiece(piece));
    }
    return tokens;
}

std::string printedTree(const ExpressionTokenList& tokens) {
    const ParseResult result = parseExpressionTokens(tokens);
    if (result.error != TBFParserErrorNone) return result.tree ? "error with a tree" : "error";
    return result.tree ? ExpressionNodeTreePrinter::create(retain(result.tree->root()))->string() : "";
}

std::string printedTree(std::string_view notation) {
    return printedTree(tokensInNotation(notation));
}

} // namespace TBFTests
