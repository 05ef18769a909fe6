#pragma once

// A pass of the analyzer: marks the operators that bind tighter than usual, so that a rate such as "km/h"
// or the target of a conversion holds together.

#include "analysis/passes/PassContext.h"

namespace TBF {

void pass_promote_high_priority_operators(PassContext& context);

} // namespace TBF
