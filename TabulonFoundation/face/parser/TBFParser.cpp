#include "face/parser/TBFParser.h"

#include "analysis/ExpressionToken.h"
#include "parser/Parser.h"

TBFExpressionTreeRef TBFParserImplParse(TBFExpressionTokens tokens, int32_t* outError) {
    TBF::ParseResult result = TBF::parseExpressionTokens(tokens);
    if (outError) *outError = result.error;
    return result.tree.leak();
}

TBFParserRef TBFParserCreate() {
    return TBF::Parser::create().leak();
}

TBFParserRef TBFParserRetain(TBFParserRef parser) {
    if (parser) parser->retain();
    return parser;
}

void TBFParserRelease(TBFParserRef parser) {
    if (parser) parser->release();
}

int32_t TBFParserGetError(const TBF::Parser* parser) {
    return parser ? parser->error() : 0;
}

TBFExpressionTreeRef TBFParserCreateExpressionTreeByParsingExpressionTokens(TBFParserRef parser,
                                                                            TBFExpressionTokens tokens) {
    return parser ? parser->parse(tokens).leak() : nullptr;
}
