#pragma once

// All units that the content bundle has, and which of them are enabled: the evaluator knows those. Currencies
// are enabled one by one by whoever manages them. Set up on one thread, then used on the main thread.

#include "units/TCUnitsFile.h"
#include "units/TCUnitsPreference.h"

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

class TCMutableBasicUnit;
class TCUnit;
class TCUnitCollection;

class TKUnitsManager {
public:
    TKUnitsManager();
    ~TKUnitsManager();

    // Reads the units data with the present preferences and enables all of it. Paths of names may be empty; a
    // file that can't be used counts as empty, and is named in `failures`.
    void loadUnitsFromFile(const std::string& path, const std::string& localizationFile,
                           const std::string& fallbackLocalizationFile);

    // Makes the money units known, not enabled. Nothing happens if money units are enabled already.
    void loadCurrenciesFromLocalizationFile(const std::string& path);

    // Why files of the loads so far could not be used, a sentence each.
    const std::vector<std::string>& failures() const { return loadingFailures; }

    // Known units, enabled or not; null for none. The second only for a unit whose factor can change.
    std::shared_ptr<TCUnit> unitWithIdentifier(std::u16string_view identifier) const;
    std::shared_ptr<TCMutableBasicUnit> mutableUnitWithIdentifier(std::u16string_view identifier) const;
    std::vector<std::shared_ptr<TCUnit>> allUnits() const;

    // Null does nothing; nor does a state that the unit has already. The second is for all units but money.
    void setUnitEnabled(const std::shared_ptr<TCUnit>& unit, bool enabled);
    void setUnitsEnabled(bool enabled);

    // By the constants of TCUnitsPreference.h. What is set counts from the next loading. None for an unknown
    // preference.
    void setUnitsPreference(std::u16string_view preference, std::u16string_view option);
    std::optional<std::u16string> unitsPreferenceOptionForPreferenceName(std::u16string_view name) const;

    // The enabled units; never null.
    const std::shared_ptr<TCUnitCollection>& tcUnitManager() const { return enabledUnits; }

private:
    void enter(const std::shared_ptr<TCUnit>& unit);
    bool isEnabled(const TCUnit& unit) const;

    std::shared_ptr<TCUnitCollection> enabledUnits;
    std::unordered_map<std::string_view, std::shared_ptr<TCUnit>>
        unitsByIdentifier; // keys are the units' own
    TCUnitsFile loaded;    // all units but money
    TCUnitsPreferenceChoices preferences;
    std::vector<std::string> loadingFailures;
};
