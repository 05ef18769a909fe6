#pragma once

// The tree builder behind the parser. Pure: everything it needs lives in one call, so that it may run on
// any thread that owns the tokens.

#include "parser/ExpressionTree.h"
#include "parser/TBFParserError.h"
#include "runtime/Ref.h"

#include <span>

namespace TBF {

class ExpressionToken;

// The analyzed tokens of one expression, in order.
using ExpressionTokens = std::span<const Ref<ExpressionToken>>;

struct ParseResult {
    Ref<ExpressionTree> tree; // null when there is nothing to evaluate, and after an error
    TBFParserError error = TBFParserErrorNone;
};

// The nodes of the tree borrow the tokens. Linear in the number of tokens; brackets may nest without a bound.
ParseResult parseExpressionTokens(ExpressionTokens tokens);

} // namespace TBF
