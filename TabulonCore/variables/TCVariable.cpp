#include "variables/TCVariable.h"

#include "bundle/LocalizedStrings.h"
#include "environment/TCEvaluator.h"
#include "environment/TCWarnLog.h"
#include "expressions/TCExpression.h"
#include "names/variables/Variable.h"
#include "results/TCResult.h"
#include "results/TCResultFormatter.h"
#include "runtime/String.h"
#include "runtime/Unicode.h"
#include "units/TCUnit.h"
#include "units/TCUnitCollection.h"
#include "units/TCUnitStringFormatter.h"
#include "units/UnitContainer.h"
#include "variables/TCVariableList.h"

#include <algorithm>
#include <charconv>
#include <functional>
#include <utility>

namespace {

constexpr int32_t nameErrorCode = 2048;
constexpr std::u16string_view exponentText = u"*10^";

TBF::Ref<TBF::String> stringOf(const std::optional<std::u16string>& text) {
    return text ? TBF::String::create(*text) : nullptr;
}

std::optional<std::u16string> textOf(const TBF::String* string) {
    return string ? std::optional(string->utf16()) : std::nullopt;
}

TBFRange scopesOf(TCRange range) {
    const bool runsToEnd = range.length < 0 || range.length > TBFRangeLengthMax;
    return {static_cast<int32_t>(std::clamp<int64_t>(range.location, 0, TBFRangeLengthMax)),
            runsToEnd ? TBFRangeLengthMax : static_cast<int32_t>(range.length)};
}

TBF::Ref<TBF::UnitContainer> containerOf(const TCVariable::Unit& unit) {
    return unit ? TBF::retain(unit->tbfUnitContainer()) : nullptr;
}

// As a floating-point number of 32 bits.
bool isOne(const std::optional<std::u16string>& text) {
    const std::string digits = TBF::utf8(text.value_or(std::u16string()));
    float number = 0;
    const auto end = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return end.ec == std::errc() && number == 1.0f;
}

} // namespace

std::shared_ptr<TCVariable> TCVariable::variableWithName(std::optional<std::u16string> name) {
    auto foundation = TBF::Variable::create();
    if (name) foundation->setName(TBF::String::create(*name));
    return std::make_shared<TCVariable>(Passkey(), std::move(foundation));
}

std::shared_ptr<TCVariable> TCVariable::variableWithName(std::optional<std::u16string> name,
                                                         std::optional<std::u16string> localizedValue) {
    auto variable = variableWithName(std::move(name));
    variable->setValue(std::move(localizedValue));
    return variable;
}

std::shared_ptr<TCVariable> TCVariable::variableWithName(std::optional<std::u16string> name,
                                                         const TCResult* result) {
    auto variable = variableWithName(std::move(name));
    variable->setResultValue(result);
    return variable;
}

std::shared_ptr<TCVariable> TCVariable::variableWithName(std::optional<std::u16string> name,
                                                         std::optional<std::u16string> delocalizedValue,
                                                         uint32_t resultFlags, Unit unit) {
    auto variable = variableWithName(std::move(name));
    variable->setDelocalizedValue(std::move(delocalizedValue), resultFlags, std::move(unit));
    return variable;
}

std::shared_ptr<TCVariable> TCVariable::variableWithTBFVariable(TBF::Ref<TBF::Variable> variable) {
    auto wrapper = std::make_shared<TCVariable>(Passkey(), std::move(variable));
    if (auto text = wrapper->delocalizedValue()) wrapper->setDelocalizedValue(std::move(text), 0, nullptr);
    return wrapper;
}

TCVariable::TCVariable(Passkey, TBF::Ref<TBF::Variable> variable)
    : foundationVariable(std::move(variable)) {
    foundationVariable->setWrapperObject(this);
}

TCVariable::~TCVariable() {
    // A standard variable may have been wrapped again since.
    if (foundationVariable->wrapperObject() == this) foundationVariable->setWrapperObject(nullptr);
}

TCVariable::Texts& TCVariable::madeTexts() const {
    if (!ownTexts) ownTexts = std::make_unique<Texts>();
    return *ownTexts;
}

const TCVariable::Texts& TCVariable::texts() const {
    static const Texts& none = *new Texts;
    return ownTexts ? *ownTexts : none;
}

void TCVariable::setLocalizedText(std::optional<std::u16string> text) const {
    if (text || ownTexts) madeTexts().localized = std::move(text);
}

std::shared_ptr<TCVariable> TCVariable::copy() const {
    auto twin = variableWithName(name(), delocalizedValue(), resultFlags(), ownUnit);
    twin->locale = locale;
    twin->setLocalizedText(texts().localized);
    return twin;
}

