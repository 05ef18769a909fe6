#pragma once

// A pass of the analyzer: hangs every bracket and what it encloses under a group of its own. An unclosed
// bracket ends with the line. A close bracket that nothing opened ends the calculation: what follows it
// is dropped from the tree.

#include "analysis/passes/PassContext.h"

namespace TBF {

void pass_group_brackets(PassContext& context);

} // namespace TBF
