#include "environment/TKEnvironment.h"

#include "ContentTesting.h"
#include "RunLoopTesting.h"
#include "environment/TKFolders.h"
#include "environment/TKLocalizationManager.h"
#include "results/TCResult.h"
#include "runtime/TBFLog.h"
#include "units/TCUnit.h"
#include "units/TCUnitCollection.h"
#include "units/TKUnitsManager.h"
#include "variables/TCVariable.h"

#include <gmock/gmock.h>

#include <csignal>
#include <cstdlib>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>

namespace {

using ContentTesting::currencyRow;
using ContentTesting::Dictionary;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace fs = std::filesystem;

// Stocks as far as an environment knows them; says what it was asked.
struct RecordedStocks final : TKStocksLoading {
    std::vector<std::string>& calls;
    bool updating = false;

    explicit RecordedStocks(std::vector<std::string>& recorded)
        : calls(recorded) {}
    bool loadFromPath(const std::string& path, bool*) override {
        calls.push_back("load " + fs::path(path).parent_path().filename().string());
        return true;
    }
    bool saveToPath(const std::string& path, const PropertyList&) const override {
        calls.push_back("save " + fs::path(path).filename().string());
        return true;
    }
    void setAutomaticallyDownloadsStockPrices(bool automatically) override {
        calls.push_back(automatically ? "download" : "no download");
    }
    void setLocale(TCSimpleLocale) override { calls.push_back("locale"); }
    bool stockUpdateInProgress() const override { return updating; }
};

struct RecordedDelegate final : TKEnvironmentDelegate {
    std::vector<std::string> heard;
    void environmentDidLoadBundle(const platform::Bundle&) override { heard.push_back("loaded"); }
    void environmentVariablesWereModified(const std::vector<std::shared_ptr<TCVariable>>& all) override {
        for (const auto& each : all)
            heard.push_back("variable " + TBF::utf8(each->name().value_or(u"")));
    }
    void environmentStocksWereModified(const Stocks&) override { heard.push_back("stocks"); }
    void environmentDidUpdateStockValues() override { heard.push_back("prices"); }
    void environmentDidUpdateCurrencyValues() override { heard.push_back("rates"); }
    void environmentCurrenciesWereModified(const TKCurrencyArray& all) override {
        for (const auto& each : all)
            heard.push_back("currency " + TBF::utf8(each->code()));
    }
};

class TKEnvironmentTests : public ContentTesting::Test {
protected:
    std::string bytesOf(const char* name) const {
        std::ifstream file(dataFolder / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    std::vector<std::string> namesInDataFolder() const {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(dataFolder))
            names.push_back(entry.path().filename().string());
        return names;
    }
    void post(std::string_view name, std::shared_ptr<void> object = nullptr) {
        platform::NotificationCenter::shared().post(name, std::move(object));
        RunLoopTesting::runFor(0);
    }
};

TEST_F(TKEnvironmentTests, ALoadedBundleIsWhatTheSharedEvaluatorKnows) {
    load();
    EXPECT_TRUE(environment->bundleLoaded());
    EXPECT_EQ(answer(u"1 foot in metres"), "0.3048");
    EXPECT_EQ(answer(u"1 EUR in USD"), "1.25");
    EXPECT_EQ(answer(u"2k + 1"), "2001");
    EXPECT_EQ(answer(u"5 plus 3"), "8");
    EXPECT_EQ(answer(u"10% of 50"), "5");
    EXPECT_EQ(TCEnvironment::current()->unitManager(), environment->unitsManager()->tcUnitManager());
    EXPECT_EQ(TCEnvironment::current()->variables(), environment->variablesManager()->variableList());
    environment->completeLoading(); // once more, at once
}

TEST_F(TKEnvironmentTests, OnlyEnabledCurrenciesAreUnitsAndTheMasterIsOne) {
    load();
    const auto& enabled = *environment->unitsManager()->tcUnitManager();
    EXPECT_NE(enabled.unitWithIdentifier(u"EUR"), nullptr);
    EXPECT_EQ(enabled.unitWithIdentifier(u"NOK"), nullptr);
    EXPECT_EQ(environment->currenciesManager()->currencyWithCode(u"USD")->rate(), u"1.00");
}

TEST_F(TKEnvironmentTests, SavedValuesLieOverThoseOfTheContent) {
    write("Currencies.plist",
          Dictionary{{"TKCurrencies", Dictionary{{"EUR", currencyRow("EUR", "0.5", true)},
                                                 {"USD", currencyRow("USD", "3", true)},
                                                 {"NOK", currencyRow("NOK", "10", true)},
                                                 {"XYZ", currencyRow("XYZ", "1", true)}}}});
    write("Variables.plist",
          Dictionary{{"TKVariables", ContentTesting::Array{Dictionary{{"name", "rent"}, {"value", "950"}}}}});
    load();
    EXPECT_EQ(answer(u"1 EUR in USD"), "2");
    EXPECT_EQ(answer(u"10 NOK in USD"), "1");
    EXPECT_EQ(answer(u"rent * 2"), "1900");
    EXPECT_EQ(environment->variablesManager()->variables().size(), 1u) << "no defaults beside saved ones";
    EXPECT_EQ(environment->currenciesManager()->allCurrencies().size(), 3u);
}

TEST_F(TKEnvironmentTests, DamagedFilesArePassedOverAndKeptAsideWhenSaved) {
    writeBytes("Variables.plist", "<?xml version=\"1.0\"?><plist><dict><key>TKVar");
    writeBytes("Currencies.plist", "\x01\x02");
    testing::internal::CaptureStderr();
    load();
    EXPECT_THAT(testing::internal::GetCapturedStderr(),
                testing::AllOf(HasSubstr("Variables"), HasSubstr("Invalid currency data store")));
    EXPECT_EQ(answer(u"1 EUR in USD"), "1.25");
    EXPECT_EQ(answer(u"1k"), "1000");

    testing::internal::CaptureStderr();
    environment->variablesManager()->addVariableNamed(u"mine");
    RunLoopTesting::runFor(0);
    EXPECT_THAT(testing::internal::GetCapturedStderr(), HasSubstr(".damaged"));
    EXPECT_EQ(saved("Variables.plist")["TKVariables"].array().size(), 4u);
    EXPECT_TRUE(fs::exists(dataFolder / "Variables.plist.damaged"));
    EXPECT_TRUE(fs::exists(dataFolder / "Currencies.plist")) << "nothing to save: it stays where it is";
}

// A file whose bytes can't be had may be all that the user has.
TEST_F(TKEnvironmentTests, AFileThatCannotBeReadIsNotSavedOver) {
    const auto variable = [](const char* name) {
        return Dictionary{
            {"TKVariables", ContentTesting::Array{Dictionary{{"name", name}, {"value", "950"}}}}};
    };
    write("Variables.plist", variable("rent"));
    const fs::path path = dataFolder / "Variables.plist";
    build();
    environment->setStocksEnabled(false);
    environment->setCurrenciesEnabled(false);
    fs::rename(path, root / "kept");
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0); // opens, but there are no bytes of a file
    environment->loadFromBundleAtPath(content.string());
    environment->completeLoading();
    fs::rename(root / "kept", path);

