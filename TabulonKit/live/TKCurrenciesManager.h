#pragma once

// All currencies with their rates: the rows that the content has, the user's saved values laid over them,
// each tied to the money unit that it drives. Set up on one thread, then used on the main thread; the rates
// of a finished fetch may be taken in on any thread.

#include "environment/TCSimpleLocale.h"
#include "live/TKCurrency.h"
#include "propertylist/PropertyList.h"

#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

class TKCurrenciesManager;
class TKUnitsManager;

// Names of notifications. The object of the first two and of the partial failure is a `TKCurrencyArray` or,
// there, an array of codes; of the others the manager; of the complete failure null.
inline constexpr std::string_view TKCurrenciesEnabledStateChanged = "TKCurrenciesEnabledStateChanged";
inline constexpr std::string_view TKCurrenciesFavouriteStateChanged = "TKCurrenciesFavouriteStateChanged";
inline constexpr std::string_view TKCurrenciesLocaleChanged = "TKCurrenciesLocaleChanged";
inline constexpr std::string_view TKCurrenciesWillBeginUpdateFromWeb = "TKCurrenciesWillBeginUpdateFromWeb";
inline constexpr std::string_view TKCurrenciesSuccessfullyUpdated = "TKCurrenciesSuccessfullyUpdated";
inline constexpr std::string_view TKCurrenciesUpdatePartiallyFailed = "TKCurrenciesUpdatePartiallyFailed";
inline constexpr std::string_view TKCurrenciesUpdateFailed = "TKCurrenciesUpdateFailed";

using TKCurrencyArray = std::vector<std::shared_ptr<TKCurrency>>;

// A fetch that has ended: which currencies it asked for, and the rates it got.
class TKCurrencyRates {
public:
    virtual ~TKCurrencyRates() = default;
    virtual std::vector<std::u16string> supportedCurrencyCodes() const = 0;
    virtual std::optional<std::u16string> rateForCurrencyCode(std::u16string_view code) const = 0;
};

// Fetches rates for a manager: at once, or again and again by itself. A manager without one keeps the rates
// it has.
class TKCurrencyRatesFetching {
public:
    virtual ~TKCurrencyRatesFetching() = default;
    virtual void updateRates(TKCurrenciesManager& manager) = 0;
    virtual void setUpdatesAutomatically(TKCurrenciesManager& manager, bool automatically) = 0;
};

class TKCurrenciesManager final : public std::enable_shared_from_this<TKCurrenciesManager>,
                                  TKCurrencyObserver {
    struct Passkey {};

public:
    using Date = TKCurrency::Date;
    using Row = std::shared_ptr<TKCurrency>;

    static std::shared_ptr<TKCurrenciesManager>
    managerWithUnitsManager(std::shared_ptr<TKUnitsManager> unitsManager);
    TKCurrenciesManager(Passkey, std::shared_ptr<TKUnitsManager> unitsManager);
    ~TKCurrenciesManager() override;

    // The currency to which all rates relate; its own is always "1.00".
    static constexpr std::u16string_view masterCurrencyCode = u"USD";

    // In this order, once. The first takes a dictionary of rows by code; the second a saved file, which can
    // only change rows that there are. A file that can't be read changes nothing, is reported, and gives
    // false; `isDamaged`, where given, tells whether its bytes could be read. The third ties rows to units
    // and enables the units of enabled rows.
    void registerDefaultCurrencies(const platform::PropertyList& rows);
    bool loadCurrenciesFromPath(const std::string& path, bool* isDamaged = nullptr);
    void completeLoading();

    // The old file stays if it fails, which is reported.
    bool saveCurrenciesToPath(const std::string& path, const platform::PropertyList& withVersionInfo) const;

    // A saved file of an old version in the present form, but without rates; null if it is none. All rows are
    // disabled then: the file says which are enabled.
    platform::PropertyList validCurrencyDictionaryFromOldDataSource(const platform::PropertyList& old);

    // Sorted by code.
    const TKCurrencyArray& allCurrencies() const { return rows; }
    TKCurrencyArray activeCurrencies() const;
    TKCurrencyArray favouriteCurrencies() const;
    std::vector<std::u16string> activeRealWorldCurrencyCodes() const; // without bitcoin

    // Null for none.
    Row currencyWithCode(std::u16string_view code) const;

    TCSimpleLocale locale() const { return numberLocale; }
    void setLocale(TCSimpleLocale locale);

    // When rates were last fetched; none before there are any.
    std::optional<Date> lastCurrencyUpdateDate() const;
    void setLastCurrencyUpdateDate(std::optional<Date> date);

    // True at first, though nothing is fetched before it is set.
    bool automaticallyUpdatesValuesFromWeb() const { return updatesAutomatically; }
    void setAutomaticallyUpdatesValuesFromWeb(bool automatically);
    void updateRatesFromWeb();

    // Null at first.
    void setRatesFetching(std::shared_ptr<TKCurrencyRatesFetching> fetching) {
        fetcher = std::move(fetching);
    }

    // Takes the rates of enabled rows. The units' factors stay, for whoever owns the main thread to change.
    void updateRatesWithUpdater(const TKCurrencyRates& operation);

private:
    void currencyDidChangeEnabled(TKCurrency& currency) override;
    void currencyDidChangeFavourite(TKCurrency& currency) override;

    void addDefault(std::string_view code, const platform::PropertyList& row);
    void takeSavedRows(const platform::PropertyList& savedRows);
    TKCurrencyArray rowsThatAre(bool (TKCurrency::*state)() const) const;

    std::shared_ptr<TKUnitsManager> units;
    TKCurrencyArray rows;
    std::unordered_map<std::u16string, Row> rowsByCode;
    TCSimpleLocale numberLocale = TCSimpleLocale::standardLocale();
    bool updatesAutomatically = true;
    std::shared_ptr<TKCurrencyRatesFetching> fetcher;

    mutable std::mutex mutex; // over what follows
    std::optional<Date> lastUpdate;
};
