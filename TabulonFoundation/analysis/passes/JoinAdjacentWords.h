#pragma once

// A pass of the analyzer: makes one word of words with nothing between them. Such neighbours come up when
// an operator or a unit turns out to be a word.

#include "analysis/passes/PassContext.h"

namespace TBF {

void pass_join_adjacent_words_crawler(PassContext& context);

} // namespace TBF
