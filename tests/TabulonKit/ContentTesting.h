#pragma once

// A small content bundle and a data folder in the temporary files, and an environment over them: two lengths,
// a time, three currencies, grammar in English and German.

#include "bundle/Bundle.h"
#include "bundle/LocalizedStrings.h"
#include "environment/TCBuiltins.h"
#include "environment/TCEnvironment.h"
#include "environment/TCEvaluator.h"
#include "environment/TCSettings.h"
#include "environment/TKEnvironment.h"
#include "environment/TKEnvironmentBuilder.h"
#include "environment/TKLocalization.h"
#include "locale/Locale.h"
#include "propertylist/PropertyList.h"
#include "runtime/Unicode.h"

#include <filesystem>
#include <fstream>
#include <map>
#include <string>
#include <string_view>

#include <gtest/gtest.h>
#include <unistd.h>

using platform::PropertyList;

namespace ContentTesting {

using Dictionary = PropertyList::Dictionary;
using Array = PropertyList::Array;

inline PropertyList names(const char* singular, const char* plural, const char* symbol) {
    return Dictionary{{"singular", singular}, {"plural", plural}, {"symbol", symbol}};
}

inline PropertyList currencyRow(const char* code, const char* rate, bool enabled) {
    return Dictionary{{"identifier", code}, {"rate", rate}, {"enabled", enabled}, {"favourite", false}};
}

inline PropertyList currencyNames(const char* symbol, const char* singular, const char* plural) {
    return Dictionary{{"names", Dictionary{{"symbol", symbol}, {"singular", singular}, {"plural", plural}}}};
}

inline PropertyList phrase(const char* regex, const char* operatorType) {
    return Dictionary{{"regex", regex}, {"operatorType", operatorType}};
}

inline PropertyList wordOperator(const char* word, const char* operatorType) {
    return Dictionary{{"word", word}, {"operatorType", operatorType}};
}

// By their path in the bundle.
inline std::map<std::string, PropertyList> lists() {
    return {
        {"Units.plist",
         Dictionary{{"Base Units", Dictionary{{"Length", "metre"}, {"Time", "second"}}},
                    {"Units", Dictionary{{"Length", Dictionary{{"metre", Dictionary{{"factor", "1"}}},
                                                               {"foot", Dictionary{{"factor", "0.3048"}}}}},
                                         {"Time", Dictionary{{"second", Dictionary{{"factor", "1"}}}}}}},
                    {"Preferences", Dictionary{}},
                    {"SIPrefixes", Array{}}}},
        {"Currencies.plist",
         Dictionary{{"TKCurrencies", Dictionary{{"USD", currencyRow("USD", "7", true)},
                                                {"EUR", currencyRow("EUR", "0.8", true)},
                                                {"NOK", currencyRow("NOK", "10", false)}}}}},
        {"en.lproj/UnitLocalization.plist",
         Dictionary{{"Names", Dictionary{{"metre", names("metre", "metres", "m")},
                                         {"foot", names("foot", "feet", "ft")},
                                         {"second", names("second", "seconds", "s")}}},
                    {"ConversionOperators", Array{"in", "as", "to"}}}},
        {"de.lproj/UnitLocalization.plist",
         Dictionary{{"Names", Dictionary{{"metre", names("Meter", "Meter", "m")}}},
                    {"ConversionOperators", Array{"zu", "in"}}}},
        {"en.lproj/CurrencyLocalization.plist",
         Dictionary{{"Currencies", Dictionary{{"USD", currencyNames("$", "dollar", "dollars")},
                                              {"EUR", currencyNames("€", "euro", "euros")},
                                              {"NOK", currencyNames("kr", "krone", "kroner")}}}}},
        {"en.lproj/PercentageOperators.plist",
         Array{phrase("%\\s*of", "PercentOf"), phrase("%\\s*off", "PercentOff")}},
        {"de.lproj/PercentageOperators.plist",
         Array{phrase("%\\s*von", "PercentOf"), phrase("%\\s*(", "PercentOff"), phrase("x", "Nothing")}},
        {"en.lproj/WordOperators.plist",
         Array{wordOperator("plus", "Add"), wordOperator("minus", "Subtract")}},
        {"de.lproj/WordOperators.plist",
         Array{wordOperator("mal", "Multiply"), wordOperator("hoch", "Power")}},
        {"en.lproj/Localizable.plist", Dictionary{{"line", "line"}, {"Default Variable Name", "variable"}}},
        {"de.lproj/Localizable.plist",
         Dictionary{{"line", "zeile"}, {"Error: Divide by Zero", "Fehler: Division durch null"}}},
    };
}

// Each test has folders of its own, and leaves the process with the built-in environment.
class Test : public testing::Test {
protected:
    void SetUp() override {
        platform::Locale::setIdentifier("en_US");
        if (!TCSettings::isSet()) TCSettings::make()->set();
        std::filesystem::remove_all(root);
        std::filesystem::create_directories(dataFolder);
        std::filesystem::create_directories(content / "en.lproj");
        std::filesystem::create_directories(content / "de.lproj");
        TCBuiltins::environment()->set();
        for (const auto& [path, list] : lists())
            std::ofstream(content / path, std::ios::binary) << list.text().value();
    }

    void TearDown() override {
        environment = nullptr;
        platform::setLocalizedStrings({});
        platform::Locale::setIdentifier(std::nullopt);
        TCBuiltins::environment()->set();
        std::filesystem::remove_all(root);
    }

    // One that never fetches anything, loaded.
    void load(const std::string& language = {}) {
        build();
        environment->loadFromBundleAtPath(content.string(), language);
        environment->completeLoading();
    }

    void build() {
        TKEnvironmentBuilder builder;
        builder.setDataSourceDirectoryPath(dataFolder.string());
        builder.setPersistanceInfoDictionary(Dictionary{{"CreatorVersion", "1.2"}});
        builder.setStocksMaker(stocksMaker);
        environment = builder.build();
        environment->setUpdatesValuesFromWeb(false);
    }

    void write(const char* file, const PropertyList& list) const { writeBytes(file, list.text().value()); }
    void writeBytes(const char* file, std::string_view bytes) const {
        std::ofstream(dataFolder / file, std::ios::binary) << bytes;
    }
    PropertyList saved(const char* file) const {
        return PropertyList::read((dataFolder / file).string()).value_or(PropertyList());
    }

    // What a line comes to, as plain digits.
    static std::string answer(std::u16string_view line) {
        return TBF::utf8(TCEvaluator::sharedEvaluator()->evaluateString(line).value_or(u"nothing"));
    }

    const std::filesystem::path root =
        std::filesystem::path(testing::TempDir()) / ("kit-tests-" + std::to_string(getpid()));
    const std::filesystem::path content = root / "TBContent.bundle";
    const std::filesystem::path dataFolder = root / "quicklook-data";
    TKStocksMaker stocksMaker;
    std::shared_ptr<TKEnvironment> environment;
};

} // namespace ContentTesting
