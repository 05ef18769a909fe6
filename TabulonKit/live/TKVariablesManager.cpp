#include "live/TKVariablesManager.h"

#include "NotificationCenter.h"
#include "bundle/LocalizedStrings.h"
#include "environment/TCWarnLog.h"
#include "environment/TKLog.h"
#include "runtime/Unicode.h"
#include "units/TCUnit.h"
#include "units/TCUnitCollection.h"
#include "units/TCUnitStringParser.h"
#include "units/UnitContainer.h"
#include "variables/TCVariable.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace {

using platform::localizedString;
using platform::NotificationCenter;
using platform::PropertyList;

struct DefaultVariable {
    std::u16string_view name;
    std::u16string_view value;
};

constexpr DefaultVariable defaultVariables[] = {
    {u"k", u"1000"},
    {u"M", u"1000000"},
    {u"G", u"1000000000"},
};

constexpr std::u16string_view standardValue = u"1.0";
constexpr int32_t lastNumberOfStandardName = 99998;
constexpr int32_t validationErrorCode = 2048;

constexpr std::string_view variablesKey = "TKVariables";
constexpr std::string_view versionInfoKey = "TKVersionInfo";

void post(std::string_view name, std::shared_ptr<void> object) {
    NotificationCenter::shared().post(name, std::move(object));
}

std::string nameOf(const TCVariable& variable) {
    return TBF::utf8(variable.name().value_or(std::u16string()));
}

std::u16string filledIn(std::u16string format, std::u16string_view name) {
    const std::size_t place = format.find(u"%@");
    if (place != format.npos) format.replace(place, 2, name);
    return format;
}

std::optional<std::u16string> textOf(const PropertyList& value) {
    const auto text = value.string();
    return text ? std::optional(TBF::utf16(*text)) : std::nullopt;
}

} // namespace

std::shared_ptr<TKVariablesManager>
TKVariablesManager::managerWithVariableList(std::shared_ptr<TCVariableList> variableList,
                                            std::shared_ptr<TCUnitCollection> unitCollection) {
    return std::make_shared<TKVariablesManager>(Passkey{}, std::move(variableList),
                                                std::move(unitCollection));
}

TKVariablesManager::TKVariablesManager(Passkey, std::shared_ptr<TCVariableList> variableList,
                                       std::shared_ptr<TCUnitCollection> units)
    : list(variableList ? std::move(variableList) : std::make_shared<TCVariableList>())
    , unitCollection(std::move(units)) {
    list->setDelegate(this);
}

TKVariablesManager::~TKVariablesManager() {
    if (list->delegate() == this) list->setDelegate(nullptr);
}

TKVariablesManager::Variable TKVariablesManager::variableNamed(std::u16string_view name) const {
    const auto found =
        std::ranges::find_if(variablesArray, [&](const Variable& each) { return each->name() == name; });
    return found == variablesArray.end() ? nullptr : *found;
}

TKVariablesManager::Variable TKVariablesManager::freeVariable(std::u16string_view value) const {
    auto variable = TCVariable::variableWithName(std::nullopt);
    variable->setType(TKVariableTypeUser);
    variable->setValue(std::u16string(value));
    return variable;
}

void TKVariablesManager::loadDefaults() {
    postsNotifications = false;
    for (const auto& [name, value] : defaultVariables) {
        if (variableNamed(name)) continue;
        const Variable variable = freeVariable(value);
        variable->changeName(name);
        addVariable(variable);
    }
    postsNotifications = true;
}

void TKVariablesManager::addVariable(const Variable& variable) {
    if (!variable) return;
    variable->convertToLocaleWithDecimalPoint(variableLocale.decimalPoint, variableLocale.thousandsSeparator);
    if (list->containsVariableWithName(variable->name().value_or(std::u16string()))) {
        TCWarnLog("Warning: Trying to add a new variable named %s when one already exists under that name",
                  nameOf(*variable).c_str());
        return;
    }
    list->addVariable(variable);
    variablesArray.push_back(variable);
    if (postsNotifications) post(TKVariableWasAdded, variable);
}

void TKVariablesManager::addVariableNamed(std::u16string_view name) {
    if (variableNamed(name)) return;
    const Variable variable = freeVariable(standardValue);
    variable->changeName(name);
    addVariable(variable);
}

TKVariablesManager::Variable TKVariablesManager::standardVariable() const {
    const std::u16string base = localizedString(u"Default Variable Name");
    std::u16string name = base;
    for (int32_t number = 1; list->containsVariableWithName(name); ++number) {
        name = base + TBF::utf16(std::to_string(number));
        if (number == lastNumberOfStandardName) break;
    }
    Variable variable = freeVariable(standardValue);
    variable->changeName(name);
    return variable;
}

