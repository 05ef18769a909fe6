#include "live/TKCurrenciesManager.h"

#include "ContentTesting.h"
#include "environment/TKLocalizationManager.h"
#include "live/TKCurrencyRatesToUnitsHelper.h"
#include "units/TCBasicUnit.h"
#include "units/TCUnitCollection.h"
#include "units/TKUnitsManager.h"

#include <gmock/gmock.h>

#include <thread>

namespace {

using ContentTesting::Array;
using ContentTesting::currencyRow;
using ContentTesting::Dictionary;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

using Date = TKCurrency::Date;

Date day(int number) {
    return Date(std::chrono::sys_days{std::chrono::year{2026} / 1 / number});
}

PropertyList withDate(PropertyList row, Date date) {
    Dictionary dictionary = row.dictionary();
    dictionary.set("sourceDate", date);
    return dictionary;
}

// A fetch that brought what a test says.
struct Rates final : TKCurrencyRates {
    using ByCode = std::map<std::u16string, std::optional<std::u16string>, std::less<>>;
    ByCode rates;

    explicit Rates(ByCode all)
        : rates(std::move(all)) {}
    std::vector<std::u16string> supportedCurrencyCodes() const override {
        std::vector<std::u16string> codes;
        for (const auto& [code, rate] : rates)
            codes.push_back(code);
        return codes;
    }
    std::optional<std::u16string> rateForCurrencyCode(std::u16string_view code) const override {
        return rates.find(code)->second;
    }
};

TEST(TKCurrencyTests, ReadsAndWritesItsDictionary) {
    const auto row = TKCurrency::currencyWithDictionary(
        Dictionary{{"identifier", "EUR"}, {"rate", " 0.8\n"}, {"enabled", true}, {"sourceDate", day(3)}});
    EXPECT_EQ(row->code(), u"EUR");
    EXPECT_EQ(row->rate(), u"0.8");
    EXPECT_EQ(row->dictionaryRepresentation(), PropertyList(Dictionary{{"identifier", "EUR"},
                                                                       {"enabled", true},
                                                                       {"favourite", false},
                                                                       {"sourceDate", day(3)},
                                                                       {"rate", "0.8"}}));
    EXPECT_TRUE(TKCurrency::currencyWithDictionary(Dictionary{})->sourceDate()) << "the date is now";
    EXPECT_EQ(row->copy()->dictionaryRepresentation(), row->dictionaryRepresentation());
}

TEST(TKCurrencyTests, UnusableValuesLeaveTheFieldsAlone) {
    const auto row = TKCurrency::currencyWithDictionary(currencyRow("EUR", "0.8", true));
    testing::internal::CaptureStderr();
    for (const char* rate :
         {"0", "abc", "-1", "nan", "inf", "1e999", "1e17", "", "1,5", "1 5", "1/2", "2 EUR"})
        row->acquireValuesFromDictionary(Dictionary{{"rate", rate}});
    row->acquireValuesFromDictionary(Dictionary{
        {"rate", 3}, {"enabled", Array{}}, {"sourceDate", "today"}, {"colour", "red"}, {"favourite", true}});
    EXPECT_THAT(testing::internal::GetCapturedStderr(), HasSubstr("\"sourceDate\" can't be used"));
    EXPECT_EQ(row->rate(), u"0.8");
    EXPECT_TRUE(row->enabled());
    EXPECT_TRUE(row->favourite());
}

TEST(TKCurrencyTests, RatesInOtherTermsAndForPeople) {
    platform::Locale::setIdentifier("en_US");
    if (!TCSettings::isSet()) TCSettings::make()->set();
    const auto euro = TKCurrency::currencyWithDictionary(currencyRow("EUR", "0.8", true));
    const auto krone = TKCurrency::currencyWithDictionary(currencyRow("NOK", "10", true));
    EXPECT_EQ(krone->rateInCurrency(*euro), u"12.5000000000000000");
    EXPECT_EQ(krone->localizedRateInCurrency(euro.get(), false), u"12.5000000000000000");
    EXPECT_EQ(krone->localizedRate(), u"10.0");
    krone->setLocale({u',', u'.'});
    EXPECT_EQ(krone->localizedRate(), u"10,0");
    EXPECT_EQ(euro->localizedRateWithCurrencySymbol(), u"€0.80");
    euro->setRate(u"0.9");
    EXPECT_EQ(euro->localizedRateWithCurrencySymbol(), u"€0.90");
    EXPECT_EQ(euro->currencySymbol(), u"€");
    EXPECT_LT(euro->compareByCurrency(*krone), 0);
    platform::Locale::setIdentifier(std::nullopt);
}

class TKCurrenciesManagerTests : public ContentTesting::Test {
protected:
    void SetUp() override {
        ContentTesting::Test::SetUp();
        manager = TKCurrenciesManager::managerWithUnitsManager(units);
        units->loadCurrenciesFromLocalizationFile((content / "en.lproj/CurrencyLocalization.plist").string());
    }

