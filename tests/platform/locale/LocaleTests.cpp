#include "locale/Locale.h"

#include <cstdlib>
#include <map>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace platform {
namespace {

using testing::ElementsAre;

constexpr const char* variables[] = {"LANGUAGE", "LC_ALL", "LC_MESSAGES", "LC_MONETARY", "LANG"};

class LocaleTests : public testing::Test {
protected:
    LocaleTests() {
        for (const char* const name : variables)
            if (const char* const value = std::getenv(name)) before[name] = value;
    }
    ~LocaleTests() override { set(before); }

    static void set(const std::map<std::string, std::string>& values) {
        for (const char* const name : variables)
            unsetenv(name);
        for (const auto& [name, value] : values)
            setenv(name.c_str(), value.c_str(), 1);
        Locale::setIdentifier(std::nullopt);
    }

    std::map<std::string, std::string> before;
};

TEST_F(LocaleTests, TheVariablesSayTheLanguages) {
    struct Case {
        std::map<std::string, std::string> variables;
        const char* identifier;
        const char* money;
        std::vector<std::string> languages;
    };
    const std::vector<std::string> american{"en-US", "en_US", "en-Latn", "en"};
    for (const Case& row : {
             Case{{}, "en_US", "en_US", american},
             Case{{{"LANG", "C"}}, "en_US", "en_US", american},
             Case{{{"LANG", "de_DE.UTF-8"}, {"LC_ALL", "POSIX"}}, "en_US", "en_US", american},
             Case{{{"LANG", "C.UTF-8"}, {"LANGUAGE", "fr"}}, "en_US", "en_US", american},
             Case{{{"LANG", "de_CH.UTF-8@euro"}}, "de_CH", "de_CH", {"de-CH", "de_CH", "de-Latn", "de"}},
             Case{{{"LANG", "de_CH"}, {"LC_MESSAGES", "en_US.UTF-8"}}, "en_US", "de_CH", american},
             Case{{{"LANG", "en_US"}, {"LC_MONETARY", "ja_JP"}}, "en_US", "ja_JP", american},
             Case{{{"LANG", "en_US"}, {"LANGUAGE", "fr:de"}},
                  "en_US",
                  "en_US",
                  {"fr-Latn", "fr", "de-Latn", "de", "en-US", "en_US", "en-Latn", "en"}},
             Case{{{"LANG", "zh_TW"}}, "zh_TW", "zh_TW", {"zh-TW", "zh_TW", "zh-Hant", "zh"}},
         }) {
        set(row.variables);
        const Locale locale = Locale::current();
        EXPECT_EQ(locale.identifier(), row.identifier);
        EXPECT_EQ(locale.moneyIdentifier(), row.money);
        EXPECT_EQ(locale.preferredLanguages(), row.languages) << row.identifier;
    }
}

TEST_F(LocaleTests, AnIdentifierInTheirPlace) {
    set({{"LANG", "de_DE"}});
    Locale::setIdentifier("fr_FR");
    EXPECT_EQ(Locale::current().identifier(), "fr_FR");
    EXPECT_EQ(Locale::current().currencyCode(), "EUR");
    Locale::setIdentifier(std::nullopt);
    EXPECT_EQ(Locale::current().identifier(), "de_DE");
}

TEST_F(LocaleTests, Money) {
    EXPECT_EQ(Locale("en_US").currencyCode(), "USD");
    EXPECT_EQ(Locale("ja_JP").currencyCode(), "JPY");
    EXPECT_FALSE(Locale("en").currencyCode());
    EXPECT_FALSE(Locale("no locale at all").currencyCode());
    EXPECT_EQ(Locale("en_US").currencySymbol("USD"), "$");
    EXPECT_EQ(Locale("en_CA").currencySymbol("USD"), "US$");
    EXPECT_EQ(Locale("en_US").currencySymbol("EUR"), "€");
    EXPECT_EQ(Locale("en_US").currencySymbol("XQX"), "XQX");
    EXPECT_EQ(Locale("en_US").currencySymbol("no code"), "no code");
}

} // namespace
} // namespace platform
