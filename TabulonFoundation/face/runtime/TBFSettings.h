#pragma once

// The foundation's settings: switches that are chosen before anything is evaluated and hold for the life of
// the process. Each name is its own text. Settings are set up on one thread; once they are current they are
// only read, from any thread.

#include <cstdint>

namespace TBF {
class Settings;
}
using TBFSettingsRef = TBF::Settings*;

// Whether variables are read as they stand at the line that asks. Off unless set.
inline constexpr const char* TBFSettingAllowsVariableRedefinitions = "TBFSettingAllowsVariableRedefinitions";
// Which of two ways the contextual analyzer finds unary operators in. On unless set.
inline constexpr const char* TBFSettingUsesNewEvaluatorImpl = "TBFSettingUsesNewEvaluatorImpl";
// Whether voltage, resistance and the like are taken down to mechanical units. Off unless set.
inline constexpr const char* TBFSettingEnableExperimentalUnits = "TBFSettingEnableExperimentalUnits";

// Whether lines are read beyond the plain rules, where those would give a misleading answer or none: one
// switch for all readings (docs/readings.md). On unless set.
inline constexpr const char* TBFSettingReadings = "TBFSettingReadings";
// Numbers: the steps of work that the evaluation of one line may take (numbers/WorkBudget.h), INT64_MAX for
// no bound. About a second's work unless set.
inline constexpr const char* TBFSettingLineBudget = "TBFSettingLineBudget";

// New settings with the defaults, owned by the caller.
TBFSettingsRef TBFSettingsCreate();
void TBFSettingsRelease(const TBF::Settings* settings);

// Notes a change of a known setting in the log.
void TBFSettingsSetBool(TBFSettingsRef settings, const char* name, bool value);

void TBFSettingsSetInteger(TBFSettingsRef settings, const char* name, int64_t value);

// Makes the settings current, retaining them. Once only: a second call ends the process.
void TBFSettingsSet(TBFSettingsRef settings);

// The value in the current settings, which have the defaults until some are set. An unknown name is a mistake
// of the program and throws std::out_of_range.
bool TBFSettingsGetBool(const char* name);
int64_t TBFSettingsGetInteger(const char* name);
