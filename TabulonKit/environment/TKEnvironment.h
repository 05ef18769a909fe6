#pragma once

// Assembles what a process knows: units, currencies, variables, stocks and localized grammar, out of a
// content bundle and the user's saved values. Loading runs in the background: who started it must not use the
// managers before `completeLoading`. Afterwards all belongs to the main thread; changes are noticed on the
// main queue, and saved there.

#include "NotificationCenter.h"
#include "environment/TCSimpleLocale.h"
#include "environment/TKDelayedPerformer.h"
#include "environment/TKStocksLoading.h"
#include "live/TKCurrenciesManager.h"
#include "live/TKVariablesManager.h"
#include "propertylist/PropertyList.h"

#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace platform {
class Bundle;
}

class NYDispatchFuture;
class TKEnvironment;
class TKLocalizationManager;
class TKUnitsManager;

// Posted on the main queue when a bundle has been loaded; the object is the bundle.
inline constexpr std::string_view TKEnvironmentDidLoadBundle = "TKEnvironmentDidLoadBundle";

// Hears of loading and of changes, on the main queue.
class TKEnvironmentDelegate {
public:
    using Stocks = std::shared_ptr<void>; // an array of them

    virtual ~TKEnvironmentDelegate() = default;
    virtual void environmentDidLoadBundle(const platform::Bundle&) {}
    virtual void environmentVariablesWereModified(const std::vector<std::shared_ptr<TCVariable>>&) {}
    virtual void environmentStocksWereModified(const Stocks&) {}
    virtual void environmentDidUpdateStockValues() {}
    virtual void environmentDidUpdateCurrencyValues() {}
    virtual void environmentCurrenciesWereModified(const TKCurrencyArray&) {}
};

class TKEnvironment final : public std::enable_shared_from_this<TKEnvironment>, public TKActionTarget {
    struct Passkey {};

public:
    using Bundle = std::shared_ptr<const platform::Bundle>;

    static std::shared_ptr<TKEnvironment> make(std::optional<std::string> dataSourceDirectoryPath,
                                               platform::PropertyList persistanceInfoDictionary,
                                               TKStocksMaker stocksMaker = nullptr);
    explicit TKEnvironment(Passkey);
    ~TKEnvironment() override;

    // That of the process; null until one is set.
    static std::shared_ptr<TKEnvironment> sharedEnvironment();
    void set();

    // Starts loading and returns. The localization names the language of the content; none leaves it to the
    // user's preferences. Settings have to be set before. What was loaded before is dropped.
    void loadFromBundleAtPath(const std::string& path, const std::string& localization = {});

    // Blocks until loading has ended; at once if none runs.
    void completeLoading();
    bool bundleLoaded() const { return isBundleLoaded; }

    // What of the bundle is missing or damaged, a sentence for each file, which it names; empty if all is
    // well. For after the loading. A host that doesn't tell its user itself leaves the log on: a line on
    // standard error for each.
    const std::vector<std::string>& contentFailures() const { return failures; }
    void setLogsContentFailures(bool log) { isLoggingFailures = log; }

    // Currencies, stocks and variables, as far as they are enabled. False if one of them couldn't be written.
    bool saveToDirectory(const std::string& folder);

    // Made at the first question; the stocks manager is null without a maker.
    const std::shared_ptr<TKUnitsManager>& unitsManager();
    const std::shared_ptr<TKCurrenciesManager>& currenciesManager();
    const std::shared_ptr<TKVariablesManager>& variablesManager();
    const std::shared_ptr<TKStocksLoading>& stocksManager();
    const std::shared_ptr<TKLocalizationManager>& localizationManager();

    // What is loaded, and saved. All are on at first. Units can be switched while a bundle is loaded.
    bool unitsEnabled() const { return areUnitsEnabled; }
    void setUnitsEnabled(bool enable);
    bool variablesEnabled() const { return areVariablesEnabled; }
    void setVariablesEnabled(bool enable) { areVariablesEnabled = enable; }
    bool currenciesEnabled() const { return areCurrenciesEnabled; }
    void setCurrenciesEnabled(bool enable) { areCurrenciesEnabled = enable; }
    bool stocksEnabled() const { return areStocksEnabled; }
    void setStocksEnabled(bool enable) { areStocksEnabled = enable; }

    // Whether rates and prices are fetched. On at first.
    bool updatesValuesFromWeb() const { return updatesFromWeb; }
    void setUpdatesValuesFromWeb(bool update);

    TCSimpleLocale locale() const { return numberLocale; }
    void setLocale(TCSimpleLocale locale);

