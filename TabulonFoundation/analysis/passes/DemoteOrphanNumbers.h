#pragma once

// A pass of the analyzer: of two numbers with nothing but words between them the first can't count, and
// becomes a word that no later pass touches. An operator or a unit right behind the first protects it.

#include "analysis/passes/PassContext.h"

namespace TBF {

void pass_demote_orphan_numbers_crawler(PassContext& context);

} // namespace TBF
