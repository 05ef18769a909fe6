#pragma once

// The first pass of the analyzer: gives the tree a node for every token of the line, in order.

#include "analysis/passes/PassContext.h"

namespace TBF {

void pass_build_tree(PassContext& context);

} // namespace TBF
