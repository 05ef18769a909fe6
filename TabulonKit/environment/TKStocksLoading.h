#pragma once

// What an environment asks of whoever manages stocks. Set up by the load job, then used on the main thread.

#include "environment/TCSimpleLocale.h"
#include "propertylist/PropertyList.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>

class TKUnitsManager;
class TKVariablesManager;

// Names of notifications. The object of the first two is an array of stocks.
inline constexpr std::string_view TKStocksWereAdded = "TKStockWasAdded";
inline constexpr std::string_view TKStocksWereRemoved = "TKStocksWereRemoved";
inline constexpr std::string_view TKStocksSuccessfulyUpdated = "TKStocksSuccessfulyUpdated";

class TKStocksLoading {
public:
    virtual ~TKStocksLoading() = default;

    // False if the file can't be read, which is reported; `isDamaged`, where given, is then whether its bytes
    // were read and aren't what was saved.
    virtual bool loadFromPath(const std::string& path, bool* isDamaged) = 0;
    virtual bool saveToPath(const std::string& path, const platform::PropertyList& withVersionInfo) const = 0;

    virtual void setAutomaticallyDownloadsStockPrices(bool automatically) = 0;
    virtual void setLocale(TCSimpleLocale locale) = 0;

    // While prices are taken over into variables: those changes aren't the user's.
    virtual bool stockUpdateInProgress() const = 0;
};

using TKStocksMaker = std::function<std::shared_ptr<TKStocksLoading>(
    const std::shared_ptr<TKUnitsManager>&, const std::shared_ptr<TKVariablesManager>&)>;
