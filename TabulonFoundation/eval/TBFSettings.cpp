#include "eval/TBFSettings.h"

#include "eval/Settings.h"

using TBF::Settings;

TBFSettingsRef TBFSettingsCreate() {
    return Settings::create().leak();
}

void TBFSettingsRelease(const Settings* settings) {
    if (settings) settings->release();
}

void TBFSettingsSetBool(TBFSettingsRef settings, const char* name, bool value) {
    if (settings && name) settings->setBool(name, value);
}

void TBFSettingsSet(TBFSettingsRef settings) {
    Settings::setCurrent(TBF::retain(settings));
}

bool TBFSettingsGetBool(const char* name) {
    return Settings::current().boolValue(name ? name : "");
}
