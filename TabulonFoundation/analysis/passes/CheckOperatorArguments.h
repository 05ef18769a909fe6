#pragma once

// A pass of the analyzer: makes plain words of the operators that lack the operands which they demand, so
// that "x" or "per" can stand in prose. Linear in the number of nodes.

#include "analysis/passes/PassContext.h"

namespace TBF {

void pass_check_operator_arguments_crawler(PassContext& context);

} // namespace TBF
