#include "runtime/Settings.h"

#include "eval/EvaluationTestSupport.h"
#include "eval/Foundation.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace {

TEST(Settings, HaveDefaultsAndReportChanges) {
    evaltest::startFoundation();
    EXPECT_TRUE(TBF::Settings::current().boolValue(TBFSettingUsesNewEvaluatorImpl));
    EXPECT_FALSE(TBF::Settings::current().boolValue(TBFSettingAllowsVariableRedefinitions));
    EXPECT_THROW(TBF::Settings::current().boolValue("TBFSettingOfNobody"), std::out_of_range);

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
    TBF::startFoundation(TBF::Settings::create());
    EXPECT_DEATH(TBF::Settings::setCurrent(TBF::Settings::create()), "Can only set settings once");
}

} // namespace
