#pragma once

// The foundation's settings: switches that are chosen before anything is evaluated and hold for the life of
// the process. Each name is its own text. Filled by the core before the foundation starts, then only read, on
// any thread.

#include "runtime/Object.h"
#include "runtime/Ref.h"

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

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
// no bound. The standard budget unless set.
inline constexpr const char* TBFSettingLineBudget = "TBFSettingLineBudget";

namespace TBF {

// Steps of the kernel, which takes about a nanosecond for one today: a second's work. The same line takes the
// same number of them everywhere.
inline constexpr int64_t standardLineBudget = 1'000'000'000;

class Settings final : public Object<Settings> {
public:
    // With the defaults of all settings.
    static Ref<Settings> create();

    void setBool(std::string_view name, bool value);

    // Throws std::out_of_range for an unknown name.
    bool boolValue(std::string_view name) const;

    void setInteger(std::string_view name, int64_t value);
    int64_t integerValue(std::string_view name) const;

    // Settings that the analysis or evaluation of a line asks for.
    bool allowsVariableRedefinitions() const { return redefinitions; }
    bool usesNewEvaluatorImpl() const { return newEvaluator; }
    bool readings() const { return readsFurther; }
    int64_t lineBudget() const { return budget; }

    // The settings of the process; the defaults as long as none were set. Setting them again ends the
    // process.
    static const Settings& current();
    static void setCurrent(Ref<Settings> settings);

private:
    friend class Object<Settings>;
    Settings();
    ~Settings() override = default;

    void noteChanges();

    std::map<std::string, bool, std::less<>> values;
    std::map<std::string, int64_t, std::less<>> integers;
    bool redefinitions = false; // these as in `values` and `integers`
    bool newEvaluator = false;
    bool readsFurther = false;
    int64_t budget = 0;
};

} // namespace TBF
