#pragma once

// Choices in the units data: what a word such as gallon or kilobyte means. Each preference has options, each
// option the units that exist only if it is chosen. Plain values.

#include "units/TCAliasUnit.h"

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

inline constexpr std::u16string_view TCUnitsPreferenceBytePrefix = u"TCUnitsPreferenceBytePrefix";
inline constexpr std::u16string_view TCUnitsMeasurementSystem = u"TCUnitsPreferenceImperialUSOrMetric";

inline constexpr std::u16string_view TCUnitsPreferenceBytePrefixOptionBinary =
    u"TCUnitsPreferenceBytePrefixOptionBinary";
inline constexpr std::u16string_view TCUnitsPreferenceBytePrefixOptionSI =
    u"TCUnitsPreferenceBytePrefixOptionSI";
inline constexpr std::u16string_view TCUnitsMeasurementSystemImperial = u"TCUnitsMeasurementSystemImperial";
inline constexpr std::u16string_view TCUnitsMeasurementSystemUSCustomary =
    u"TCUnitsMeasurementSystemUSCustomary";
inline constexpr std::u16string_view TCUnitsMeasurementSystemMetric = u"TCUnitsMeasurementSystemMetric";

struct TCUnitsPreferenceOption {
    std::vector<std::shared_ptr<TCAliasUnit>> aliasUnits;
};

struct TCUnitsPreference {
    std::map<std::u16string, TCUnitsPreferenceOption, std::less<>> options; // by option constant

    const TCUnitsPreferenceOption* optionNamed(std::u16string_view name) const; // null for none
};

// The chosen option of each preference, both as constants.
using TCUnitsPreferenceChoices = std::map<std::u16string, std::u16string, std::less<>>;

class TCUnitsPreferences {
public:
    // SI byte prefixes, metric units.
    static TCUnitsPreferenceChoices defaultPreferences();
};
