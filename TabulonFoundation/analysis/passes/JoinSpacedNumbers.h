#pragma once

// A pass of the analyzer: joins numbers with nothing but whitespace between them into one, since a number
// may be written with spaces between its groups of digits. Only the first may have a base prefix. Runs on
// the flat list, before brackets are grouped.

#include "analysis/passes/PassContext.h"

namespace TBF {

void pass_join_spaced_numbers(PassContext& context);

} // namespace TBF
