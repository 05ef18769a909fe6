#include "bootstrap.h"

#include "bundle/Bundle.h"
#include "environment/TCEnvironment.h"
#include "environment/TCEvaluator.h"
#include "environment/TKEnvironment.h"
#include "propertylist/PropertyList.h"
#include "runtime/Unicode.h"
#include "units/TCUnitCollection.h"

#include <filesystem>
#include <functional>
#include <string>

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

// The engine can be set up once in a process, so that each test has one of its own. True if all was well
// there.
bool inOwnProcess(const std::function<void()>& body) {
    const pid_t child = fork();
    if (child == 0) {
        body();
        _exit(testing::Test::HasFailure() ? 1 : 0);
    }
    int status = 0;
    return child > 0 && waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

std::string answer(std::u16string_view line) {
    return TBF::utf8(TCEvaluator::sharedEvaluator()->evaluateString(line).value_or(u"nothing"));
}

class BootstrapTests : public testing::Test {
protected:
    void SetUp() override { fs::create_directories(dataFolder); }
    void TearDown() override { fs::remove_all(dataFolder); }

    const fs::path dataFolder = fs::path(testing::TempDir()) / ("bootstrap-" + std::to_string(getpid()));
    const platform::Bundle bundle{"example.bootstrap", CONTENT_FOLDER};
};

TEST_F(BootstrapTests, TheContentOfTheBundleIsKnown) {
    EXPECT_TRUE(inOwnProcess([this] {
        setBootstrapChoices({"", dataFolder.string()});
        bootstrap(&bundle);
        EXPECT_EQ(answer(u"3 feet in metres"), "0.9144");
        EXPECT_EQ(answer(u"20% of 50"), "10");
        EXPECT_EQ(answer(u"1 km / 1 m"), "1000");
        EXPECT_NE(answer(u"1 EUR in USD"), "1");
        EXPECT_EQ(TKEnvironment::sharedEnvironment()->variablesManager()->variables().size(), 3u);
        EXPECT_TRUE(fs::is_empty(dataFolder)) << "a preview saves nothing";
        bootstrap(nullptr); // once is enough
        EXPECT_EQ(answer(u"3 feet in metres"), "0.9144");
    }));
}

TEST_F(BootstrapTests, ALanguageCanBeChosen) {
    EXPECT_TRUE(inOwnProcess([this] {
        setBootstrapChoices({"de", dataFolder.string()});
        bootstrap(&bundle);
        EXPECT_EQ(answer(u"20% von 50"), "10");
        EXPECT_EQ(answer(u"2 Stunden in Minuten"), "120");
    }));
}

// Otherwise a currency would have to borrow another one's unit.
TEST_F(BootstrapTests, EveryCurrencyOfTheContentHasARateAndAUnit) {
    EXPECT_TRUE(inOwnProcess([this] {
        setBootstrapChoices({"", dataFolder.string()});
        bootstrap(&bundle);
        const auto& currencies = *TKEnvironment::sharedEnvironment()->currenciesManager();
        EXPECT_GT(currencies.allCurrencies().size(), 30u);
        for (const auto& each : currencies.allCurrencies()) {
            const std::string code = TBF::utf8(each->code());
            EXPECT_TRUE(each->hasOwnUnit()) << code;
            EXPECT_TRUE(each->rate()) << code;
            EXPECT_TRUE(each->displayName()) << code;
            EXPECT_EQ(answer(u"1 " + each->code() + u" in " + each->code()), "1") << code;
        }
    }));
}

TEST_F(BootstrapTests, SavedValuesCount) {
    using Dictionary = platform::PropertyList::Dictionary;
    ASSERT_TRUE(
        platform::PropertyList(
            Dictionary{{"TKCurrencies", Dictionary{{"EUR", Dictionary{{"rate", "0.5"}, {"enabled", true}}}}}})
            .write((dataFolder / "Currencies.plist").string()));
    EXPECT_TRUE(inOwnProcess([this] {
        setBootstrapChoices({"en", dataFolder.string()});
        bootstrap(&bundle);
        EXPECT_EQ(answer(u"3 EUR in USD"), "6");
    }));
}

TEST_F(BootstrapTests, WithoutContentThereAreTheBuiltInLists) {
    for (const char* folder : {"", "/nowhere"}) {
        EXPECT_TRUE(inOwnProcess([folder] {
            const platform::Bundle empty{"example.empty", folder};
            testing::internal::CaptureStderr();
            bootstrap(*folder ? &empty : nullptr);
            EXPECT_EQ(testing::internal::GetCapturedStderr(),
                      *folder ? "There is no content at /nowhere\n" : "");
            EXPECT_EQ(answer(u"6 * 7"), "42");
            EXPECT_EQ(answer(u"20% of 50"), "10");
            EXPECT_EQ(TKEnvironment::sharedEnvironment(), nullptr);
        }));
    }
}

// No home, and a home that can't be written to.
TEST_F(BootstrapTests, AHostWithoutAPlaceForDataHasAnEngineAllTheSame) {
    for (const char* home : {"", "/proc/nowhere"}) {
        EXPECT_TRUE(inOwnProcess([this, home] {
            unsetenv("XDG_DATA_HOME");
            setenv("HOME", home, 1);
            setenv("TMPDIR", "/proc/nowhere", 1);
            bootstrap(&bundle);
            EXPECT_EQ(answer(u"3 feet in metres"), "0.9144");
        }));
    }
}

} // namespace
