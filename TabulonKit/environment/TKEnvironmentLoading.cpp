// How an environment fills its managers from a bundle, on a background thread.

#include "environment/TKEnvironment.h"

#include "bundle/Bundle.h"
#include "bundle/LocalizedStrings.h"
#include "dispatch/MainQueue.h"
#include "environment/TCBuiltins.h"
#include "environment/TCEnvironment.h"
#include "environment/TCEvaluator.h"
#include "environment/TKLocalization.h"
#include "environment/TKLocalizationManager.h"
#include "environment/TKLog.h"
#include "live/TKCurrencyRatesToUnitsHelper.h"
#include "locale/Locale.h"
#include "runtime/TBFLog.h"
#include "units/TKUnitsManager.h"

#include <algorithm>
#include <filesystem>

namespace {

using platform::PropertyList;
using Path = std::optional<std::string>;

constexpr std::string_view listType = "plist";

// The list in the wanted language, or else in one that the user prefers, or in English; at last the one that
// doesn't depend on language. Without a wanted language the bundle chooses first.
Path pathForResource(std::string_view name, std::string_view type, const std::string& forLocalization,
                     const platform::Bundle& inBundle) {
    Path path = forLocalization.empty() ? inBundle.pathForResource(name, type)
                                        : inBundle.pathForResource(name, type, forLocalization);
    if (path) return path;
    const auto locale = platform::Locale::current();
    for (const std::string& language : locale.preferredLanguages())
        if ((path = inBundle.pathForResource(name, type, language))) return path;
    if ((path = inBundle.pathForResource(name, type, kTKLocalizationNameEnglish))) return path;
    return inBundle.pathForResource(name, type);
}

} // namespace

void TKEnvironment::load(const Bundle& bundle, const std::string& localization) {
    if (bundle)
        _loadAllFromBundle(bundle, localization);
    else
        addFailures({bundlePath + ": there is no such content"});
    if (isLoggingFailures)
        for (const std::string& failure : failures)
            TKLog("%s", failure.c_str());
    setupSharedInstances();
    _finishLoadingBundle();
    tellThatBundleWasLoaded(bundle);
}

void TKEnvironment::_loadAllFromBundle(const Bundle& bundle, const std::string& localization) {
    TKLocalization::setMainBundle(bundle);
    _loadLocalizedStringsFromBundle(bundle, localization);
    if (areUnitsEnabled) _loadUnitsFromBundle(bundle, localization);
    if (areCurrenciesEnabled) _loadCurrencyUnitsFromBundle(bundle, localization);
    if (areVariablesEnabled) _loadVariablesFromBundle(bundle, localization);
    if (areStocksEnabled) _loadStocksFromBundle(bundle, localization);
    _loadLocalizedStuffFromBundle(bundle, localization);
}

// The path of a list without which the content isn't whole; none, and a failure, if there is no such list.
Path TKEnvironment::neededList(const Bundle& bundle, std::string_view name, const std::string& localization) {
    Path path = pathForResource(name, listType, localization, *bundle);
    if (!path) addFailures({bundle->path() + ": " + std::string(name) + ".plist is missing"});
    return path;
}

// Null, and a failure, for a list that is there and can't be read.
PropertyList TKEnvironment::contentsOf(const Path& path) {
    if (!path) return {};
    std::string error;
    auto list = PropertyList::read(*path, &error);
    if (!list) addFailures({error});
    return list ? std::move(*list) : PropertyList();
}

// A file that two managers read fails once.
void TKEnvironment::addFailures(const std::vector<std::string>& sentences) {
    for (const std::string& sentence : sentences)
        if (std::ranges::find(failures, sentence) == failures.end()) failures.push_back(sentence);
}

// English stands behind the language, text by text.
void TKEnvironment::_loadLocalizedStringsFromBundle(const Bundle& bundle, const std::string& localization) {
    platform::LocalizedStrings strings;
    const Path paths[] = {
        bundle->pathForResource("Localizable", listType, kTKLocalizationNameEnglish),
        neededList(bundle, "Localizable", localization),
    };
    for (const Path& path : paths) {
        const PropertyList texts = contentsOf(path);
        for (const auto& [key, value] : texts.dictionary())
            if (const auto text = value.string()) strings.insert_or_assign(key, std::string(*text));
    }
    platform::setLocalizedStrings(std::move(strings));
}

void TKEnvironment::_loadUnitsFromBundle(const Bundle& bundle, const std::string& localization) {
    const Path data = neededList(bundle, "Units", localization);
    const Path names = neededList(bundle, "UnitLocalization", localization);
    Path fallback;
    if (!TKLocalizationIsEnglish(localization))
        fallback =
            pathForResource("UnitLocalization", listType, std::string(kTKLocalizationNameEnglish), *bundle);
    if (data) unitsManager()->loadUnitsFromFile(*data, names.value_or(""), fallback.value_or(""));
}

