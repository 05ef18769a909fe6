#pragma once

// The plain functions over expressions, for core and above. A null handle is harmless everywhere.

#include "face/runtime/TBFString.h"

#include <string>

namespace TBF {
class Expression;
}
using TBFExpressionRef = TBF::Expression*;

// The caller owns the result. `bytes` is UTF-8.
TBFExpressionRef TBFExpressionCreateWithString(TBFStringRef string);
TBFExpressionRef TBFExpressionCreate(const std::string& bytes);

TBFExpressionRef TBFExpressionRetain(TBFExpressionRef expression);
void TBFExpressionRelease(TBFExpressionRef expression);

// Borrowed from the expression.
TBFStringRef TBFExpressionGetStringReference(TBFExpressionRef expression);
