#pragma once

// A pass of the analyzer: an exclamation mark with no value on its left is a plain word.

#include "analysis/passes/PassContext.h"

namespace TBF {

void pass_check_factorials_crawler(PassContext& context);

} // namespace TBF
