#include "live/TKCurrenciesManager.h"

#include "NotificationCenter.h"
#include "environment/TCWarnLog.h"
#include "environment/TKLog.h"
#include "runtime/Unicode.h"
#include "units/TCBasicUnit.h"
#include "units/TKUnitsManager.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <utility>

namespace {

using platform::NotificationCenter;
using platform::PropertyList;

constexpr std::u16string_view masterRate = u"1.00";
constexpr std::u16string_view bitcoinCode = u"BTC";

constexpr std::string_view currenciesKey = "TKCurrencies";
constexpr std::string_view dateKey = "TKDataSourceDate";
constexpr std::string_view versionInfoKey = "TKVersionInfo";
constexpr std::string_view creatorBuildKey = "CreatorBuild";

// The first build that saved rows by code.
constexpr int64_t firstBuildOfPresentForm = 2738;

constexpr const char* invalidStore =
    "Currencies Manager Warning: Cannot load currencies from path. Invalid currency data store error %d";

void reportInvalidRow(std::string_view code) {
    TKLog("Currencies: the row %.*s can't be used", static_cast<int>(code.size()), code.data());
}

bool isMaster(const TKCurrency& currency) {
    return currency.code() == TKCurrenciesManager::masterCurrencyCode;
}

} // namespace

std::shared_ptr<TKCurrenciesManager>
TKCurrenciesManager::managerWithUnitsManager(std::shared_ptr<TKUnitsManager> unitsManager) {
    return std::make_shared<TKCurrenciesManager>(Passkey{}, std::move(unitsManager));
}

TKCurrenciesManager::TKCurrenciesManager(Passkey, std::shared_ptr<TKUnitsManager> unitsManager)
    : units(std::move(unitsManager)) {}

TKCurrenciesManager::~TKCurrenciesManager() {
    for (const Row& row : rows)
        row->setObserver(nullptr);
}

void TKCurrenciesManager::registerDefaultCurrencies(const PropertyList& defaults) {
    if (!rows.empty()) {
        TCWarnLog("Warning: %s [Line %d] Registering Defaults but actual currencies already exist", __func__,
                  97);
        return;
    }
    for (const auto& [code, row] : defaults.dictionary())
        addDefault(code, row);
    std::ranges::sort(rows, [](const Row& a, const Row& b) { return a->compareByCurrency(*b) < 0; });
    if (!rows.empty()) setLastCurrencyUpdateDate(rows.front()->sourceDate());
}

void TKCurrenciesManager::addDefault(std::string_view code, const PropertyList& row) {
    if (row.kind() != PropertyList::Kind::dictionary) return reportInvalidRow(code);
    auto currency = TKCurrency::currencyWithDictionary(row);
    if (currency->identifier().empty()) currency->setIdentifier(TBF::utf16(code));
    currency->setLocale(numberLocale);
    if (isMaster(*currency)) currency->setRate(std::u16string(masterRate));
    if (!rowsByCode.emplace(currency->identifier(), currency).second) return reportInvalidRow(code);
    rows.push_back(std::move(currency));
}

bool TKCurrenciesManager::loadCurrenciesFromPath(const std::string& path, bool* isDamaged) {
    std::error_code ignored;
    if (!std::filesystem::exists(path, ignored)) TKLog("could not load currencies, nothing there.");
    std::string error;
    auto saved = PropertyList::read(path, &error, isDamaged);
    if (!saved || saved->kind() != PropertyList::Kind::dictionary) {
        if (saved && isDamaged) *isDamaged = true;
        if (!error.empty()) TKLog("%s", error.c_str());
        TKLog(invalidStore, 1);
        TKLog(invalidStore, 2);
        return false;
    }
    const bool isOldForm = (*saved)[currenciesKey].kind() != PropertyList::Kind::dictionary;
    if (isOldForm) saved = validCurrencyDictionaryFromOldDataSource(*saved);
    if (saved->isNull()) {
        if (isDamaged) *isDamaged = true;
        TKLog(invalidStore, 2);
        return false;
    }
    takeSavedRows((*saved)[currenciesKey]);
    const auto date = (*saved)[dateKey].date();
    const auto present = lastCurrencyUpdateDate();
    if (!isOldForm && date && (!present || *present < *date)) setLastCurrencyUpdateDate(date);
    return true;
}

void TKCurrenciesManager::takeSavedRows(const PropertyList& savedRows) {
    if (rows.empty()) {
        TCWarnLog("Warning: Trying to load currency values from plist, but no defaults have been registered");
        registerDefaultCurrencies(savedRows);
    }
    for (const auto& [code, values] : savedRows.dictionary()) {
        const Row row = currencyWithCode(TBF::utf16(code));
        if (!row) continue;
        // A row can't become another one.
        const auto identifier = values["identifier"].string();
        if (values.kind() != PropertyList::Kind::dictionary || (identifier && *identifier != code)) {
            reportInvalidRow(code);
            continue;
        }
        row->acquireValuesFromDictionary(values);
        if (isMaster(*row)) row->setRate(std::u16string(masterRate));
    }
}

PropertyList TKCurrenciesManager::validCurrencyDictionaryFromOldDataSource(const PropertyList& old) {
    const auto build = old[versionInfoKey][creatorBuildKey].asInteger();
    if (old[versionInfoKey].isNull() || build.value_or(0) >= firstBuildOfPresentForm) return {};
    PropertyList::Dictionary converted;
    for (const PropertyList& row : old[currenciesKey].array()) {
        const auto identifier = row["identifier"].string();
        if (!identifier) continue;
        PropertyList::Dictionary withoutRate = row.dictionary();
        withoutRate.remove("rate");
        converted.set(*identifier, std::move(withoutRate));
    }
    if (converted.size() == 0) return {};
    PropertyList::Dictionary present = old.dictionary();
    present.set(currenciesKey, std::move(converted));
    for (const Row& row : rows)
        row->setEnabled(false);
    return present;
}

