#include "results/TCResultFormattingOptionsContextualizer.h"

#include "results/TCResult.h"
#include "units/TCUnit.h"

#include <algorithm>

namespace {

// A percentage shows at least this many digits, and its whole part in any case.
constexpr uint32_t leastPercentDigits = 4;

constexpr uint32_t moneyDecimalPlaces = 2;

void fitPercentage(const TCResult& result, bool autoPrecision, TCResultFormattingOptions& options) {
    if (autoPrecision) {
        options.setPrecisionMode(1);
        options.setSignificantDigits(std::max(leastPercentDigits, result.wholeNumberLength()));
    }
    options.setTrailingZeros(false);
}

// Money that the line wrote by its code is shown by it, any other by its symbol.
void fitMoney(const TCResult& result, bool autoPrecision, TCResultFormattingOptions& options) {
    const bool byCode =
        result.unitNameFormatForComponentUnitType(TCUnitTypeMoney) == TCUnitNameFormatVeryShort;
    if (autoPrecision) options.setDecimalPlaces(moneyDecimalPlaces);
    options.setDisplayBase(10);
    options.setTrailingZeros(true);
    if (byCode) options.setShowUnit(true);
    options.setUnitNameFormat(byCode ? TCUnitNameFormatVeryShort : TCUnitNameFormatSymbol);
}

} // namespace

TCResultFormattingOptions
TCResultFormattingOptionsContextualizer::contextualizedOptions(const TCResultFormattingOptions& options,
                                                               const TCResult* forResult) const {
    TCResultFormattingOptions fitted = options;
    if (!forResult) return fitted;
    if (forResult->isPercent())
        fitPercentage(*forResult, autoPrecision, fitted);
    else if (forResult->unit() && forResult->unit()->type() == TCUnitTypeMoney)
        fitMoney(*forResult, autoPrecision, fitted);
    return fitted;
}
