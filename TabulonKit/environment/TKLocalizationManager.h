#pragma once

// The grammar of a language, from the content to those who read lines: phrases around percentages and
// conversion words to the shared substituter, words that act as operators to their list, and what a name such
// as "$" means, which several currencies have, to the units. Filled by the load job, then used on the main
// thread.

#include "propertylist/PropertyList.h"

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace platform {
class Bundle;
}

class TCWordOperatorList;
class TKUnitsManager;

// A name that more than one currency has.
struct TKClashingSymbol {
    std::u16string_view clashSymbol;
    std::u16string_view clashSingular;
    std::u16string_view clashPlural;
    std::u16string_view clashDefault; // the code of the currency that it means where nothing else decides
};

class TKLocalizationManager {
public:
    // Both may be null. Takes the word for lines over from the localized strings.
    TKLocalizationManager(std::shared_ptr<TKUnitsManager> unitsManager,
                          std::shared_ptr<TCWordOperatorList> wordOperators);
    ~TKLocalizationManager();

    // The files of a language, and of English behind it. A null bundle is the main one, an empty language the
    // first one that the user wants.
    void setPercentageOperatorsPlistFileName(std::string_view name,
                                             std::shared_ptr<const platform::Bundle> bundle,
                                             std::string_view localization);

    // Each takes effect at once; the same argument as before changes nothing. Paths may be none or empty.
    void setPercentageOperatorsPlistFiles(std::vector<std::string> paths);
    void setWordOperatorsPlistFile(std::optional<std::string> path);
    void setUnitLocalizationPlistFile(std::optional<std::string> path);

    // Read the files again. What can't be used in them is passed over, and told by `failures`.
    void refreshLocalization();
    void refreshPercentageOperators();
    void refreshWordOperators();
    void refreshUnitLocalization();

    // Why files, or entries in them, could not be used so far, a sentence each.
    const std::vector<std::string>& failures() const { return readingFailures; }

    // The code of the currency that the user's surroundings have, if there is a unit for it; otherwise "USD".
    std::u16string bestCurrencyCodeForCurrentLocale() const;

    // Settles what the clashing names mean where the currency of this code is the user's own. Not while
    // something is evaluated.
    void refreshCurrencyLocaleForCode(std::u16string_view code);

    static std::span<const TKClashingSymbol> clashingSymbols();

    // The main word for a conversion.
    const std::u16string& localizedConversionOperatorString();

    const std::shared_ptr<TCWordOperatorList>& wordOperatorList() const { return words; }

private:
    platform::PropertyList contentsOf(const std::string& path);
    void addFailure(const std::string& path, const platform::PropertyList& entry);
    std::u16string codeMeantByClash(const TKClashingSymbol& clash, std::u16string_view code) const;

    std::shared_ptr<TKUnitsManager> units;
    std::shared_ptr<TCWordOperatorList> words;
    std::optional<std::u16string> conversionOperator;
    std::optional<std::string> wordOperatorsFilePath;
    std::vector<std::string> percentageOperatorsFilePaths;
    std::optional<std::string> unitLocalizationFilePath;
    std::vector<std::string> readingFailures;
};