void TKVariablesManager::moveVariable(const Variable& variable, std::size_t toIndex) {
    const auto place = std::ranges::find(variablesArray, variable);
    if (place == variablesArray.end()) return;
    const Variable moved = *place; // the argument may stand in the array
    const bool isThere = toIndex < variablesArray.size() && variablesArray[toIndex] == moved;
    if (!isThere) {
        variablesArray.erase(place);
        const std::size_t index = std::min(toIndex, variablesArray.size());
        variablesArray.insert(variablesArray.begin() + static_cast<std::ptrdiff_t>(index), moved);
    }
    post(TKVariableWasMoved, moved);
}

void TKVariablesManager::deleteVariable(const Variable& variable) {
    if (!variable) return;
    const Variable deleted = variable;
    list->removeVariable(deleted);
    std::erase(variablesArray, deleted);
    post(TKVariableWasRemoved, deleted);
}

bool TKVariablesManager::renameVariable(const Variable& variable, std::u16string_view toName,
                                        TCVariableNameError* error) {
    const std::u16string name(toName);
    if (!TCVariable::validateName(name, nullptr)) {
        if (error)
            *error = {validationErrorCode, localizedString(u"An Unknown Error Occured"),
                      localizedString(u"Try renaming the variable to something else.")};
        return false;
    }
    if (variable && variable->changeName(name)) return true;
    if (error)
        *error = {validationErrorCode,
                  filledIn(localizedString(u"There is already a variable named '%@'."), name),
                  localizedString(u"Please give the variable a different name and try again.")};
    return false;
}

bool TKVariablesManager::setValueOfVariable(const Variable& variable, std::optional<std::u16string> toValue,
                                            TCVariableNameError* error) {
    if (variable && variable->validateValue(toValue, error)) {
        variable->setValue(std::move(toValue));
        return true;
    }
    if (!variable && error) *error = {validationErrorCode, localizedString(u"An Unknown Error Occured"), u""};
    return false;
}

void TKVariablesManager::setLocale(TCSimpleLocale locale) {
    if (locale == variableLocale) return;
    variableLocale = locale;
    for (const Variable& variable : variablesArray)
        variable->convertToLocaleWithDecimalPoint(locale.decimalPoint, locale.thousandsSeparator);
    post(TKVariablesLocaleChanged, shared_from_this());
}

bool TKVariablesManager::saveToPath(const std::string& path, const PropertyList& withVersionInfo) const {
    PropertyList::Array saved;
    for (const Variable& variable : variablesArray)
        saved.push_back(variable->dictionaryRepresentation());
    PropertyList::Dictionary contents;
    contents.set(variablesKey, std::move(saved));
    if (!withVersionInfo.isNull()) contents.set(versionInfoKey, withVersionInfo);
    std::string error;
    if (PropertyList(std::move(contents)).write(path, &error)) return true;
    TKLog("Warning: Could not save variables datasource to file '%s' %s", path.c_str(), error.c_str());
    return false;
}

bool TKVariablesManager::loadFromPath(const std::string& path, bool* isDamaged) {
    std::string error;
    const auto saved = PropertyList::read(path, &error, isDamaged);
    if (!saved || saved->kind() != PropertyList::Kind::dictionary) {
        if (saved && isDamaged) *isDamaged = true;
        TKLog("Variables: %s", error.empty() ? "the file holds no dictionary" : error.c_str());
        return false;
    }
    for (const PropertyList& row : (*saved)[variablesKey].array()) {
        const Variable variable = variableFromDictionaryRepresentation(row);
        if (!variable) {
            TKLog("Variables: a row without a name can't be used");
            continue;
        }
        variable->convertToLocaleWithDecimalPoint(variableLocale.decimalPoint,
                                                  variableLocale.thousandsSeparator);
        if (list->containsVariableWithName(variable->name().value_or(std::u16string()))) {
            TKLog("Trying to add variable %s when it already exits", nameOf(*variable).c_str());
            continue;
        }
        variablesArray.push_back(variable);
        list->addVariable(variable);
    }
    return true;
}

TKVariablesManager::Variable
TKVariablesManager::variableFromDictionaryRepresentation(const PropertyList& dictionary) const {
    const auto name = textOf(dictionary["name"]);
    if (!name || name->empty()) return nullptr;
    TCVariable::Unit unit;
    if (const auto identifier = textOf(dictionary["unitIdentifier"]))
        unit = TCUnitStringParser(unitCollection).unitFromString(*identifier);
    const auto flags = static_cast<uint32_t>(dictionary["resultFlags"].asInteger().value_or(0));
    auto variable = TCVariable::variableWithName(name, textOf(dictionary["value"]), flags, std::move(unit));
    if (const auto enabled = dictionary["enabled"].asBoolean()) variable->setEnabled(*enabled);
    if (const auto type = dictionary["type"].asInteger()) variable->setType(static_cast<int32_t>(*type));
    if (auto identifier = textOf(dictionary["identifier"])) variable->setIdentifier(std::move(identifier));
    if (auto text = textOf(dictionary["infoDescription"])) variable->setInfoDescription(std::move(text));
    return variable;
}

void TKVariablesManager::variableDidUpdateInVariableList(TCVariable& variable, TCVariableList&) {
    post(TKVariableWasModified, variable.shared_from_this());
}
