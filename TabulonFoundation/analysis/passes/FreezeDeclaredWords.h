#pragma once

// A pass of the analyzer: keeps the words before the first "=" of a line as they are. The left side of a
// declaration is a name yet to be given, even if it is known as something else.

#include "analysis/passes/PassContext.h"

namespace TBF {

void pass_freeze_declared_words(PassContext& context);

} // namespace TBF
