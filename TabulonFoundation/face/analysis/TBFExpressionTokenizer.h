#pragma once

// The plain functions over tokenizers, for core and above. A null tokenizer gives null.

#include "face/analysis/TBFExpression.h"
#include "face/analysis/TBFTokenizedExpression.h"
#include "runtime/TBFTypes.h"

namespace TBF {
class ExpressionTokenizer;
}
using TBFExpressionTokenizerRef = TBF::ExpressionTokenizer*;

// The caller owns the results.
TBFExpressionTokenizerRef TBFExpressionTokenizerCreate(TBFLocale locale);
TBFExpressionTokenizerRef TBFExpressionTokenizerRetain(TBFExpressionTokenizerRef tokenizer);
void TBFExpressionTokenizerRelease(TBFExpressionTokenizerRef tokenizer);
void TBFExpressionTokenizerSetEnableComments(TBFExpressionTokenizerRef tokenizer, bool enable);
TBFTokenizedExpressionRef TBFExpressionTokenizerTokenize(TBFExpressionTokenizerRef tokenizer,
                                                         TBFExpressionRef expression);
