#include "runtime/Settings.h"

#include "eval/EvaluationTestSupport.h"
#include "face/TBFoundation.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace {

TEST(Settings, HaveDefaultsAndReportChanges) {
    evaltest::startFoundation();
    EXPECT_TRUE(TBFSettingsGetBool(TBFSettingUsesNewEvaluatorImpl));
    EXPECT_FALSE(TBFSettingsGetBool(TBFSettingAllowsVariableRedefinitions));
    EXPECT_THROW(TBFSettingsGetBool("TBFSettingOfNobody"), std::out_of_range);

    EXPECT_TRUE(TBF::Settings::current().readings());

    const auto settings = TBF::Settings::create();
    const evaltest::LogIsOn log;
    testing::internal::CaptureStderr();
    settings->setBool(TBFSettingEnableExperimentalUnits, false);
    settings->setBool(TBFSettingEnableExperimentalUnits, true);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "TBFSettings: TBFSettingEnableExperimentalUnits -> on\n");
    settings->setBool(TBFSettingReadings, false);
    EXPECT_FALSE(settings->readings());
}

TEST(Settings, StartingTwiceIsHarmlessAndSettingTwiceIsFatal) {
    evaltest::startFoundation();
    TBFoundationInit(TBF::Settings::create().get());
    EXPECT_DEATH(TBFSettingsSet(TBF::Settings::create().get()), "Can only set settings once");
}

} // namespace
