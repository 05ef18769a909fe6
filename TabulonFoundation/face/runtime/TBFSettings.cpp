#include "face/runtime/TBFSettings.h"

#include "runtime/Settings.h"

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

void TBFSettingsSetInteger(TBFSettingsRef settings, const char* name, int64_t value) {
    if (settings && name) settings->setInteger(name, value);
}

void TBFSettingsSet(TBFSettingsRef settings) {
    Settings::setCurrent(TBF::retain(settings));
}

bool TBFSettingsGetBool(const char* name) {
    return Settings::current().boolValue(name ? name : "");
}

int64_t TBFSettingsGetInteger(const char* name) {
    return Settings::current().integerValue(name ? name : "");
}
