#pragma once

// A pass of the analyzer: says of every unit whether it stands before a number, behind one or alone. A unit
// that fits nowhere was a plain word.

#include "analysis/passes/PassContext.h"

namespace TBF {

void pass_assign_unit_roles_crawler(PassContext& context);

} // namespace TBF
