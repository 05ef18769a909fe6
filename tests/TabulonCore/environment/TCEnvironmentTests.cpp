#include "environment/TCEnvironment.h"

#include "environment/TCSettings.h"
#include "environment/TCTrigonometryMode.h"
#include "runtime/Settings.h"

#include <gtest/gtest.h>

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
