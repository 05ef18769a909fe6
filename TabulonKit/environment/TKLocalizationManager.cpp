#include "environment/TKLocalizationManager.h"

#include "RegexKitLite.h"
#include "bundle/Bundle.h"
#include "bundle/LocalizedStrings.h"
#include "environment/TCWordOperator.h"
#include "environment/TCWordOperatorList.h"
#include "environment/TKLocalization.h"
#include "expressions/TCExpressionSubstituter.h"
#include "locale/Locale.h"
#include "propertylist/PropertyList.h"
#include "results/TCResultFormatter.h"
#include "runtime/Unicode.h"
#include "units/TCUnit.h"
#include "units/TCUnitCollection.h"
#include "units/TKUnitsManager.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace {

using platform::PropertyList;

constexpr std::u16string_view lineWord = u"line";
constexpr std::u16string_view conversionWord = u"in";
constexpr std::u16string_view fallbackCurrencyCode = u"USD";

constexpr TKClashingSymbol clashes[] = {
    {u"$", u"Dollar", u"Dollars", u"USD"},
    {u"kr", u"Krona", u"Kronor", u"NOK"},
};

struct WordOperatorName {
    std::string_view name;
    TCWordOperatorType type;
};

constexpr WordOperatorName wordOperatorNames[] = {
    {"Add", TCWordOperatorTypeAdd},
    {"Subtract", TCWordOperatorTypeSubtract},
    {"Multiply", TCWordOperatorTypeMultiply},
    {"Divide", TCWordOperatorTypeDivide},
    {"ReverseSubtract", TCWordOperatorTypeReverseSubtract},
    {"ReverseDivide", TCWordOperatorTypeReverseDivide},
};

// The types that have patterns from the start, which those of a file replace.
constexpr int32_t firstBuiltInType = TCExpressionSubstituterOperatorTypeAsPercent;
constexpr int32_t lastBuiltInType = TCExpressionSubstituterOperatorTypePercentOffWhatIs;

TCExpressionSubstituter& substituter() {
    return *TCExpressionSubstituter::defaultSubstituter();
}

// "<name>.plist" for a language, wherever the user's wishes don't matter.
std::optional<std::string> listFor(const platform::Bundle& bundle, std::string_view name,
                                   std::string_view localization) {
    return bundle.pathForResource(name, "plist", localization);
}

} // namespace

TKLocalizationManager::TKLocalizationManager(std::shared_ptr<TKUnitsManager> unitsManager,
                                             std::shared_ptr<TCWordOperatorList> wordOperators)
    : units(std::move(unitsManager))
    , words(std::move(wordOperators)) {
    refreshLocalization();
}

TKLocalizationManager::~TKLocalizationManager() = default;

// Null, and a failure, for a file that can't be read.
PropertyList TKLocalizationManager::contentsOf(const std::string& path) {
    std::string error;
    auto contents = PropertyList::read(path, &error);
    if (contents) return std::move(*contents);
    readingFailures.push_back(error);
    return {};
}

// It is passed over.
void TKLocalizationManager::addFailure(const std::string& path, const PropertyList& entry) {
    std::string text;
    for (const auto& [key, value] : entry.dictionary())
        text += (text.empty() ? "" : ", ") + key + " = " + std::string(value.string().value_or("?"));
    readingFailures.push_back(path + ": Encountered an error parsing {" + text + "}");
}

void TKLocalizationManager::setPercentageOperatorsPlistFileName(
    std::string_view name, std::shared_ptr<const platform::Bundle> bundle, std::string_view localization) {
    if (!bundle) bundle = TKLocalization::mainBundle();
    if (!bundle) return setPercentageOperatorsPlistFiles({});
    std::string language(localization);
    if (language.empty()) {
        const auto preferred = bundle->preferredLocalizations();
        language = preferred.empty() ? std::string(kTKLocalizationNameEnglish) : preferred.front();
    }
    std::vector<std::string> paths;
    if (auto path = listFor(*bundle, name, language)) paths.push_back(std::move(*path));
    if (!TKLocalizationIsEnglish(language))
        if (auto path = listFor(*bundle, name, kTKLocalizationNameEnglish)) paths.push_back(std::move(*path));
    setPercentageOperatorsPlistFiles(std::move(paths));
}

void TKLocalizationManager::setPercentageOperatorsPlistFiles(std::vector<std::string> paths) {
    if (!percentageOperatorsFilePaths.empty() && paths == percentageOperatorsFilePaths) return;
    percentageOperatorsFilePaths = std::move(paths);
    refreshPercentageOperators();
}

void TKLocalizationManager::setWordOperatorsPlistFile(std::optional<std::string> path) {
    if (path == wordOperatorsFilePath) return;
    wordOperatorsFilePath = std::move(path);
    if (wordOperatorsFilePath) refreshWordOperators();
}

