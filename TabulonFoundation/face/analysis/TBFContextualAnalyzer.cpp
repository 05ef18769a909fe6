#include "face/analysis/TBFContextualAnalyzer.h"

#include "analysis/ContextualAnalyzer.h"
#include "analysis/TokenizedExpression.h"

using TBF::ContextualAnalyzer;

TBFContextualAnalyzerRef TBFContextualAnalyzerCreate() {
    return ContextualAnalyzer::create().leak();
}

TBFContextualAnalyzerRef TBFContextualAnalyzerRetain(TBFContextualAnalyzerRef analyzer) {
    return TBF::retain(analyzer).leak();
}

void TBFContextualAnalyzerRelease(const ContextualAnalyzer* analyzer) {
    if (analyzer) analyzer->release();
}

void TBFContextualAnalyzerSetNamespace(TBFContextualAnalyzerRef analyzer, TBFNamespaceRef space) {
    if (analyzer) analyzer->setNamespace(TBF::retain(space));
}

std::vector<TBFExpressionTokenRef>
TBFContextualAnalyzerAnalyzeTokenizedExpression(const ContextualAnalyzer* analyzer,
                                                TBFTokenizedExpressionRef expression, int32_t lineIndex) {
    std::vector<TBFExpressionTokenRef> tokens;
    if (!analyzer || !expression) return tokens;
    for (TBF::Ref<TBF::ExpressionToken>& token : analyzer->analyze(*expression, lineIndex)) {
        tokens.push_back(token.leak());
    }
    return tokens;
}
