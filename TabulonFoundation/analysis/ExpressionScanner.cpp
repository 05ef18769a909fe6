#include "analysis/ExpressionScanner.h"

#include "analysis/ExpressionScannerImpl.h"

namespace TBF {

Ref<ExpressionScanner> ExpressionScanner::create() {
    return create(kTBFLocaleDefault);
}

Ref<ExpressionScanner> ExpressionScanner::create(TBFLocale locale) {
    static const Ref<ExpressionScanner>& usual =
        *new Ref<ExpressionScanner>(ExpressionScannerImpl::create(defaultWordBreakers(), kTBFLocaleDefault));
    if (locale == kTBFLocaleDefault) return usual;
    return ExpressionScannerImpl::create(defaultWordBreakers(), locale);
}

const std::set<TBFChar>& defaultWordBreakers() {
    static const auto& breakers =
        *new std::set<TBFChar>{u':', u'@', u'"', u'^', u';', u'=', u'!', u'%', u'(', u')'};
    return breakers;
}

} // namespace TBF
