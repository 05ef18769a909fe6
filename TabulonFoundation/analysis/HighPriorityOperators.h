#pragma once

// The operators that have a form which binds tighter, made by the analyzer where units or conversions call
// for it. Constant, for use on any thread.

#include "analysis/TBFTokenTypes.h"

#include <optional>

namespace TBF {

// The tighter form of an operator's subtype, or nothing if it has none.
std::optional<TBFTokenSubType> highPriorityOperatorTokenSubType(TBFTokenSubType subType);

// The same, but an operator without a tighter form is logged and stays as it is.
TBFTokenSubType promotedOperatorTokenSubType(TBFTokenSubType subType);

} // namespace TBF
