#include "runtime/Settings.h"

#include "runtime/TBFLog.h"

#include <cstdio>
#include <stdexcept>
#include <utility>

namespace TBF {

namespace {

struct Default {
    const char* name;
    bool value;
};

constexpr Default defaults[] = {
    {TBFSettingAllowsVariableRedefinitions, false},
    {TBFSettingUsesNewEvaluatorImpl, true},
    {TBFSettingEnableExperimentalUnits, false},
    {TBFSettingReadings, true},
};

struct IntegerDefault {
    const char* name;
    int64_t value;
};

constexpr IntegerDefault integerDefaults[] = {
    {TBFSettingLineBudget, standardLineBudget},
};

// Never destroyed: settings are read until the process ends.
Ref<Settings>& currentSettings() {
    static auto* const current = new Ref<Settings>();
    return *current;
}

} // namespace

Settings::Settings() {
    for (const Default& setting : defaults)
        values.emplace(setting.name, setting.value);
    for (const IntegerDefault& setting : integerDefaults)
        integers.emplace(setting.name, setting.value);
    noteChanges();
}

void Settings::noteChanges() {
    redefinitions = boolValue(TBFSettingAllowsVariableRedefinitions);
    newEvaluator = boolValue(TBFSettingUsesNewEvaluatorImpl);
    readsFurther = boolValue(TBFSettingReadings);
    budget = integerValue(TBFSettingLineBudget);
}

Ref<Settings> Settings::create() {
    return make<Settings>();
}

void Settings::setBool(std::string_view name, bool value) {
    const auto found = values.find(name);
    if (found == values.end()) {
        values.emplace(name, value);
        return;
    }
    if (found->second == value) return;
    found->second = value;
    noteChanges();
    if (!TBFErrorLogEnabled) return;
    std::fprintf(stderr, "TBFSettings: %s -> %s\n", found->first.c_str(), value ? "on" : "off");
}

bool Settings::boolValue(std::string_view name) const {
    const auto found = values.find(name);
    if (found == values.end()) throw std::out_of_range("unknown setting");
    return found->second;
}

void Settings::setInteger(std::string_view name, int64_t value) {
    integers.insert_or_assign(std::string(name), value);
    noteChanges();
}

int64_t Settings::integerValue(std::string_view name) const {
    const auto found = integers.find(name);
    if (found == integers.end()) throw std::out_of_range("unknown setting");
    return found->second;
}

const Settings& Settings::current() {
    static const Ref<Settings> unset = create();
    const Ref<Settings>& settings = currentSettings();
    return settings ? *settings : *unset;
}

void Settings::setCurrent(Ref<Settings> settings) {
    VerifyTrue(!currentSettings(), "Can only set settings once");
    currentSettings() = std::move(settings);
}

} // namespace TBF