void TKCurrenciesManager::completeLoading() {
    if (!units) return;
    for (const Row& row : rows) {
        if (auto unit = units->mutableUnitWithIdentifier(row->identifier())) {
            row->setMutableUnit(std::move(unit));
            if (row->enabled()) units->setUnitEnabled(row->mutableUnit(), true);
        } else {
            TCWarnLog("Associated unit for %s could not be found, using %s",
                      TBF::utf8(row->identifier()).c_str(), TBF::utf8(masterCurrencyCode).c_str());
            row->setMutableUnit(units->mutableUnitWithIdentifier(masterCurrencyCode));
        }
        row->setObserver(this);
    }
}

bool TKCurrenciesManager::saveCurrenciesToPath(const std::string& path,
                                               const PropertyList& withVersionInfo) const {
    PropertyList::Dictionary savedRows;
    for (const Row& row : rows)
        savedRows.set(TBF::utf8(row->identifier()), row->dictionaryRepresentation());
    PropertyList::Dictionary contents;
    contents.set(currenciesKey, std::move(savedRows));
    if (const auto date = lastCurrencyUpdateDate()) contents.set(dateKey, *date);
    if (!withVersionInfo.isNull()) contents.set(versionInfoKey, withVersionInfo);
    std::string error;
    if (PropertyList(std::move(contents)).write(path, &error)) return true;
    TKLog("Warning: Could not save currencies to file '%s' %s", path.c_str(), error.c_str());
    return false;
}

TKCurrencyArray TKCurrenciesManager::rowsThatAre(bool (TKCurrency::*state)() const) const {
    TKCurrencyArray found;
    std::ranges::copy_if(rows, std::back_inserter(found), [&](const Row& row) { return (*row.*state)(); });
    return found;
}

TKCurrencyArray TKCurrenciesManager::activeCurrencies() const {
    return rowsThatAre(&TKCurrency::enabled);
}

TKCurrencyArray TKCurrenciesManager::favouriteCurrencies() const {
    return rowsThatAre(&TKCurrency::favourite);
}

std::vector<std::u16string> TKCurrenciesManager::activeRealWorldCurrencyCodes() const {
    std::vector<std::u16string> codes;
    for (const Row& row : rows)
        if (row->enabled() && row->code() != bitcoinCode) codes.push_back(row->code());
    return codes;
}

TKCurrenciesManager::Row TKCurrenciesManager::currencyWithCode(std::u16string_view code) const {
    const auto found = rowsByCode.find(std::u16string(code));
    return found == rowsByCode.end() ? nullptr : found->second;
}

void TKCurrenciesManager::setLocale(TCSimpleLocale newLocale) {
    if (newLocale == numberLocale) return;
    numberLocale = newLocale;
    for (const Row& row : rows)
        row->setLocale(newLocale);
    NotificationCenter::shared().post(TKCurrenciesLocaleChanged, shared_from_this());
}

std::optional<TKCurrenciesManager::Date> TKCurrenciesManager::lastCurrencyUpdateDate() const {
    const std::lock_guard lock(mutex);
    return lastUpdate;
}

void TKCurrenciesManager::setLastCurrencyUpdateDate(std::optional<Date> date) {
    const std::lock_guard lock(mutex);
    lastUpdate = date;
}

void TKCurrenciesManager::setAutomaticallyUpdatesValuesFromWeb(bool automatically) {
    updatesAutomatically = automatically;
    if (fetcher) fetcher->setUpdatesAutomatically(*this, automatically);
}

void TKCurrenciesManager::updateRatesFromWeb() {
    if (fetcher) fetcher->updateRates(*this);
}

void TKCurrenciesManager::updateRatesWithUpdater(const TKCurrencyRates& operation) {
    const auto now = std::chrono::time_point_cast<Date::duration>(std::chrono::system_clock::now());
    for (const std::u16string& code : operation.supportedCurrencyCodes()) {
        const Row row = currencyWithCode(code);
        if (!row) continue;
        if (isMaster(*row)) {
            row->setRate(std::u16string(masterRate));
            row->setSourceDate(now);
            continue;
        }
        const auto rate = operation.rateForCurrencyCode(code);
        if (!(static_cast<float>(TKDoubleValue(rate.value_or(std::u16string()))) > 0.0F) ||
            !TKFactorOfRate(*rate)) {
            TCWarnLog("Warning: invalid rate (%s) found for currency %s",
                      TBF::utf8(rate.value_or(u"(null)")).c_str(), TBF::utf8(code).c_str());
            continue;
        }
        if (!row->enabled()) continue;
        row->setRate(rate);
        row->setSourceDate(now);
    }
}

// A unit that stands in for the currency's own is left alone: it is another currency's.
void TKCurrenciesManager::currencyDidChangeEnabled(TKCurrency& currency) {
    if (units && currency.hasOwnUnit()) units->setUnitEnabled(currency.mutableUnit(), currency.enabled());
    NotificationCenter::shared().post(TKCurrenciesEnabledStateChanged,
                                      std::make_shared<TKCurrencyArray>(1, currency.shared_from_this()));
}

void TKCurrenciesManager::currencyDidChangeFavourite(TKCurrency& currency) {
    NotificationCenter::shared().post(TKCurrenciesFavouriteStateChanged,
                                      std::make_shared<TKCurrencyArray>(1, currency.shared_from_this()));
}