    testing::internal::CaptureStderr();
    environment->variablesManager()->addVariableNamed(u"mine");
    RunLoopTesting::runFor(0);
    EXPECT_THAT(testing::internal::GetCapturedStderr(), HasSubstr("couldn't be read"));
    EXPECT_FALSE(environment->saveToDirectory(dataFolder.string()));
    EXPECT_EQ(saved("Variables.plist")["TKVariables"].at(0)["name"].string(), "rent");
    EXPECT_THAT(namesInDataFolder(), ElementsAre("Variables.plist"));

    environment->loadFromBundleAtPath(content.string());
    environment->completeLoading();
    environment->variablesManager()->addVariableNamed(u"mine");
    RunLoopTesting::runFor(0);
    EXPECT_EQ(saved("Variables.plist")["TKVariables"].array().size(), 2u) << "it could be read this time";
}

TEST_F(TKEnvironmentTests, ADamagedFileStaysWhereItIsUntilTheNewOneIsThere) {
    writeBytes("Variables.plist", "damaged");
    load();
    rlimit bound = {};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &bound), 0);
    const rlimit tooSmall = {32, bound.rlim_max};
    const auto oldHandler = std::signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &tooSmall);
    EXPECT_FALSE(environment->saveToDirectory(dataFolder.string()));
    setrlimit(RLIMIT_FSIZE, &bound);
    std::signal(SIGXFSZ, oldHandler);
    EXPECT_EQ(bytesOf("Variables.plist"), "damaged");
    EXPECT_FALSE(fs::exists(dataFolder / "Variables.plist.damaged"));

    writeBytes("Variables.plist.damaged", "older");
    EXPECT_TRUE(environment->saveToDirectory(dataFolder.string()));
    EXPECT_EQ(saved("Variables.plist")["TKVariables"].array().size(), 3u);
    EXPECT_EQ(bytesOf("Variables.plist.damaged"), "older");
    EXPECT_EQ(bytesOf("Variables.plist.damaged-2"), "damaged");
}

