#pragma once

// The tokens of a line, in order.

#include "runtime/ObjectPool.h"
#include "runtime/Ref.h"

namespace TBF {

class ExpressionToken;

using ExpressionTokenList = PooledVector<Ref<ExpressionToken>>;

} // namespace TBF
