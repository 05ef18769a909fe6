#pragma once

// The plain functions over contextual analyzers, which find out what the tokens of a line mean in their
// places. All accept null handles. An analyzer serves one thread at a time.

#include "face/analysis/TBFExpressionToken.h"
#include "face/analysis/TBFTokenizedExpression.h"
#include "face/names/TBFNamespace.h"

#include <cstdint>
#include <vector>

namespace TBF {
class ContextualAnalyzer;
}
using TBFContextualAnalyzerRef = TBF::ContextualAnalyzer*;

// Create. The caller owns the result, which has no namespace: no word means anything then.
TBFContextualAnalyzerRef TBFContextualAnalyzerCreate();
TBFContextualAnalyzerRef TBFContextualAnalyzerRetain(TBFContextualAnalyzerRef analyzer);
void TBFContextualAnalyzerRelease(const TBF::ContextualAnalyzer* analyzer);

// The analyzer shares the namespace.
void TBFContextualAnalyzerSetNamespace(TBFContextualAnalyzerRef analyzer, TBFNamespaceRef space);

// New tokens with what was found; the given ones stay as they are. The caller owns one reference to each.
// `lineIndex` is where variables are read if the settings allow to redefine them.
std::vector<TBFExpressionTokenRef>
TBFContextualAnalyzerAnalyzeTokenizedExpression(const TBF::ContextualAnalyzer* analyzer,
                                                TBFTokenizedExpressionRef expression, int32_t lineIndex);