TEST_F(TKEnvironmentTests, WhatALinkLeadsToIsKeptWhenItIsDamaged) {
    std::ofstream(root / "elsewhere") << "damaged";
    fs::create_symlink(root / "elsewhere", dataFolder / "Variables.plist");
    load();
    EXPECT_TRUE(environment->saveToDirectory(dataFolder.string()));
    EXPECT_TRUE(fs::is_symlink(dataFolder / "Variables.plist"));
    EXPECT_EQ(saved("Variables.plist")["TKVariables"].array().size(), 3u);
    EXPECT_EQ(bytesOf("Variables.plist.damaged"), "damaged");
}

TEST_F(TKEnvironmentTests, WhatIsMissingCostsOnlyItself) {
    fs::remove_all(content / "en.lproj");
    fs::remove(content / "Units.plist");
    fs::remove(content / "Currencies.plist");
    TBFErrorLogSetEnabled(1);
    testing::internal::CaptureStderr();
    load();
    TBFErrorLogSetEnabled(0);
    EXPECT_THAT(testing::internal::GetCapturedStderr(),
                testing::AllOf(HasSubstr("No currencies localization file found"),
                               HasSubstr(content.string() + ": Units.plist is missing\n")));
    EXPECT_EQ(answer(u"1k + 2"), "1002");
    const auto missing = [this](const char* name) {
        return content.string() + ": " + name + ".plist is missing";
    };
    EXPECT_THAT(environment->contentFailures(),
                testing::UnorderedElementsAre(missing("Localizable"), missing("Units"),
                                              missing("UnitLocalization"), missing("Currencies"),
                                              missing("CurrencyLocalization"), missing("PercentageOperators"),
                                              missing("WordOperators")));

    testing::internal::CaptureStderr();
    build();
    environment->loadFromBundleAtPath((root / "nowhere").string());
    environment->completeLoading();
    EXPECT_THAT(testing::internal::GetCapturedStderr(), HasSubstr("nowhere"));
    EXPECT_EQ(environment->contentFailures().size(), 1u);
    EXPECT_EQ(answer(u"1 + 2"), "3");
}

TEST_F(TKEnvironmentTests, DamagedContentIsNamedOnceAndLoggedUnlessTheHostTells) {
    std::ofstream(content / "en.lproj" / "UnitLocalization.plist") << "x"; // two managers read it
    for (const bool isLogging : {true, false}) {
        testing::internal::CaptureStderr();
        build();
        environment->setLogsContentFailures(isLogging);
        environment->loadFromBundleAtPath(content.string());
        environment->completeLoading();
        const std::string said = testing::internal::GetCapturedStderr();
        EXPECT_THAT(environment->contentFailures(),
                    testing::Contains(HasSubstr("UnitLocalization.plist: line 1")).Times(1));
        EXPECT_EQ(said.find("UnitLocalization.plist: line 1") != said.npos, isLogging) << said;
    }
}

TEST_F(TKEnvironmentTests, WithoutADataFolderNothingIsReadOrSaved) {
    TKEnvironmentBuilder builder;
    environment = builder.build();
    environment->loadFromBundleAtPath(content.string());
    environment->completeLoading();
    environment->variablesManager()->addVariableNamed(u"mine");
    RunLoopTesting::runFor(0);
    EXPECT_EQ(answer(u"mine + 1k"), "1001");
}

TEST_F(TKEnvironmentTests, ALanguageHasItsWordsWithEnglishBehindThem) {
    testing::internal::CaptureStderr();
    load("de");
    EXPECT_THAT(
        testing::internal::GetCapturedStderr(),
        testing::AllOf(HasSubstr("Encountered an error parsing"), HasSubstr("Nothing"), HasSubstr("hoch")));
    EXPECT_EQ(answer(u"10% von 50"), "5");
    EXPECT_EQ(answer(u"10% of 50"), "5");
    EXPECT_EQ(answer(u"6 mal 7"), "42");
    EXPECT_EQ(answer(u"1 foot zu Meter"), "0.3048") << "the foot has its English name";
    EXPECT_EQ(answer(u"1 EUR zu USD"), "1.25") << "no German names of currencies: those of English";
    EXPECT_EQ(environment->localizationManager()->localizedConversionOperatorString(), u"zu");
    EXPECT_EQ(platform::localizedString(u"line"), u"zeile");
    EXPECT_EQ(platform::localizedString(u"Default Variable Name"), u"variable");
    EXPECT_EQ(errorStringForTCResultErrorType(TCErrorTypeDivideByZero), u"Fehler: Division durch null");
}

