#pragma once

// A pass of the analyzer: makes operators and separators of the few words that are part of the language
// itself, whatever names there are.

#include "analysis/passes/PassContext.h"

namespace TBF {

void pre_pass_5a_recognize_important_word_types_crawler(PassContext& context);

} // namespace TBF
