#include "face/analysis/TBFExpressionScanner.h"

#include "analysis/ExpressionScanner.h"

void TBFExpressionScannerInit() {
    TBF::defaultWordBreakers();
}

const std::set<TBFChar>& TBFExpressionScannerGetDefaultWordBreakers() {
    return TBF::defaultWordBreakers();
}

TBFExpressionScannerRef TBFExpressionScannerCreate() {
    return TBF::ExpressionScanner::create().leak();
}

TBFExpressionScannerRef TBFExpressionScannerRetain(TBFExpressionScannerRef scanner) {
    return TBF::retain(scanner).leak();
}

void TBFExpressionScannerRelease(TBFExpressionScannerRef scanner) {
    if (scanner) scanner->release();
}

TBF::PooledVector<TBF::Ref<TBF::BasicToken>>
TBFExpressionScannerScanExpression(TBFExpressionScannerRef scanner, TBFExpressionRef expression) {
    if (!scanner) return {};
    return scanner->scan(expression);
}

TBFArrayRef TBFExpressionScannerGetBasicTokensForExpression(TBFExpressionScannerRef scanner,
                                                            TBFExpressionRef expression) {
    const TBFArrayRef array = TBFArrayCreate();
    for (auto& token : TBFExpressionScannerScanExpression(scanner, expression))
        TBFArrayAddItem(array, token.leak());
    return array;
}