// Also for a language that the content doesn't have, and for the user's own.
TEST_F(TKEnvironmentTests, AMissingLanguageFallsBackToThePreferredOneAndThenToEnglish) {
    const struct {
        const char* locale;
        const char* wanted;
        const char16_t* word;
    } rows[] = {
        {"en_US", "fr", u"line"},
        {"de_DE", "fr", u"zeile"},
        {"de_DE", "", u"zeile"},
        {"ja_JP", "", u"line"},
    };
    for (const auto& row : rows) {
        platform::Locale::setIdentifier(row.locale);
        testing::internal::CaptureStderr();
        load(row.wanted);
        testing::internal::GetCapturedStderr();
        EXPECT_EQ(platform::localizedString(u"line"), row.word) << row.locale << ' ' << row.wanted;
        EXPECT_EQ(answer(u"1 metre"), "1") << row.locale << ' ' << row.wanted;
    }
}

TEST_F(TKEnvironmentTests, ChangesAreSavedAndToldOnTheMainQueue) {
    RecordedDelegate delegate;
    build();
    environment->setDelegate(&delegate);
    environment->loadFromBundleAtPath(content.string());
    environment->completeLoading();
    EXPECT_THAT(delegate.heard, IsEmpty());
    RunLoopTesting::runFor(0);
    EXPECT_THAT(delegate.heard, ElementsAre("loaded"));
    EXPECT_FALSE(fs::exists(dataFolder / "Variables.plist")) << "loading saves nothing";

    delegate.heard.clear();
    const auto& variables = *environment->variablesManager();
    environment->variablesManager()->addVariableNamed(u"rent");
    variables.variableNamed(u"rent")->setValue(u"950");
    RunLoopTesting::runFor(0);
    EXPECT_THAT(delegate.heard, ElementsAre("variable rent", "variable rent"));
    EXPECT_EQ(saved("Variables.plist")["TKVariables"].at(3)["value"].string(), "950");
    EXPECT_EQ(saved("Variables.plist")["TKVersionInfo"]["CreatorVersion"].string(), "1.2");

    delegate.heard.clear();
    environment->currenciesManager()->currencyWithCode(u"NOK")->setEnabled(true);
    RunLoopTesting::runFor(0);
    EXPECT_THAT(delegate.heard, ElementsAre("currency NOK"));
    EXPECT_EQ(saved("Currencies.plist")["TKCurrencies"]["NOK"]["enabled"].boolean(), true);
    environment->setDelegate(nullptr);
}

// A host may post these names itself.
TEST_F(TKEnvironmentTests, NewsWithoutAnObjectAreSavedAndNotTold) {
    RecordedDelegate delegate;
    load();
    RunLoopTesting::runFor(0);
    environment->setDelegate(&delegate);
    for (const std::string_view name : {TKVariableWasModified, TKVariableWasMoved, TKVariableWasRemoved,
                                        TKVariableWasAdded, TKStocksWereAdded, TKStocksWereRemoved,
                                        TKCurrenciesEnabledStateChanged, TKCurrenciesFavouriteStateChanged})
        post(name);
    EXPECT_THAT(delegate.heard, IsEmpty());
    post(TKCurrenciesEnabledStateChanged, std::make_shared<TKCurrencyArray>());
    environment->setDelegate(nullptr);
}

TEST_F(TKEnvironmentTests, NewRatesReachTheUnitsOnceTheyAreAnnounced) {
    load();
    environment->currenciesManager()->currencyWithCode(u"EUR")->setRate(u"0.25");
    EXPECT_EQ(answer(u"1 EUR in USD"), "1.25");
    post(TKCurrenciesSuccessfullyUpdated, environment->currenciesManager());
    EXPECT_EQ(answer(u"1 EUR in USD"), "4");
    EXPECT_EQ(saved("Currencies.plist")["TKCurrencies"]["EUR"]["rate"].string(), "0.25");
}

