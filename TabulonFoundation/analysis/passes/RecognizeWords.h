#pragma once

// Two passes of the analyzer: they look for the longest names among neighbouring words and make units,
// variables, functions and operators of those that mean something. The first takes word operators as
// well; the second comes after words have been joined, and leaves word operators alone.

#include "analysis/passes/PassContext.h"

namespace TBF {

void pass_recognize_words_crawler(PassContext& context, bool acceptWordOperators);

void pass_recognize_words_with_operators(PassContext& context);
void pass_recognize_words_without_operators(PassContext& context);

} // namespace TBF