    const std::optional<std::string>& dataSourceDirectoryPath() const { return dataFolder; }
    const platform::PropertyList& persistanceInfoDictionary() const { return persistanceInfo; }

    // The saved files in the data folder, which has to be given, or in another one.
    std::string variablesDataSourcePath() const;
    std::string stocksDataSourcePath() const;
    std::string currenciesDataSourcePath() const;
    static std::string variablesDataSourcePathInDir(const std::optional<std::string>& folder);
    static std::string stocksDataSourcePathInDir(const std::optional<std::string>& folder);
    static std::string currenciesDataSourcePathInDir(const std::optional<std::string>& folder);

    // Not owned; may be null.
    TKEnvironmentDelegate* delegate() const { return observer; }
    void setDelegate(TKEnvironmentDelegate* delegate) { observer = delegate; }

    // The language of the last loading; empty for none.
    const std::string& localization() const { return language; }

private:
    using Notification = platform::Notification;

    bool respondsToAction(std::string_view action) const override;
    void performAction(std::string_view action, const std::shared_ptr<void>& argument) override;

    // Loading, on the background thread.
    void load(const Bundle& bundle, const std::string& localization);
    void _loadAllFromBundle(const Bundle& bundle, const std::string& localization);
    void _loadLocalizedStringsFromBundle(const Bundle& bundle, const std::string& localization);
    void _loadUnitsFromBundle(const Bundle& bundle, const std::string& localization);
    void _loadCurrencyUnitsFromBundle(const Bundle& bundle, const std::string& localization);
    void _loadVariablesFromBundle(const Bundle& bundle, const std::string& localization);
    void _loadStocksFromBundle(const Bundle& bundle, const std::string& localization);
    void _loadLocalizedStuffFromBundle(const Bundle& bundle, const std::string& localization);
    std::optional<std::string> neededList(const Bundle& bundle, std::string_view name,
                                          const std::string& localization);
    platform::PropertyList contentsOf(const std::optional<std::string>& path);
    void addFailures(const std::vector<std::string>& sentences);
    void setupSharedInstances();
    void _finishLoadingBundle();
    void tellThatBundleWasLoaded(const Bundle& bundle);
    void rememberFailure(const std::string& path, bool isDamaged);
    std::optional<std::string> pathForSavedFile(std::string (*pathInDir)(const std::optional<std::string>&));
    void _reset();

    // Notices of changes, on the main queue.
    void _registerForNotifications();
    void observe(std::string_view name, void (TKEnvironment::*handler)(const Notification&));
    void variableWasModified(const Notification& notification);
    void variableWasMoved(const Notification& notification);
    void variableCameOrWent(const Notification& notification);
    void stocksCameOrWent(const Notification& notification);
    void stocksWereUpdated(const Notification& notification);
    void currenciesWereUpdated(const Notification& notification);
    void currenciesChangedEnabledState(const Notification& notification);
    void currenciesChangedFavouriteState(const Notification& notification);
    void tellOfModifiedVariable(const Notification& notification);
    void refreshCurrencyLocale();

    // Into the data folder.
    void saveVariables();
    void saveStocks();
    void saveCurrencies();
    bool saveTo(const std::string& path, const std::function<bool()>& save);

    TKEnvironmentDelegate* observer = nullptr;
    TCSimpleLocale numberLocale = TCSimpleLocale::standardLocale();
    std::shared_ptr<NYDispatchFuture> loadingFuture;
    std::optional<std::string> dataFolder;
    platform::PropertyList persistanceInfo;
    TKStocksMaker makeStocks;

    std::shared_ptr<TKLocalizationManager> localizing;
    std::shared_ptr<TKStocksLoading> stocks;
    std::shared_ptr<TKVariablesManager> variables;
    std::shared_ptr<TKCurrenciesManager> currencies;
    std::shared_ptr<TKUnitsManager> units;

    std::vector<platform::NotificationCenter::Observation> observations;
    bool isBundleLoaded = false;
    std::string bundlePath;
    std::vector<std::string> failures; // of the last loading
    bool isLoggingFailures = true;
    std::string language;
    bool areVariablesEnabled = true;
    bool areStocksEnabled = true;
    bool areCurrenciesEnabled = true;
    bool areUnitsEnabled = true;
    bool updatesFromWeb = true;
    TKDelayedPerformer delayedSaver;
    std::set<std::string> damagedFiles; // saved files that were read, and hold nothing of use
    std::set<std::string> unreadFiles;  // those that couldn't be read, and may hold anything
};

// Whether both characters are the same.
constexpr bool TKLocalesEqual(TCSimpleLocale a, TCSimpleLocale b) {
    return a == b;
}
