#pragma once

// Analyzed tokens from a short notation, for tests of the parser alone: pieces divided by spaces, each one a
// token of the type that the table in the source gives it. Pieces without a row are numbers if they begin
// with a digit, else words.

#include "analysis/ExpressionToken.h"
#include "parser/TBFParserError.h"

#include <string>
#include <string_view>
#include <vector>

namespace TBFTests {

TBF::ExpressionTokenList tokensInNotation(std::string_view notation);

// The printed tree; "" without a tree, "error" after an error.
std::string printedTree(std::string_view notation);
std::string printedTree(const TBF::ExpressionTokenList& tokens);

} // namespace TBFTests