    void registerDefaults() {
        manager->registerDefaultCurrencies(
            Dictionary{{"USD", currencyRow("USD", "7", true)},
                       {"EUR", withDate(currencyRow("EUR", "0.75", true), day(10))},
                       {"BTC", withDate(currencyRow("BTC", "0.00001", true), day(9))},
                       {"NOK", currencyRow("NOK", "10", false)}});
    }

    std::u16string factorOf(std::u16string_view code) const {
        return units->mutableUnitWithIdentifier(code)->factor();
    }

    bool loadSaved(const PropertyList& list) {
        write("Currencies.plist", list);
        return manager->loadCurrenciesFromPath((dataFolder / "Currencies.plist").string());
    }

    static std::vector<std::u16string> codesOf(const TKCurrencyArray& rows) {
        std::vector<std::u16string> codes;
        for (const auto& row : rows)
            codes.push_back(row->code());
        return codes;
    }

    const std::shared_ptr<TKUnitsManager> units = std::make_shared<TKUnitsManager>();
    std::shared_ptr<TKCurrenciesManager> manager;
};

TEST_F(TKCurrenciesManagerTests, DefaultsAreSortedAndRegisteredOnce) {
    registerDefaults();
    EXPECT_THAT(codesOf(manager->allCurrencies()), ElementsAre(u"BTC", u"EUR", u"NOK", u"USD"));
    EXPECT_EQ(manager->currencyWithCode(u"USD")->rate(), u"1.00");
    EXPECT_EQ(manager->lastCurrencyUpdateDate(), day(9)) << "that of the first row";
    EXPECT_THAT(manager->activeRealWorldCurrencyCodes(), ElementsAre(u"EUR", u"USD"));
    manager->registerDefaultCurrencies(Dictionary{{"AAA", currencyRow("AAA", "2", true)}});
    EXPECT_EQ(manager->currencyWithCode(u"AAA"), nullptr);
}

TEST_F(TKCurrenciesManagerTests, BadDefaultsArePassedOver) {
    testing::internal::CaptureStderr();
    manager->registerDefaultCurrencies(Dictionary{{"AAA", "x"},
                                                  {"BBB", currencyRow("EUR", "2", true)},
                                                  {"CCC", Dictionary{{"rate", "3"}}},
                                                  {"EUR", currencyRow("EUR", "4", true)}});
    EXPECT_THAT(testing::internal::GetCapturedStderr(), HasSubstr("row AAA"));
    EXPECT_THAT(codesOf(manager->allCurrencies()), ElementsAre(u"CCC", u"EUR"));
}

TEST_F(TKCurrenciesManagerTests, SavedValuesChangeTheRowsAndNeverMoveTheDateBack) {
    registerDefaults();
    EXPECT_TRUE(loadSaved(
        Dictionary{{"TKDataSourceDate", day(2)},
                   {"TKCurrencies", Dictionary{{"EUR", Dictionary{{"rate", "0.5"}, {"favourite", true}}},
                                               {"NOK", currencyRow("USD", "9", true)},
                                               {"USD", currencyRow("USD", "9", true)},
                                               {"ZZZ", currencyRow("ZZZ", "9", true)}}}}));
    EXPECT_EQ(manager->currencyWithCode(u"EUR")->rate(), u"0.5");
    EXPECT_THAT(codesOf(manager->favouriteCurrencies()), ElementsAre(u"EUR"));
    EXPECT_EQ(manager->currencyWithCode(u"NOK")->rate(), u"10") << "a row can't become another one";
    EXPECT_EQ(manager->currencyWithCode(u"USD")->rate(), u"1.00");
    EXPECT_EQ(manager->currencyWithCode(u"ZZZ"), nullptr);
    EXPECT_EQ(manager->lastCurrencyUpdateDate(), day(9));

    EXPECT_TRUE(loadSaved(Dictionary{{"TKDataSourceDate", day(12)}, {"TKCurrencies", Dictionary{}}}));
    EXPECT_EQ(manager->lastCurrencyUpdateDate(), day(12));
}

TEST_F(TKCurrenciesManagerTests, FilesThatAreNoneChangeNothing) {
    registerDefaults();
    testing::internal::CaptureStderr();
    EXPECT_FALSE(manager->loadCurrenciesFromPath((dataFolder / "missing.plist").string()));
    EXPECT_THAT(testing::internal::GetCapturedStderr(),
                testing::AllOf(HasSubstr("could not load currencies, nothing there."), HasSubstr("error 1"),
                               HasSubstr("error 2")));
    testing::internal::CaptureStderr();
    EXPECT_FALSE(loadSaved(Dictionary{{"TKCurrencies", "x"}}));
    EXPECT_FALSE(loadSaved(Array{}));
    EXPECT_FALSE(loadSaved(Dictionary{{"TKCurrencies", Array{currencyRow("NOK", "1", true)}},
                                      {"TKVersionInfo", Dictionary{{"CreatorBuild", "2738"}}}}));
    testing::internal::GetCapturedStderr();
    EXPECT_THAT(codesOf(manager->activeCurrencies()), ElementsAre(u"BTC", u"EUR", u"USD"));
}

TEST_F(TKCurrenciesManagerTests, AnOldFileSaysWhichAreEnabledAndNothingOfRates) {
    registerDefaults();
    EXPECT_TRUE(loadSaved(Dictionary{
        {"TKCurrencies", Array{currencyRow("NOK", "1", true), currencyRow("EUR", "1", false), "x"}},
        {"TKDataSourceDate", day(20)},
        {"TKVersionInfo", Dictionary{{"CreatorBuild", "2700"}}}}));
    EXPECT_THAT(codesOf(manager->activeCurrencies()), ElementsAre(u"NOK"));
    EXPECT_EQ(manager->currencyWithCode(u"NOK")->rate(), u"10");
    EXPECT_EQ(manager->lastCurrencyUpdateDate(), day(9));
}

TEST_F(TKCurrenciesManagerTests, SavingAndLoadingKeepsEveryRow) {
    registerDefaults();
    manager->currencyWithCode(u"NOK")->setFavourite(true);
    const std::string path = (dataFolder / "Currencies.plist").string();
    ASSERT_TRUE(manager->saveCurrenciesToPath(path, Dictionary{{"CreatorBuild", "3000"}}));
    const auto other = TKCurrenciesManager::managerWithUnitsManager(units);
    ASSERT_TRUE(other->loadCurrenciesFromPath(path));
    EXPECT_THAT(codesOf(other->allCurrencies()), ElementsAre(u"BTC", u"EUR", u"NOK", u"USD"));
    EXPECT_THAT(codesOf(other->favouriteCurrencies()), ElementsAre(u"NOK"));
    EXPECT_EQ(other->lastCurrencyUpdateDate(), day(9));
    testing::internal::CaptureStderr();
    EXPECT_FALSE(manager->saveCurrenciesToPath((root / "no/such/file").string(), {}));
    EXPECT_THAT(testing::internal::GetCapturedStderr(), HasSubstr("Could not save currencies to file"));
}

TEST_F(TKCurrenciesManagerTests, RatesBecomeTheFactorsOfTheRowsOwnUnits) {
    registerDefaults();
    manager->completeLoading();
    TKCurrencyRatesToUnitsHelper::updateUnitRatesFromCurrencies(manager->allCurrencies());
    EXPECT_EQ(factorOf(u"EUR"), u"1.3333333333333333");
    EXPECT_EQ(factorOf(u"NOK"), u"0.1000000000000000");
    EXPECT_EQ(factorOf(u"USD"), u"1.0000000000000000")
        << "bitcoin has no unit, and leaves the dollar's alone";
    EXPECT_FALSE(manager->currencyWithCode(u"BTC")->hasOwnUnit());
    EXPECT_EQ(manager->currencyWithCode(u"EUR")->displayName(), u"euros");

    for (const char16_t* rate : {u"0", u"abc", u"1e300", u"1,5"})
        manager->currencyWithCode(u"EUR")->setRate(rate);
    TKCurrencyRatesToUnitsHelper::updateUnitRatesFromCurrencies(manager->allCurrencies());
    EXPECT_EQ(factorOf(u"EUR"), u"1.3333333333333333");
}

TEST_F(TKCurrenciesManagerTests, ChangesOfStateReachTheUnitsAndObservers) {
    registerDefaults();
    manager->completeLoading();
    std::vector<std::string> heard;
    const auto observation =
        platform::NotificationCenter::shared().addObserver("", nullptr, [&](const platform::Notification& n) {
            const auto rows = n.objectAs<TKCurrencyArray>();
            heard.push_back(n.name.substr(12) + " " + TBF::utf8(rows->front()->code()));
        });
    const auto krone = manager->currencyWithCode(u"NOK");
    krone->setEnabled(true);
    EXPECT_NE(units->tcUnitManager()->unitWithIdentifier(u"NOK"), nullptr);
    krone->setEnabled(true);
    krone->setEnabled(false);
    EXPECT_EQ(units->tcUnitManager()->unitWithIdentifier(u"NOK"), nullptr);
    krone->setFavourite(true);
    manager->currencyWithCode(u"BTC")->setEnabled(false);
    EXPECT_NE(units->tcUnitManager()->unitWithIdentifier(u"USD"), nullptr) << "it only stood in";
    EXPECT_THAT(heard, ElementsAre("EnabledStateChanged NOK", "EnabledStateChanged NOK",
                                   "FavouriteStateChanged NOK", "EnabledStateChanged BTC"));
}

TEST_F(TKCurrenciesManagerTests, AFetchChangesUsableRatesOfEnabledRows) {
    registerDefaults();
    manager->completeLoading();
    const Rates rates({{u"EUR", u"0.5"}, {u"NOK", u"11"}, {u"USD", u"2"}, {u"ZZZ", u"1"}, {u"BTC", u"abc"}});
    manager->updateRatesWithUpdater(rates);
    manager->updateRatesWithUpdater(Rates(Rates::ByCode{{u"EUR", std::nullopt}}));
    manager->updateRatesWithUpdater(Rates(Rates::ByCode{{u"EUR", u"0,7"}}));
    EXPECT_EQ(manager->currencyWithCode(u"EUR")->rate(), u"0.5");
    EXPECT_GT(manager->currencyWithCode(u"EUR")->sourceDate(), day(10));
    EXPECT_EQ(manager->currencyWithCode(u"NOK")->rate(), u"10");
    EXPECT_EQ(manager->currencyWithCode(u"USD")->rate(), u"1.00");
    EXPECT_EQ(manager->currencyWithCode(u"BTC")->rate(), u"0.00001");
    EXPECT_EQ(factorOf(u"EUR"), u"1.0") << "units wait for the announcement";
}

TEST_F(TKCurrenciesManagerTests, RatesMayBeReadWhileAFetchIsTakenIn) {
    registerDefaults();
    std::thread fetch([&] {
        for (int i = 0; i < 200; ++i)
            manager->updateRatesWithUpdater(Rates(Rates::ByCode{{u"EUR", i % 2 ? u"0.5" : u"0.25"}}));
    });
    for (int i = 0; i < 200; ++i)
        EXPECT_THAT(manager->currencyWithCode(u"EUR")->rate().value_or(u""),
                    testing::AnyOf(u"0.75", u"0.5", u"0.25"));
    fetch.join();
}

TEST_F(TKCurrenciesManagerTests, ALocaleCountsWhenEitherCharacterChanges) {
    registerDefaults();
    int posts = 0;
    const auto observation = platform::NotificationCenter::shared().addObserver(
        TKCurrenciesLocaleChanged, manager.get(), [&](const platform::Notification&) { ++posts; });
    manager->setLocale({u'.', u','});
    EXPECT_EQ(posts, 0);
    manager->setLocale({u'.', u' '});
    EXPECT_EQ(posts, 1);
    EXPECT_EQ(manager->currencyWithCode(u"EUR")->locale(), (TCSimpleLocale{u'.', u' '}));
}

// What "$" means, by the surroundings and by the currencies that are enabled.
TEST_F(TKCurrenciesManagerTests, ClashingNamesGoToTheUsersCurrency) {
    const struct {
        const char* locale;
        const char16_t* best;
        const char16_t* dollar;
        const char16_t* krona;
    } rows[] = {
        {"en_US", u"USD", u"USD", u"NOK"}, {"nb_NO", u"NOK", u"USD", u"NOK"},
        {"sv_SE", u"SEK", u"USD", u"SEK"}, {"en_CA", u"CAD", u"CAD", u"NOK"},
        {"en_AU", u"USD", u"USD", u"NOK"}, // the currency has no unit
    };
    PropertyList::Dictionary currencies = {
        {"USD", ContentTesting::currencyNames("$", "US dollar", "US dollars")},
        {"CAD", ContentTesting::currencyNames("$", "Canadian dollar", "Canadian dollars")},
        {"NOK", ContentTesting::currencyNames("kr", "Norwegian krone", "Norwegian kroner")},
        {"SEK", ContentTesting::currencyNames("kr", "Swedish krona", "Swedish kronor")}};
    write("names.plist", Dictionary{{"Currencies", currencies}});
    const auto all = std::make_shared<TKUnitsManager>();
    all->loadCurrenciesFromLocalizationFile((dataFolder / "names.plist").string());
    for (const auto& unit : all->allUnits())
        all->setUnitEnabled(unit, true);
    TKLocalizationManager localization(all, nullptr);
    for (const auto& row : rows) {
        platform::Locale::setIdentifier(row.locale);
        EXPECT_EQ(localization.bestCurrencyCodeForCurrentLocale(), row.best) << row.locale;
        localization.refreshCurrencyLocaleForCode(localization.bestCurrencyCodeForCurrentLocale());
        const auto codeOf = [&](const char16_t* name) {
            return all->tcUnitManager()->unitWithName(name)->currencyCode();
        };
        for (const char16_t* name : {u"$", u"Dollar", u"Dollars"})
            EXPECT_EQ(codeOf(name), row.dollar) << row.locale;
        for (const char16_t* name : {u"kr", u"Krona", u"Kronor"})
            EXPECT_EQ(codeOf(name), row.krona) << row.locale;
    }
}

} // namespace
