#pragma once

// A pass of the analyzer: glues words to the words, numbers and hyphens that they touch, so that "2nd",
// "3-way" and "well-known" are single words instead of calculations.

#include "analysis/passes/PassContext.h"

namespace TBF {

void pass_join_compound_words_crawler(PassContext& context);

} // namespace TBF
