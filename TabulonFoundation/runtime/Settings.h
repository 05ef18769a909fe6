#pragma once

// The settings behind the plain functions of eval/TBFSettings.h: names with switches. Filled by the core
// before the foundation starts, then only read, on any thread.

#include "face/runtime/TBFSettings.h"
#include "runtime/Object.h"
#include "runtime/Ref.h"

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

namespace TBF {

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
