#include "environment/TKEnvironment.h"

#include "bundle/Bundle.h"
#include "dispatch/WorkerQueue.h"
#include "environment/NYDispatchFuture.h"
#include "environment/TCBuiltins.h"
#include "environment/TCSettings.h"
#include "environment/TKLocalizationManager.h"
#include "runtime/TBFLog.h"
#include "units/TKUnitsManager.h"

#include <utility>

namespace {

std::shared_ptr<TKEnvironment>& shared() {
    static auto* const environment = new std::shared_ptr<TKEnvironment>();
    return *environment;
}

std::string dataSourcePathForModulePlist(const char* file, const std::optional<std::string>& inDir) {
    VerifyTrue(inDir.has_value(), "Nil directory path for %s", file);
    return *inDir + "/" + file;
}

} // namespace

std::shared_ptr<TKEnvironment> TKEnvironment::make(std::optional<std::string> dataSourceDirectoryPath,
                                                   platform::PropertyList persistanceInfoDictionary,
                                                   TKStocksMaker stocksMaker) {
    auto environment = std::make_shared<TKEnvironment>(Passkey{});
    environment->dataFolder = std::move(dataSourceDirectoryPath);
    environment->persistanceInfo = std::move(persistanceInfoDictionary);
    environment->makeStocks = std::move(stocksMaker);
    environment->delayedSaver.setTarget(environment);
    return environment;
}

TKEnvironment::TKEnvironment(Passkey) {}

TKEnvironment::~TKEnvironment() = default;

std::shared_ptr<TKEnvironment> TKEnvironment::sharedEnvironment() {
    return shared();
}

void TKEnvironment::set() {
    shared() = shared_from_this();
}

void TKEnvironment::loadFromBundleAtPath(const std::string& path, const std::string& localization) {
    VerifyTrue(TCSettings::isSet(), "TCSettings not set. These must be set before loading an environment.");
    completeLoading();
    if (isBundleLoaded) _reset();
    language = localization;
    bundlePath = path;
    const Bundle bundle = platform::Bundle::bundleWithPath(path);
    loadingFuture = NYDispatchFuture::futureOnQueue(platform::WorkerQueue::global(),
                                                    [self = shared_from_this(), bundle, localization] {
                                                        self->load(bundle, localization);
                                                        return std::any();
                                                    });
}

void TKEnvironment::completeLoading() {
    if (loadingFuture) loadingFuture->get();
}

// What waits to be saved is the user's, and is saved with the managers that know it.
void TKEnvironment::_reset() {
    const bool hasUnsavedCurrencies = delayedSaver.countOfScheduledActions() > 0;
    delayedSaver.cancelAllActions();
    if (hasUnsavedCurrencies) saveCurrencies();
    damagedFiles.clear();
    unreadFiles.clear();
    observations.clear();
    localizing = nullptr;
    stocks = nullptr;
    variables = nullptr;
    currencies = nullptr;
    units = nullptr;
    language.clear();
    loadingFuture = nullptr;
    isBundleLoaded = false;
    bundlePath.clear();
    failures.clear();
}

const std::shared_ptr<TKUnitsManager>& TKEnvironment::unitsManager() {
    if (!units) units = std::make_shared<TKUnitsManager>();
    return units;
}

const std::shared_ptr<TKCurrenciesManager>& TKEnvironment::currenciesManager() {
    if (!currencies) currencies = TKCurrenciesManager::managerWithUnitsManager(unitsManager());
    return currencies;
}

const std::shared_ptr<TKVariablesManager>& TKEnvironment::variablesManager() {
    if (!variables)
        variables = TKVariablesManager::managerWithVariableList(TCBuiltins::variables(),
                                                                unitsManager()->tcUnitManager());
    return variables;
}

const std::shared_ptr<TKStocksLoading>& TKEnvironment::stocksManager() {
    if (!stocks && makeStocks) stocks = makeStocks(unitsManager(), variablesManager());
    return stocks;
}

const std::shared_ptr<TKLocalizationManager>& TKEnvironment::localizationManager() {
    if (!localizing)
        localizing = std::make_shared<TKLocalizationManager>(unitsManager(), TCBuiltins::wordOperators());
    return localizing;
}

void TKEnvironment::setUnitsEnabled(bool enable) {
    if (enable == areUnitsEnabled) return;
    areUnitsEnabled = enable;
    if (!isBundleLoaded) return;
    if (!enable) return unitsManager()->setUnitsEnabled(false);
    if (const Bundle bundle = platform::Bundle::bundleWithPath(bundlePath)) _loadUnitsFromBundle(bundle, {});
}

void TKEnvironment::setUpdatesValuesFromWeb(bool update) {
    if (update == updatesFromWeb) return;
    updatesFromWeb = update;
    if (areStocksEnabled && stocksManager()) stocks->setAutomaticallyDownloadsStockPrices(update);
    if (areCurrenciesEnabled) currenciesManager()->setAutomaticallyUpdatesValuesFromWeb(update);
}

void TKEnvironment::setLocale(TCSimpleLocale locale) {
    if (TKLocalesEqual(locale, numberLocale)) return;
    numberLocale = locale;
    if (areVariablesEnabled) variablesManager()->setLocale(locale);
    if (areStocksEnabled && stocksManager()) stocks->setLocale(locale);
    if (areCurrenciesEnabled) currenciesManager()->setLocale(locale);
}

std::string TKEnvironment::variablesDataSourcePath() const {
    return variablesDataSourcePathInDir(dataFolder);
}

std::string TKEnvironment::stocksDataSourcePath() const {
    return stocksDataSourcePathInDir(dataFolder);
}

std::string TKEnvironment::currenciesDataSourcePath() const {
    return currenciesDataSourcePathInDir(dataFolder);
}

std::string TKEnvironment::variablesDataSourcePathInDir(const std::optional<std::string>& folder) {
    return dataSourcePathForModulePlist("Variables.plist", folder);
}

std::string TKEnvironment::stocksDataSourcePathInDir(const std::optional<std::string>& folder) {
    return dataSourcePathForModulePlist("Stocks.plist", folder);
}

std::string TKEnvironment::currenciesDataSourcePathInDir(const std::optional<std::string>& folder) {
    return dataSourcePathForModulePlist("Currencies.plist", folder);
}
