#pragma once

// Analyzed tokens as compact text, so that a test of the analyzer is a row of {line, dump}: each token is
// what it is, then its text in brackets, "Num(5) Post(km) Op(+)". Whitespace is left out.

#include "analysis/ExpressionToken.h"

#include <string>
#include <vector>

namespace TBFTests {

std::string dump(const TBF::ExpressionTokenList& tokens);

} // namespace TBFTests
