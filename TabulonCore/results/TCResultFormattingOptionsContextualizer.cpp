#include "results/TCResultFormattingOptionsContextualizer.h"

#include "results/TCResult.h"

#include <algorithm>

namespace {

// A percentage shows at least this many digits, and its whole part in any case.
constexpr uint32_t leastPercentDigits = 4;

} // namespace

TCResultFormattingOptions
TCResultFormattingOptionsContextualizer::contextualizedOptions(const TCResultFormattingOptions& options,
                                                               const TCResult* forResult) const {
    TCResultFormattingOptions fitted = options;
    if (!forResult || !forResult->isPercent()) return fitted;
    if (autoPrecision) {
        fitted.setPrecisionMode(1);
        fitted.setSignificantDigits(std::max(leastPercentDigits, forResult->wholeNumberLength()));
    }
    fitted.setTrailingZeros(false);
    return fitted;
}
