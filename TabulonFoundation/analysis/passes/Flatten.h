#pragma once

// The last pass of the analyzer: turns the tree back into a list of tokens, one for every node that is no
// group, with the types and the meaning of the node: the one that came in where nothing has changed, a new
// one elsewhere. Brackets reappear in their places.

#include "analysis/passes/PassContext.h"

namespace TBF {

void pass_flatten(PassContext& context);

} // namespace TBF
