// What an environment does when something changes, on the main queue, and how it saves.

#include "environment/TKEnvironment.h"

#include "environment/TKLog.h"
#include "files/FileKeptAside.h"
#include "live/TKCurrencyRatesToUnitsHelper.h"
#include "variables/TCVariable.h"

#include <algorithm>
#include <filesystem>

namespace {

namespace fs = std::filesystem;

constexpr std::string_view saveCurrenciesAction = "saveCurrencies";
constexpr double delayOfSaving = 5.0; // seconds

} // namespace

void TKEnvironment::_registerForNotifications() {
    observations.clear();
    observe(TKVariableWasModified, &TKEnvironment::variableWasModified);
    observe(TKVariableWasMoved, &TKEnvironment::variableWasMoved);
    observe(TKVariableWasRemoved, &TKEnvironment::variableCameOrWent);
    observe(TKVariableWasAdded, &TKEnvironment::variableCameOrWent);
    observe(TKStocksWereAdded, &TKEnvironment::stocksCameOrWent);
    observe(TKStocksWereRemoved, &TKEnvironment::stocksCameOrWent);
    observe(TKStocksSuccessfulyUpdated, &TKEnvironment::stocksWereUpdated);
    observe(TKCurrenciesSuccessfullyUpdated, &TKEnvironment::currenciesWereUpdated);
    observe(TKCurrenciesEnabledStateChanged, &TKEnvironment::currenciesChangedEnabledState);
    observe(TKCurrenciesFavouriteStateChanged, &TKEnvironment::currenciesChangedFavouriteState);
}

// A notice may wait on the main queue while the environment goes.
void TKEnvironment::observe(std::string_view name, void (TKEnvironment::*handler)(const Notification&)) {
    observations.push_back(platform::NotificationCenter::shared().addMainQueueObserver(
        name, nullptr, [self = weak_from_this(), handler](const Notification& notification) {
            if (const auto environment = self.lock()) (environment.get()->*handler)(notification);
        }));
}

void TKEnvironment::variableWasModified(const Notification& notification) {
    if (stocks && stocks->stockUpdateInProgress()) return;
    saveVariables();
    tellOfModifiedVariable(notification);
}

void TKEnvironment::variableWasMoved(const Notification&) {
    saveVariables();
}

void TKEnvironment::variableCameOrWent(const Notification& notification) {
    saveVariables();
    tellOfModifiedVariable(notification);
}

// A host may post these names too, and then without an object: nothing can be told of it.
void TKEnvironment::tellOfModifiedVariable(const Notification& notification) {
    if (observer && notification.object)
        observer->environmentVariablesWereModified({notification.objectAs<TCVariable>()});
}

void TKEnvironment::stocksCameOrWent(const Notification& notification) {
    saveStocks();
    if (observer && notification.object) observer->environmentStocksWereModified(notification.object);
}

void TKEnvironment::stocksWereUpdated(const Notification&) {
    saveStocks();
    if (observer) observer->environmentDidUpdateStockValues();
}

void TKEnvironment::currenciesWereUpdated(const Notification&) {
    delayedSaver.cancelAllActions();
    TKCurrencyRatesToUnitsHelper::updateUnitRatesFromCurrencies(currenciesManager()->activeCurrencies());
    saveCurrencies();
    if (observer) observer->environmentDidUpdateCurrencyValues();
}

void TKEnvironment::currenciesChangedEnabledState(const Notification& notification) {
    const auto changed = notification.objectAs<TKCurrencyArray>();
    const auto isEnabled = [](const auto& currency) { return currency && currency->enabled(); };
    saveCurrencies();
    if (changed && std::ranges::any_of(*changed, isEnabled)) currenciesManager()->updateRatesFromWeb();
    refreshCurrencyLocale();
    if (observer && changed) observer->environmentCurrenciesWereModified(*changed);
}

void TKEnvironment::currenciesChangedFavouriteState(const Notification& notification) {
    delayedSaver.cancelAllActions();
    delayedSaver.performAction(std::string(saveCurrenciesAction), nullptr, delayOfSaving);
    const auto changed = notification.objectAs<TKCurrencyArray>();
    if (observer && changed) observer->environmentCurrenciesWereModified(*changed);
}

bool TKEnvironment::respondsToAction(std::string_view action) const {
    return action == saveCurrenciesAction;
}

void TKEnvironment::performAction(std::string_view, const std::shared_ptr<void>&) {
    saveCurrencies();
}

bool TKEnvironment::saveToDirectory(const std::string& folder) {
    bool saved = true;
    if (areCurrenciesEnabled) {
        const std::string path = currenciesDataSourcePathInDir(folder);
        const auto save = [&] { return currenciesManager()->saveCurrenciesToPath(path, persistanceInfo); };
        saved = saveTo(path, save) && saved;
    }
    if (areStocksEnabled && stocksManager()) {
        const std::string path = stocksDataSourcePathInDir(folder);
        saved = saveTo(path, [&] { return stocks->saveToPath(path, persistanceInfo); }) && saved;
    }
    if (areVariablesEnabled) {
        const std::string path = variablesDataSourcePathInDir(folder);
        const auto save = [&] { return variablesManager()->saveToPath(path, persistanceInfo); };
        saved = saveTo(path, save) && saved;
    }
    return saved;
}

void TKEnvironment::saveVariables() {
    if (!dataFolder || !variables) return;
    const std::string path = variablesDataSourcePath();
    saveTo(path, [&] { return variables->saveToPath(path, persistanceInfo); });
}

void TKEnvironment::saveStocks() {
    if (!dataFolder || !stocks) return;
    const std::string path = stocksDataSourcePath();
    saveTo(path, [&] { return stocks->saveToPath(path, persistanceInfo); });
}

void TKEnvironment::saveCurrencies() {
    if (!dataFolder || !currencies) return;
    const std::string path = currenciesDataSourcePath();
    saveTo(path, [&] { return currencies->saveCurrenciesToPath(path, persistanceInfo); });
}

// What couldn't be read may be all that the user has saved: it stays. What was read and is of no use here may
// still be of use to its owner: it is kept beside the new file.
bool TKEnvironment::saveTo(const std::string& path, const std::function<bool()>& save) {
    if (unreadFiles.contains(path)) {
        std::error_code ignored;
        if (fs::symlink_status(path, ignored).type() != fs::file_type::not_found) {
            TKLog("%s isn't saved: what stands there couldn't be read", path.c_str());
            return false;
        }
        unreadFiles.erase(path);
    }
    if (!damagedFiles.contains(path)) return save();
    platform::FileKeptAside aside(path, ".damaged");
    if (!aside.isKept()) {
        TKLog("%s isn't saved: the damaged file there can't be kept", path.c_str());
        return false;
    }
    if (!save()) return false;
    aside.stay();
    damagedFiles.erase(path);
    TKLog("The damaged file was kept as %s", aside.path().c_str());
    return true;
}
