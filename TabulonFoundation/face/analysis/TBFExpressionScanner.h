#pragma once

// The plain functions over scanners. A null scanner or expression has no tokens.

#include "face/analysis/TBFBasicToken.h"
#include "face/runtime/TBFArray.h"
#include "runtime/ObjectPool.h"
#include "runtime/Ref.h"

#include <set>

namespace TBF {
class ExpressionScanner;
}
using TBFExpressionScannerRef = TBF::ExpressionScanner*;

// Makes the set of default word breakers; part of the foundation's start-up.
void TBFExpressionScannerInit();
const std::set<TBFChar>& TBFExpressionScannerGetDefaultWordBreakers();

// With the default word breakers and the default locale. The caller owns the result.
TBFExpressionScannerRef TBFExpressionScannerCreate();
TBFExpressionScannerRef TBFExpressionScannerRetain(TBFExpressionScannerRef scanner);
void TBFExpressionScannerRelease(TBFExpressionScannerRef scanner);

TBF::PooledVector<TBF::Ref<TBF::BasicToken>>
TBFExpressionScannerScanExpression(TBFExpressionScannerRef scanner, TBFExpressionRef expression);

// The same tokens as an array. The caller owns it and a reference to each token.
TBFArrayRef TBFExpressionScannerGetBasicTokensForExpression(TBFExpressionScannerRef scanner,
                                                            TBFExpressionRef expression);
