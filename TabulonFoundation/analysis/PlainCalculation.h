#pragma once

// A short way through the analysis, for lines on which its passes have little to decide: numbers, operators
// and brackets, and words that are names of functions and variables beyond doubt. Whatever would need a
// second look is left to the passes, and what comes out here is what would come out there. Pure, as the
// analysis is.

#include "analysis/ExpressionTokenList.h"

#include <cstdint>

namespace TBF {

class Namespace;

// The meaning of the tokens, if they are such a line: the given tokens where they mean what they meant, new
// ones for the names. False, with `output` in any state, for any other line. `names` may be null; `scope` is
// the line index at which variables are read.
bool analyzePlainCalculation(const ExpressionTokenList& tokens, const Namespace* names, int32_t scope,
                             ExpressionTokenList& output);

} // namespace TBF