std::size_t TCVariable::hash() const {
    return std::hash<std::u16string>()(name().value_or(std::u16string()));
}

std::optional<std::u16string> TCVariable::name() const {
    return textOf(foundationVariable->name());
}

bool TCVariable::changeName(std::u16string_view newName) {
    saveState();
    if (!foundationVariable->setName(TBF::String::create(newName))) return false;
    if (owningList) owningList->variableDidUpdateName(*this, previousState().name(), std::u16string(newName));
    return true;
}

std::vector<std::u16string> TCVariable::aliases() const {
    std::vector<std::u16string> texts;
    for (const auto& alias : foundationVariable->aliases())
        texts.push_back(alias->utf16());
    return texts;
}

void TCVariable::addAlias(std::u16string_view alias) {
    foundationVariable->addAlias(TBF::String::create(alias));
}

std::optional<std::u16string> TCVariable::localizedValue() const {
    if (!texts().localized) setLocalizedText(localizedValueFromDelocalizedValue(delocalizedValue()));
    return texts().localized;
}

std::optional<std::u16string> TCVariable::delocalizedValue() const {
    const TBF::VariableValue* const value = foundationVariable->valueAt(TBF::Variable::endScope);
    return value ? textOf(value->string()) : std::nullopt;
}

void TCVariable::setValue(std::optional<std::u16string> text) {
    if (setLocalizedValue(std::move(text)) && owningList) owningList->variableDidUpdateValue(*this);
}

bool TCVariable::setLocalizedValue(std::optional<std::u16string> text) {
    if (text && text->empty()) text.reset();
    if (text && text == texts().localized) return false;
    setDelocalizedValue(delocalizedValueFromLocalizedValue(text), resultFlags(), ownUnit);
    setLocalizedText(std::move(text));
    return true;
}

// The range may hold several values, of which each has a unit of its own: nothing tells by one look whether
// all of it stands already, so it is always set.
bool TCVariable::setDelocalizedValue(std::optional<std::u16string> text, uint32_t flags, Unit newUnit,
                                     TCRange scopeRange) {
    setText(stringOf(text), flags, std::move(newUnit), scopeRange);
    return true;
}

// The text may be shared with the answer that it comes from.
void TCVariable::setText(TBF::Ref<TBF::String> text, uint32_t flags, Unit newUnit, TCRange scopeRange) {
    if (text && text->isEmpty()) text.reset();
    const TBFRange scopes = scopesOf(scopeRange);
    const bool isLast = scopes.runsToEnd(); // the value that is told without a place
    if (isLast && textOf(text.get()) != delocalizedValue()) setLocalizedText(std::nullopt);
    foundationVariable->setValue(std::move(text), flags & TBFResultFlagPercent, containerOf(newUnit), scopes);
    if (isLast) ownUnit = std::move(newUnit);
}

void TCVariable::setDelocalizedValueOfResult(const TCResult* result, TCRange scopeRange) {
    if (result)
        setText(result->completeText(), result->flags(), result->unit(), scopeRange);
    else
        setText(nullptr, 0, nullptr, scopeRange);
}

void TCVariable::setResultValue(const TCResult* result) {
    setDelocalizedValueOfResult(result, wholeRange);
    if (owningList) owningList->variableDidUpdateValue(*this);
}

uint32_t TCVariable::resultFlags() const {
    const TBF::VariableValue* const value = foundationVariable->valueAt(TBF::Variable::endScope);
    return value ? value->flags() & TBFResultFlagPercent : 0;
}

void TCVariable::setUnit(Unit newUnit) {
    if (newUnit != ownUnit) setDelocalizedValue(delocalizedValue(), resultFlags(), std::move(newUnit));
}

void TCVariable::setUnitNamed(std::u16string_view name) {
    const auto units = TCUnitCollection::sharedManager();
    if (auto unit = units ? units->unitWithName(name) : nullptr) setUnit(std::move(unit));
}

std::u16string TCVariable::displayValue() const {
    std::u16string text = value().value_or(std::u16string());
    if (resultFlags() & TBFResultFlagPercent) return text += u'%';
    if (!ownUnit) return text;
    const auto form = isOne(value()) ? TCUnitNameFormSingular : TCUnitNameFormPlural;
    return text + u' ' + ownUnit->nameForFormat(TCUnitNameFormatLong, form).value_or(std::u16string());
}

