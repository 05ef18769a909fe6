#pragma once

// Loads the units data: property lists of units, with names for a language, become unit objects. A parser
// lives for one load, on one thread. A row that can't be used is left out; nothing here fails as a whole.

#include "propertylist/PropertyList.h"
#include "units/TCBasicUnit.h"
#include "units/TCUnitNames.h"
#include "units/TCUnitsFile.h"
#include "units/TCUnitsPreference.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

class TCUnitsFileParser {
public:
    // The units file gives the units, the localizations their names. A file that can't be read counts as
    // empty and is named in the `failures`; so is one that holds nothing of its kind. A localization may be
    // left out by an empty path. Of the preferences, the chosen options' units exist.
    static TCUnitsFile readUnitsFile(const std::string& path, const std::string& localizationFile,
                                     const std::string& fallbackLocalizationFile,
                                     const TCUnitsPreferenceChoices& preferences);

    // The same for lists that have been read already.
    static TCUnitsFile readUnits(const platform::PropertyList& units,
                                 const platform::PropertyList& localization,
                                 const platform::PropertyList& fallbackLocalization,
                                 const TCUnitsPreferenceChoices& preferences);

    // One unit for each currency, with factor 1. A file that can't be used gives none, is logged, and named
    // in a sentence behind the `failures`, if they are given.
    static std::vector<std::shared_ptr<TCMutableBasicUnit>>
    loadCurrencyUnitsFromLocalizationFile(const std::string& path,
                                          std::vector<std::string>* failures = nullptr);
    static std::vector<std::shared_ptr<TCMutableBasicUnit>>
    loadCurrencyUnits(const platform::PropertyList& localization);

private:
    class Loading;
};