TEST_F(TKEnvironmentTests, AFavouriteIsSavedLaterAndNotLostWhenAnotherBundleComes) {
    load();
    environment->currenciesManager()->currencyWithCode(u"EUR")->setFavourite(true);
    RunLoopTesting::runFor(0.01);
    EXPECT_FALSE(fs::exists(dataFolder / "Currencies.plist"));
    environment->loadFromBundleAtPath(content.string());
    environment->completeLoading();
    EXPECT_EQ(saved("Currencies.plist")["TKCurrencies"]["EUR"]["favourite"].boolean(), true);
    EXPECT_TRUE(environment->currenciesManager()->currencyWithCode(u"EUR")->favourite());
}

TEST_F(TKEnvironmentTests, AfterASecondBundleHandlersRunOnce) {
    RecordedDelegate delegate;
    load();
    environment->loadFromBundleAtPath(content.string());
    environment->completeLoading();
    RunLoopTesting::runFor(0);
    environment->setDelegate(&delegate);
    environment->variablesManager()->addVariableNamed(u"rent");
    RunLoopTesting::runFor(0);
    EXPECT_THAT(delegate.heard, ElementsAre("variable rent"));
    environment->setDelegate(nullptr);
}

TEST_F(TKEnvironmentTests, StocksComeFromTheDataFolderOrElseFromTheContent) {
    std::vector<std::string> calls;
    std::shared_ptr<RecordedStocks> stocks;
    stocksMaker = [&](const auto&, const auto&) { return stocks = std::make_shared<RecordedStocks>(calls); };
    load();
    EXPECT_THAT(calls, ElementsAre("no download")) << "the content has none";

    ASSERT_TRUE(PropertyList(Dictionary{}).write((content / "Stocks.plist").string()));
    calls.clear();
    load();
    EXPECT_THAT(calls, ElementsAre("no download", "load TBContent.bundle"));

    write("Stocks.plist", Dictionary{});
    calls.clear();
    load();
    EXPECT_THAT(calls, ElementsAre("no download", "load quicklook-data"));

    calls.clear();
    environment->setLocale({u',', u'.'});
    environment->setLocale({u',', u'.'});
    post(TKStocksWereAdded);
    post(TKStocksSuccessfulyUpdated);
    EXPECT_THAT(calls, ElementsAre("locale", "save Stocks.plist", "save Stocks.plist"));

    stocks->updating = true;
    environment->variablesManager()->variableNamed(u"k")->setValue(u"5");
    RunLoopTesting::runFor(0);
    EXPECT_FALSE(fs::exists(dataFolder / "Variables.plist")) << "a price isn't the user's change";
}

TEST_F(TKEnvironmentTests, UnitsCanBeSwitchedAndPartsLeftOut) {
    load();
    environment->setUnitsEnabled(false);
    EXPECT_EQ(environment->unitsManager()->tcUnitManager()->unitWithName(u"metre"), nullptr);
    EXPECT_NE(environment->unitsManager()->tcUnitManager()->unitWithName(u"euro"), nullptr);
    environment->setUnitsEnabled(true);
    EXPECT_NE(environment->unitsManager()->tcUnitManager()->unitWithName(u"metre"), nullptr);

    build();
    environment->setCurrenciesEnabled(false);
    environment->setVariablesEnabled(false);
    environment->loadFromBundleAtPath(content.string());
    environment->completeLoading();
    EXPECT_EQ(environment->unitsManager()->unitWithIdentifier(u"EUR"), nullptr);
    EXPECT_THAT(environment->variablesManager()->variables(), IsEmpty());
}

TEST_F(TKEnvironmentTests, ALocaleRewritesValues) {
    load();
    environment->variablesManager()->addVariableNamed(u"rate");
    environment->variablesManager()->variableNamed(u"rate")->setValue(u"1.5");
    environment->setLocale({u',', u'.'});
    EXPECT_EQ(environment->variablesManager()->variableNamed(u"rate")->value(), u"1,5");
    EXPECT_EQ(environment->currenciesManager()->currencyWithCode(u"EUR")->localizedRate(), u"0,800");
}

TEST_F(TKEnvironmentTests, WhatWasSavedComesBackAsItWas) {
    load();
    environment->variablesManager()->addVariableNamed(u"tax");
    environment->variablesManager()->variableNamed(u"tax")->setDelocalizedValue(u"8.25", 1, nullptr);
    environment->currenciesManager()->currencyWithCode(u"EUR")->setRate(u"0.123456789012345678");
    ASSERT_TRUE(environment->saveToDirectory(dataFolder.string()));
    load();
    EXPECT_EQ(answer(u"200 + tax"), "216.5");
    EXPECT_EQ(environment->currenciesManager()->currencyWithCode(u"EUR")->rate(), u"0.123456789012345678");
    EXPECT_FALSE(environment->saveToDirectory((root / "no such folder").string()));
}