platform::PropertyList TCVariable::dictionaryRepresentation() const {
    platform::PropertyList::Dictionary dictionary;
    const auto setText = [&](std::string_view key, const std::optional<std::u16string>& text) {
        if (text) dictionary.set(key, TBF::utf8(*text));
    };
    setText("value", delocalizedValue());
    platform::PropertyList::Array aliasTexts;
    for (const std::u16string& alias : aliases())
        aliasTexts.push_back(TBF::utf8(alias));
    if (!aliasTexts.empty()) dictionary.set("aliases", std::move(aliasTexts));
    setText("name", name());
    setText("unitIdentifier", TCUnitStringFormatter().stringForUnit(ownUnit.get(), TCUnitNameFormatIdentifier,
                                                                    TCUnitNameFormSingular));
    if (resultFlags() != 0) dictionary.set("resultFlags", static_cast<int64_t>(resultFlags()));
    dictionary.set("enabled", isEnabled);
    dictionary.set("type", static_cast<int64_t>(tag));
    setText("infoDescription", infoDescription());
    setText("identifier", identifier());
    return dictionary;
}

void TCVariable::loadFromDictionaryRepresentation(const platform::PropertyList&) {
    TCWarnLog("Shouldn't be called, does nothing");
}

void TCVariable::setValueForUndefinedKey(const platform::PropertyList&, std::string_view key) {
    TCWarnLog("Warning trying to set key %s on a variable", std::string(key).c_str());
}

void TCVariable::setEnabled(bool enable) {
    if (enable == isEnabled) return;
    isEnabled = enable;
    if (owningList) owningList->variableDidChangeEnabledState(*this, enable);
}

bool TCVariable::isNoNewLocale(TCSimpleLocale newLocale) const {
    return newLocale.decimalPoint == newLocale.thousandsSeparator || newLocale == locale;
}

void TCVariable::setLocaleWithDecimalPoint(TBFChar decimalPoint, TBFChar thousandsSeparator) {
    const TCSimpleLocale newLocale{decimalPoint, thousandsSeparator};
    if (isNoNewLocale(newLocale)) return;
    const std::optional<std::u16string> text = localizedValue();
    locale = newLocale;
    setDelocalizedValue(delocalizedValueFromLocalizedValue(text), resultFlags(), ownUnit);
    setLocalizedText(text);
    if (owningList) owningList->variableDidUpdateValue(*this);
}

void TCVariable::convertToLocaleWithDecimalPoint(TBFChar decimalPoint, TBFChar thousandsSeparator) {
    const TCSimpleLocale newLocale{decimalPoint, thousandsSeparator};
    if (isNoNewLocale(newLocale)) return;
    locale = newLocale;
    setValue(localizedValueFromDelocalizedValue(delocalizedValue()));
}

std::optional<std::u16string>
TCVariable::delocalizedValueFromLocalizedValue(std::optional<std::u16string> text) const {
    if (!text) return std::nullopt;
    return TCExpression(std::move(text), locale).delocalizedString();
}

std::optional<std::u16string>
TCVariable::localizedValueFromDelocalizedValue(std::optional<std::u16string> text) const {
    if (!text) return std::nullopt;
    TCExpression expression(std::move(text));
    expression.convertToLocaleWithDecimalPoint(locale.decimalPoint, locale.thousandsSeparator);
    return expression.originalString();
}

bool TCVariable::validateName(const std::optional<std::u16string>& name, TCVariableNameError* error) {
    using platform::localizedString;
    if (!name || name->empty()) {
        if (error)
            *error = {nameErrorCode, localizedString(u"A variable must have a name."),
                      localizedString(u"Please give the variable a name and try again.")};
        return false;
    }
    if (name->find(u' ') == std::u16string::npos) return true;
    if (error)
        *error = {nameErrorCode, localizedString(u"A variable cannot have more than one word."),
                  localizedString(u"Please do not use a space in your variable name.")};
    return false;
}

bool TCVariable::validateValue(std::optional<std::u16string>& text, TCVariableNameError*) const {
    if (!text) {
        text = u"1.0";
        return true;
    }
    const auto evaluator = TCEvaluator::sharedEvaluator();
    if (!evaluator) return true;
    const auto result = evaluator->evaluateExpression(std::make_shared<TCExpression>(text, locale));
    auto options =
        TCResultFormattingOptions::formattingOptionsWithDisplayFormat(TCDisplayFormatNormal, locale);
    options.setThousandsSeparator(false);
    options.setThousandsSeparatorCharacter(locale.thousandsSeparator);
    options.setDecimalPlaceCharacter(locale.decimalPoint);
    options.setShowPercentSign(false);
    options.setShowUnit(false);
    text = TCResultFormatter::sharedInstance().stringValueForResult(result.get(), options);
    if (!text) return true;
    for (std::size_t at = text->find(exponentText); at != std::u16string::npos; at = text->find(exponentText))
        text->replace(at, exponentText.size(), u"e");
    return true;
}
