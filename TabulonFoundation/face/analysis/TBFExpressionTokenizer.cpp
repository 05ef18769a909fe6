#include "face/analysis/TBFExpressionTokenizer.h"

#include "analysis/ExpressionTokenizer.h"

TBFExpressionTokenizerRef TBFExpressionTokenizerCreate(TBFLocale locale) {
    return TBF::ExpressionTokenizer::create(locale).leak();
}

TBFExpressionTokenizerRef TBFExpressionTokenizerRetain(TBFExpressionTokenizerRef tokenizer) {
    return TBF::retain(tokenizer).leak();
}

void TBFExpressionTokenizerRelease(TBFExpressionTokenizerRef tokenizer) {
    if (tokenizer) tokenizer->release();
}

void TBFExpressionTokenizerSetEnableComments(TBFExpressionTokenizerRef tokenizer, bool enable) {
    if (tokenizer) tokenizer->setEnableComments(enable);
}

TBFTokenizedExpressionRef TBFExpressionTokenizerTokenize(TBFExpressionTokenizerRef tokenizer,
                                                         TBFExpressionRef expression) {
    return tokenizer ? tokenizer->tokenize(expression).leak() : nullptr;
}