// A process that is killed while it saves leaves the file of before or the one of after.
TEST_F(TKEnvironmentTests, AKilledSaveLeavesAWholeFile) {
    load();
    for (int i = 0; i < 200; ++i)
        environment->variablesManager()->addVariableNamed(u"v" + TBF::utf16(std::to_string(i)));
    ASSERT_TRUE(environment->saveToDirectory(dataFolder.string()));
    for (int round = 0; round < 15; ++round) {
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            while (true)
                environment->variablesManager()->saveToPath((dataFolder / "Variables.plist").string(),
                                                            PropertyList());
        }
        usleep(static_cast<useconds_t>(1000 + 700 * round));
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        ASSERT_EQ(saved("Variables.plist")["TKVariables"].array().size(), 203u) << round;
    }
}

TEST_F(TKEnvironmentTests, LoadingAndEvaluatingInTurnIsSafe) {
    for (int i = 0; i < 10; ++i) {
        load(i % 2 == 0 ? "en" : "de");
        environment->set();
        EXPECT_EQ(answer(u"3 feet in m"), "0.9144");
    }
    EXPECT_EQ(TKEnvironment::sharedEnvironment(), environment);
}

TEST(TKEnvironmentDeathTests, LoadingNeedsSettings) {
    if (TCSettings::isSet()) GTEST_SKIP() << "settings are set for the process";
    EXPECT_DEATH(TKEnvironmentBuilder().build()->loadFromBundleAtPath("/nowhere"), "TCSettings not set");
    EXPECT_DEATH(TKEnvironmentBuilder().build()->variablesDataSourcePath(),
                 "Nil directory path for Variables.plist");
}

class TKFoldersTests : public testing::Test {
protected:
    void SetUp() override { fs::create_directories(root); }
    void TearDown() override {
        unsetenv("XDG_DATA_HOME");
        unsetenv("TMPDIR");
        fs::remove_all(root);
    }
    const fs::path root = fs::path(testing::TempDir()) / ("folders-tests-" + std::to_string(getpid()));
};

TEST_F(TKFoldersTests, TheFolderIsMadeInTheUsersDataHome) {
    setenv("XDG_DATA_HOME", (root / "data").c_str(), 1);
    EXPECT_EQ(TKApplicationSupportDirectory(), (root / "data/Tabulon").string());
    EXPECT_TRUE(fs::is_directory(root / "data/Tabulon"));
    EXPECT_EQ(TKApplicationSupportDirectory(), (root / "data/Tabulon").string());
}

TEST_F(TKFoldersTests, ALinkToNothingGivesWay) {
    setenv("XDG_DATA_HOME", root.c_str(), 1);
    fs::create_symlink(root / "gone", root / "Tabulon");
    EXPECT_EQ(TKApplicationSupportDirectory(), (root / "Tabulon").string());
    EXPECT_FALSE(fs::is_symlink(root / "Tabulon"));
    EXPECT_TRUE(fs::is_directory(root / "Tabulon"));
}

TEST_F(TKFoldersTests, AFolderThatCannotBeMadeIsNoReasonToStop) {
    std::ofstream(root / "file") << "x";
    setenv("XDG_DATA_HOME", (root / "file").c_str(), 1);
    TBFErrorLogSetEnabled(1);
    testing::internal::CaptureStderr();
    EXPECT_EQ(TKApplicationSupportDirectory(), (root / "file/Tabulon").string());
    EXPECT_THAT(testing::internal::GetCapturedStderr(),
                HasSubstr("Error creating application support directory"));
    TBFErrorLogSetEnabled(0);
}

TEST_F(TKFoldersTests, WithoutAHomeOnlyAPrivateTemporaryFolderWillDo) {
    const char* const home = std::getenv("HOME");
    const std::string oldHome = home ? home : "";
    unsetenv("XDG_DATA_HOME");
    unsetenv("HOME");
    setenv("TMPDIR", root.c_str(), 1);
    EXPECT_EQ(TKApplicationSupportDirectory(), (root / "Tabulon").string());
    chmod((root / "Tabulon").c_str(), 0777);
    testing::internal::CaptureStderr();
    EXPECT_EQ(TKApplicationSupportDirectory(), std::nullopt);
    testing::internal::GetCapturedStderr();
    if (home) setenv("HOME", oldHome.c_str(), 1);
}

} // namespace
