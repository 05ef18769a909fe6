#include "face/parser/TBFExpressionParser.h"

#include "analysis/Expression.h"
#include "analysis/Token.h"
#include "analysis/TokenizedExpression.h"
#include "names/functions/FunctionList.h"
#include "names/variables/VariableList.h"
#include "names/wordoperators/WordOperatorList.h"
#include "parser/ExpressionParser.h"
#include "parser/ParsedExpression.h"
#include "units/UnitCollection.h"

TBFExpressionParserRef TBFExpressionParserCreate(TBF::FunctionList* functions, TBF::VariableList* variables,
                                                 TBF::WordOperatorList* wordOperators,
                                                 TBF::UnitCollection* units) {
    return TBF::ExpressionParser::create(TBF::retain(functions), TBF::retain(variables),
                                         TBF::retain(wordOperators), TBF::retain(units))
        .leak();
}

TBFExpressionParserRef TBFExpressionParserRetain(TBFExpressionParserRef parser) {
    if (parser) parser->retain();
    return parser;
}

void TBFExpressionParserRelease(TBFExpressionParserRef parser) {
    if (parser) parser->release();
}

TBFParsedExpressionRef TBFExpressionParserParseExpression(TBFExpressionParserRef parser,
                                                          TBF::Expression* expression) {
    return parser ? parser->parse(expression).leak() : nullptr;
}

TBFParsedExpressionRef
TBFExpressionParserParseTokenizedExpression(TBFExpressionParserRef parser,
                                            TBF::TokenizedExpression* tokenizedExpression) {
    return parser && tokenizedExpression ? parser->parse(*tokenizedExpression).leak() : nullptr;
}

TBFParsedExpressionRef TBFParsedExpressionRetain(TBFParsedExpressionRef parsed) {
    if (parsed) parsed->retain();
    return parsed;
}

void TBFParsedExpressionRelease(TBFParsedExpressionRef parsed) {
    if (parsed) parsed->release();
}

const std::vector<TBF::Ref<TBF::Token>>& TBFParsedExpressionGetTokens(TBFParsedExpressionRef parsed) {
    static const std::vector<TBF::Ref<TBF::Token>> none;
    return parsed ? parsed->tokens() : none;
}

TBFExpressionTreeRef TBFParsedExpressionGetExpressionTree(TBFParsedExpressionRef parsed) {
    return parsed ? parsed->tree() : nullptr;
}