void TKLocalizationManager::setUnitLocalizationPlistFile(std::optional<std::string> path) {
    if (path == unitLocalizationFilePath) return;
    unitLocalizationFilePath = std::move(path);
    if (unitLocalizationFilePath) refreshUnitLocalization();
}

void TKLocalizationManager::refreshLocalization() {
    const std::u16string word = platform::localizedString(lineWord);
    substituter().setLineReferenceWordString(word.empty() ? lineWord : word);
    if (!percentageOperatorsFilePaths.empty()) refreshPercentageOperators();
    if (wordOperatorsFilePath) refreshWordOperators();
    if (unitLocalizationFilePath) refreshUnitLocalization();
}

void TKLocalizationManager::refreshPercentageOperators() {
    for (int32_t type = firstBuiltInType; type <= lastBuiltInType; ++type)
        substituter().removeOperatorRegexesForOperatorType(
            static_cast<TCExpressionSubstituterOperatorType>(type));
    for (const std::string& path : percentageOperatorsFilePaths) {
        const PropertyList list = contentsOf(path);
        for (const PropertyList& entry : list.array()) {
            const auto regex = entry["regex"].string();
            const auto name = entry["operatorType"].string();
            const auto type = TCExpressionSubstituterOperatorTypeForName(TBF::utf16(name.value_or("")));
            const std::u16string pattern = TBF::utf16(regex.value_or(""));
            if (!regex || !type || !RegexKitLite::isRegexValid(pattern)) {
                addFailure(path, entry);
                continue;
            }
            substituter().addOperatorRegex(pattern, *type);
        }
    }
}

void TKLocalizationManager::refreshWordOperators() {
    if (!wordOperatorsFilePath || !words) return;
    const PropertyList list = contentsOf(*wordOperatorsFilePath);
    for (const PropertyList& entry : list.array()) {
        const auto word = entry["word"].string();
        const auto name = entry["operatorType"].string();
        const auto* const type =
            std::ranges::find(wordOperatorNames, name.value_or(""), &WordOperatorName::name);
        if (!word || word->empty() || type == std::end(wordOperatorNames)) {
            addFailure(*wordOperatorsFilePath, entry);
            continue;
        }
        words->addWordOperator(TCWordOperator::wordOperatorOfType(type->type, TBF::utf16(*word)));
    }
}

void TKLocalizationManager::refreshUnitLocalization() {
    if (!unitLocalizationFilePath) return;
    const PropertyList contents = contentsOf(*unitLocalizationFilePath);
    std::vector<std::u16string> operators;
    for (const PropertyList& word : contents["ConversionOperators"].array())
        if (const auto text = word.string(); text && !text->empty()) operators.push_back(TBF::utf16(*text));
    if (operators.empty()) return;
    substituter().setUnitConversionOperators(operators);
    conversionOperator = operators.front();
}

const std::u16string& TKLocalizationManager::localizedConversionOperatorString() {
    if (!conversionOperator) conversionOperator = platform::localizedString(conversionWord);
    return *conversionOperator;
}

std::u16string TKLocalizationManager::bestCurrencyCodeForCurrentLocale() const {
    const auto code = platform::Locale::current().currencyCode();
    if (code && units) {
        std::u16string text = TBF::utf16(*code);
        if (units->unitWithIdentifier(text)) return text;
    }
    return std::u16string(fallbackCurrencyCode);
}

std::span<const TKClashingSymbol> TKLocalizationManager::clashingSymbols() {
    return clashes;
}

std::u16string TKLocalizationManager::codeMeantByClash(const TKClashingSymbol& clash,
                                                       std::u16string_view code) const {
    const TCUnitCollection& known = *units->tcUnitManager();
    std::u16string meant(clash.clashDefault);
    const auto locale = platform::Locale::current();
    if (const auto current = locale.currencyCode()) {
        const bool hasSymbol = TBF::utf16(locale.currencySymbol(*current)) == clash.clashSymbol;
        if (hasSymbol && known.unitWithName(TBF::utf16(*current))) meant = TBF::utf16(*current);
    }
    const auto own = known.unitWithName(code);
    if (own && own->nameForFormat(TCUnitNameFormatSymbol) == clash.clashSymbol)
        meant = own->nameForFormat(TCUnitNameFormatVeryShort).value_or(meant);
    return meant;
}

void TKLocalizationManager::refreshCurrencyLocaleForCode(std::u16string_view code) {
    TCResultFormatter::sharedInstance().setLocale(platform::Locale::current().identifier());
    if (!units) return;
    TCUnitCollection& known = *units->tcUnitManager();
    for (const TKClashingSymbol& clash : clashes) {
        const auto unit = known.unitWithName(codeMeantByClash(clash, code));
        if (!unit) continue;
        for (const std::u16string_view name : {clash.clashSymbol, clash.clashSingular, clash.clashPlural})
            known.setDefaultUnitForClashingName(unit, name);
    }
}
