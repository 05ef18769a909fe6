#include "live/TKCurrencyRatesToUnitsHelper.h"

#include "environment/TCWarnLog.h"
#include "live/TKCurrency.h"
#include "runtime/Unicode.h"
#include "units/TCBasicUnit.h"

void TKCurrencyRatesToUnitsHelper::updateUnitRatesFromCurrencies(
    std::span<const std::shared_ptr<TKCurrency>> currencies) {
    for (const auto& currency : currencies) {
        const std::string code = TBF::utf8(currency->identifier());
        if (!currency->hasOwnUnit()) {
            TCWarnLog("Warning: Currency %s has no corresponding unit", code.c_str());
            continue;
        }
        const auto rate = currency->rate();
        if (!rate) {
            TCWarnLog("Warning: Unit for currency %s could not be updated as the rate is nil", code.c_str());
            continue;
        }
        const auto factor = TKFactorOfRate(*rate);
        if (!factor) {
            TCWarnLog("Warning: invalid rate (%s) found for currency %s", TBF::utf8(*rate).c_str(),
                      code.c_str());
            continue;
        }
        if (*factor != currency->mutableUnit()->factor()) currency->mutableUnit()->setFactor(*factor);
    }
}
