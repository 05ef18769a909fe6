#include "environment/TCSettings.h"

#include "eval/Foundation.h"
#include "runtime/Settings.h"
#include "runtime/TBFLog.h"

namespace {

std::shared_ptr<TCSettings>& currentSettings() {
    static auto* const current = new std::shared_ptr<TCSettings>();
    return *current;
}

} // namespace

std::shared_ptr<TCSettings> TCSettings::make() {
    return std::make_shared<TCSettings>(Passkey{});
}

std::shared_ptr<TCSettings> TCSettings::current() {
    return currentSettings();
}

void TCSettings::set() {
    VerifyTrue(!isSet(), "Can only set settings once");
    const auto settings = TBF::Settings::create();
    settings->setBool(TBFSettingEnableExperimentalUnits, experimentalUnits);
    settings->setBool(TBFSettingReadings, readsFurther);
    settings->setInteger(TBFSettingLineBudget, stepsOfLine);
    TBF::startFoundation(settings);
    currentSettings() = shared_from_this();
}
