#include "units/TCUnitsPreference.h"

const TCUnitsPreferenceOption* TCUnitsPreference::optionNamed(std::u16string_view name) const {
    const auto found = options.find(name);
    return found == options.end() ? nullptr : &found->second;
}

TCUnitsPreferenceChoices TCUnitsPreferences::defaultPreferences() {
    TCUnitsPreferenceChoices choices;
    choices.emplace(TCUnitsPreferenceBytePrefix, TCUnitsPreferenceBytePrefixOptionSI);
    choices.emplace(TCUnitsMeasurementSystem, TCUnitsMeasurementSystemMetric);
    return choices;
}
