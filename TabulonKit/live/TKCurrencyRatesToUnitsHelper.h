#pragma once

// The one way a rate reaches the evaluator: as the factor of its currency's unit, which says what one unit of
// the currency is worth in the master currency. Not while something is evaluated.

#include <memory>
#include <span>

class TKCurrency;

class TKCurrencyRatesToUnitsHelper {
public:
    // A row without a unit of its own, or without a usable rate, is reported and passed over. An unchanged
    // factor is not set anew.
    static void updateUnitRatesFromCurrencies(std::span<const std::shared_ptr<TKCurrency>> currencies);
};
