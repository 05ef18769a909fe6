#pragma once

// The plain functions of the parser, from the analyzed tokens of one expression to its tree. A line of free
// text gives the best tree it can: a token that doesn't fit is dropped, a missing operand stays empty. A
// parser belongs to one thread at a time; nothing is shared between parsers.

#include "face/parser/TBFExpressionTree.h"
#include "parser/TBFParserError.h"
#include "runtime/Ref.h"

#include <cstdint>
#include <span>

namespace TBF {
class ExpressionToken;
class Parser;
} // namespace TBF

using TBFParserRef = TBF::Parser*;
using TBFExpressionTokens = std::span<const TBF::Ref<TBF::ExpressionToken>>;

// A tree with one reference for the caller, or null. `outError`, if not null, is always written. The tree's
// nodes borrow the tokens.
TBFExpressionTreeRef TBFParserImplParse(TBFExpressionTokens tokens, int32_t* outError);

TBFParserRef TBFParserCreate();
TBFParserRef TBFParserRetain(TBFParserRef parser);
void TBFParserRelease(TBFParserRef parser);

// The error of the last parse, 0 when it was fine and for a null parser.
int32_t TBFParserGetError(const TBF::Parser* parser);

// As TBFParserImplParse, with the error kept in the parser; null for a null parser.
TBFExpressionTreeRef TBFParserCreateExpressionTreeByParsingExpressionTokens(TBFParserRef parser,
                                                                            TBFExpressionTokens tokens);