void TKEnvironment::_loadCurrencyUnitsFromBundle(const Bundle& bundle, const std::string& localization) {
    const Path defaults = neededList(bundle, "Currencies", localization);
    const Path names = neededList(bundle, "CurrencyLocalization", localization);
    if (!names)
        TBFErrorLog("WARNING: No currencies localization file found for %s",
                    localization.empty() ? "the user's language" : localization.c_str());
    const auto& manager = currenciesManager();
    const PropertyList rates = contentsOf(defaults);
    if (!rates.isNull() && rates["TKCurrencies"].isNull())
        addFailures({*defaults + ": it has no \"TKCurrencies\""});
    manager->registerDefaultCurrencies(rates["TKCurrencies"]);
    if (names) unitsManager()->loadCurrenciesFromLocalizationFile(*names);
    bool isDamaged = false;
    if (const Path saved = pathForSavedFile(currenciesDataSourcePathInDir))
        if (!manager->loadCurrenciesFromPath(*saved, &isDamaged)) rememberFailure(*saved, isDamaged);
    manager->completeLoading();
    if (updatesFromWeb) manager->setAutomaticallyUpdatesValuesFromWeb(true);
}

void TKEnvironment::_loadVariablesFromBundle(const Bundle&, const std::string&) {
    const auto& manager = variablesManager();
    if (const Path saved = pathForSavedFile(variablesDataSourcePathInDir)) {
        bool isDamaged = false;
        if (manager->loadFromPath(*saved, &isDamaged)) return;
        rememberFailure(*saved, isDamaged);
    }
    manager->loadDefaults();
}

void TKEnvironment::_loadStocksFromBundle(const Bundle& bundle, const std::string& localization) {
    const auto& manager = stocksManager();
    if (!manager) return;
    const Path saved = pathForSavedFile(stocksDataSourcePathInDir);
    const Path path = saved ? saved : pathForResource("Stocks", listType, localization, *bundle);
    bool isDamaged = false;
    if (path && !manager->loadFromPath(*path, &isDamaged) && saved) rememberFailure(*saved, isDamaged);
    if (updatesFromWeb) manager->setAutomaticallyDownloadsStockPrices(true);
}

void TKEnvironment::_loadLocalizedStuffFromBundle(const Bundle& bundle, const std::string& localization) {
    const auto& manager = localizationManager();
    neededList(bundle, "PercentageOperators", localization);
    manager->setPercentageOperatorsPlistFileName("PercentageOperators", bundle, localization);
    manager->setWordOperatorsPlistFile(neededList(bundle, "WordOperators", localization));
    if (areUnitsEnabled)
        manager->setUnitLocalizationPlistFile(
            pathForResource("UnitLocalization", listType, localization, *bundle));
    if (areCurrenciesEnabled) refreshCurrencyLocale();
    addFailures(unitsManager()->failures());
    addFailures(manager->failures());
}

void TKEnvironment::setupSharedInstances() {
    const auto shared = TCEnvironment::make();
    shared->setUnitManager(unitsManager()->tcUnitManager());
    shared->setVariables(variablesManager()->variableList());
    shared->setWordOperators(localizationManager()->wordOperatorList());
    shared->setFunctions(TCBuiltins::functions());
    shared->setSharedEvaluator(
        std::make_shared<TCEvaluator>(shared->unitManager(), shared->variables(), shared->wordOperators()));
    shared->set();
}

void TKEnvironment::_finishLoadingBundle() {
    isBundleLoaded = true;
    _registerForNotifications();
    if (!areCurrenciesEnabled) return;
    TKCurrencyRatesToUnitsHelper::updateUnitRatesFromCurrencies(currenciesManager()->allCurrencies());
    refreshCurrencyLocale();
}

void TKEnvironment::tellThatBundleWasLoaded(const Bundle& bundle) {
    platform::MainQueue::shared().async([self = weak_from_this(), bundle] {
        platform::NotificationCenter::shared().post(TKEnvironmentDidLoadBundle,
                                                    std::const_pointer_cast<platform::Bundle>(bundle));
        const auto environment = self.lock();
        if (environment && environment->observer && bundle)
            environment->observer->environmentDidLoadBundle(*bundle);
    });
}

void TKEnvironment::refreshCurrencyLocale() {
    const auto& manager = localizationManager();
    manager->refreshCurrencyLocaleForCode(manager->bestCurrencyCodeForCurrentLocale());
}

void TKEnvironment::rememberFailure(const std::string& path, bool isDamaged) {
    (isDamaged ? damagedFiles : unreadFiles).insert(path);
}

// None if there is no such file, and without a data folder. One that can't be looked at may be there.
std::optional<std::string>
TKEnvironment::pathForSavedFile(std::string (*pathInDir)(const std::optional<std::string>&)) {
    if (!dataFolder) return std::nullopt;
    std::string path = pathInDir(dataFolder);
    std::error_code ignored;
    if (std::filesystem::status(path, ignored).type() == std::filesystem::file_type::not_found)
        return std::nullopt;
    return path;
}
