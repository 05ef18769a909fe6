#include "environment/TCEnvironment.h"

#include "environment/TCBuiltins.h"
#include "environment/TCFunctionList.h"
#include "environment/TCSettings.h"
#include "environment/TCTrigonometryMode.h"
#include "environment/TCWordOperatorList.h"
#include "names/Namespace.h"
#include "runtime/Settings.h"
#include "variables/TCVariableList.h"

#include <gtest/gtest.h>

#include <memory>
#include <span>
#include <string_view>

namespace {

TEST(TCEnvironment, ASealedOneTakesNoChanges) {
    const auto environment = TCEnvironment::make();
    EXPECT_FALSE(environment->isSet());
    environment->setLocale(TCSimpleLocale::europeanLocale());
    environment->setIsSet(true);
    environment->setLocale(TCSimpleLocale::standardLocale());
    EXPECT_EQ(environment->locale(), TCSimpleLocale::europeanLocale());
    environment->setIsSet(false);
    environment->setLocale(TCSimpleLocale::standardLocale());
    EXPECT_EQ(environment->locale(), TCSimpleLocale::standardLocale());
}

TEST(TCEnvironment, TheLastOneSetIsCurrent) {
    const auto before = TCEnvironment::current();
    const auto first = TCEnvironment::make(), second = TCEnvironment::make();
    first->set();
    second->set();
    EXPECT_EQ(TCEnvironment::current(), second);
    if (before) before->set();
}

TEST(TCEnvironment, ItsNamesAreThoseOfItsLists) {
    const auto meaning = [](const TCEnvironment& environment, std::u16string_view word) {
        TBF::WordMeaning found;
        return environment.names()->lookUp(std::span(&word, 1), 0, found);
    };
    const auto environment = TCEnvironment::make();
    EXPECT_EQ(meaning(*environment, u"sqrt"), TBFNamespaceTypeNone);
    environment->setFunctions(TCBuiltins::functions());
    environment->setWordOperators(TCBuiltins::wordOperators());
    const auto variables = std::make_shared<TCVariableList>();
    environment->setVariables(variables);
    variables->addVariableWithName(u"rent", u"900"); // later than the names were made
    EXPECT_EQ(meaning(*environment, u"sqrt"), TBFNamespaceTypeFunction);
    EXPECT_EQ(meaning(*environment, u"per"), TBFNamespaceTypeWordOperator);
    EXPECT_EQ(meaning(*environment, u"rent"), TBFNamespaceTypeVariable);
    environment->setIsSet(true);
    environment->setVariables(nullptr);
    EXPECT_EQ(meaning(*environment, u"rent"), TBFNamespaceTypeVariable) << "a sealed one";
    environment->setIsSet(false);
    environment->setVariables(nullptr);
    EXPECT_EQ(meaning(*environment, u"rent"), TBFNamespaceTypeNone);
}

TEST(TCSettings, AreSetOnce) {
    if (!TCSettings::isSet()) TCSettings::make()->set();
    ASSERT_TRUE(TCSettings::isSet());
    EXPECT_FALSE(TCSettings::current()->enableExperimentalUnitsMode());
    EXPECT_TRUE(TCSettings::current()->readings());
    EXPECT_DEATH(TCSettings::make()->set(), "Can only set settings once");
}

// In a process of its own, since settings are set once.
TEST(TCSettingsDeathTest, ReadingsCanBeTurnedOff) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(
        {
            const auto settings = TCSettings::make();
            settings->setReadings(false);
            settings->set();
            std::exit(TBF::Settings::current().boolValue(TBFSettingReadings) ? 1 : 0);
        },
        testing::ExitedWithCode(0), "");
}

TEST(TCTrigonometryMode, MapsUnknownModes) {
    for (const int32_t mode : {1, 2}) {
        EXPECT_EQ(TCTrigonometryModeToTBFTrigonometryMode(mode), mode);
        EXPECT_EQ(TCTrigonometryModeFromTBFTrigonometryMode(mode), mode);
    }
    for (const int32_t mode : {0, 3, -1}) {
        EXPECT_EQ(TCTrigonometryModeToTBFTrigonometryMode(mode), 0);
        EXPECT_EQ(TCTrigonometryModeFromTBFTrigonometryMode(mode), 1);
    }
}

} // namespace
