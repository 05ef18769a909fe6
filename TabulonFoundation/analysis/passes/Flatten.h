#pragma once

// The last pass of the analyzer: turns the tree back into a list of tokens, a new one for every node that is
// no group, with the types and the meaning of the node. Brackets reappear in their places. If tokens are
// shared, a node that nothing has changed gives the token that it came from.

#include "analysis/passes/PassContext.h"

namespace TBF {

void pass_flatten(PassContext& context);

// What the pass would give of the tree as it is now, which stays.
ExpressionTokenList flattened(const PassContext& context);

} // namespace TBF
