#include "variables/TCVariableList.h"

#include "environment/TCEnvironment.h"
#include "environment/TCWarnLog.h"
#include "eval/variables/VariableList.h"
#include "runtime/String.h"
#include "runtime/Unicode.h"
#include "units/UnitContainer.h"
#include "variables/TCVariable.h"

#include <utility>

namespace {

std::u16string keyOf(const TCVariable& variable) {
    return variable.name().value_or(std::u16string());
}

} // namespace

TCVariableList::TCVariableList()
    : list(TBF::VariableList::create()) {}

TCVariableList::~TCVariableList() {
    for (const auto& [name, variable] : listed)
        if (variable->variableList() == this) variable->setVariableList(nullptr);
}

std::shared_ptr<TCVariableList> TCVariableList::listWithStandardVariables() {
    auto variables = std::make_shared<TCVariableList>();
    const TBFVariableListRef standard = TBFVariableListGetStandardList();
    TBFVariableListSetParentList(variables->tbfVariableList(), standard);
    for (TBF::Variable* const variable : standard->topLevelVariables())
        variables->addVariableWithoutAddingToTBFVariableList(
            TCVariable::variableWithTBFVariable(TBF::retain(variable)));
    return variables;
}

std::shared_ptr<TCVariableList> TCVariableList::sharedList() {
    const std::shared_ptr<TCEnvironment> environment = TCEnvironment::current();
    return environment ? environment->variables() : nullptr;
}

void TCVariableList::setParentList(std::shared_ptr<TCVariableList> newParent) {
    parent = std::move(newParent);
    TBFVariableListSetParentList(list.get(), parent ? parent->tbfVariableList() : nullptr);
    registerStateChange();
}

int32_t TCVariableList::countOfTopLevelVariables() const {
    return TBFVariableListGetCountOfTopLevelVariables(list.get());
}

int32_t TCVariableList::countOfAllVariables() const {
    return TBFVariableListGetCountOfVariables(list.get());
}

std::vector<std::shared_ptr<TCVariable>> TCVariableList::variables() const {
    std::vector<std::shared_ptr<TCVariable>> found;
    found.reserve(listed.size());
    for (const auto& [name, variable] : listed)
        found.push_back(variable);
    return found;
}

std::vector<std::shared_ptr<TCVariable>> TCVariableList::allVariables() const {
    std::vector<std::shared_ptr<TCVariable>> found;
    for (const TCVariableList* each = this; each; each = each->parent.get())
        for (auto& variable : each->variables())
            found.push_back(std::move(variable));
    return found;
}

std::vector<std::u16string> TCVariableList::variableNames() const {
    std::vector<std::u16string> names;
    names.reserve(listed.size());
    for (const auto& [name, variable] : listed)
        names.push_back(name);
    return names;
}

std::shared_ptr<TCVariable> TCVariableList::variableWithName(std::u16string_view name) const {
    return variableWithName(name, true, true);
}

std::shared_ptr<TCVariable> TCVariableList::variableWithExactCaseName(std::u16string_view name) const {
    return variableWithName(name, false, true);
}

std::shared_ptr<TCVariable> TCVariableList::variableWithName(std::u16string_view name, bool caseInsensitive,
                                                             bool searchParentList) const {
    const TBF::VariableList::Match match = list->find(*TBF::String::create(name));
    if (!match.variable || (!caseInsensitive && !match.exactCase) || (!searchParentList && match.fromParent))
        return nullptr;
    auto* const variable = static_cast<TCVariable*>(match.variable->wrapperObject());
    return variable ? variable->weak_from_this().lock() : nullptr;
}

bool TCVariableList::containsVariableWithName(std::u16string_view name) const {
    return containsVariableWithName(name, true, true);
}

bool TCVariableList::containsVariableWithExactCaseName(std::u16string_view name) const {
    return containsVariableWithName(name, false, true);
}

bool TCVariableList::directlyContainsVariableWithExactCaseName(std::u16string_view name) const {
    return containsVariableWithName(name, false, false);
}

bool TCVariableList::containsVariableWithName(std::u16string_view name, bool caseInsensitive,
                                              bool searchParentList) const {
    return variableWithName(name, caseInsensitive, searchParentList) != nullptr;
}

std::optional<std::u16string> TCVariableList::valueOfVariableWithName(std::u16string_view name) const {
    const auto variable = variableWithName(name);
    return variable ? variable->value() : std::nullopt;
}

void TCVariableList::setValueForVariableWithName(std::optional<std::u16string> value,
                                                 std::u16string_view name) {
    TCWarnLog("Value set is %s", TBF::utf8(value.value_or(std::u16string())).c_str());
    if (const auto variable = variableWithName(name))
        variable->setValue(std::move(value));
    else
        addVariableWithName(name, std::move(value));
}

std::vector<std::u16string> TCVariableList::aliasesOfVariableWithName(std::u16string_view name) const {
    const auto variable = variableWithName(name);
    return variable ? variable->aliases() : std::vector<std::u16string>();
}

void TCVariableList::addAliasForVariableWithName(std::u16string_view alias, std::u16string_view name) {
    if (const auto variable = variableWithName(name)) variable->addAlias(alias);
}

void TCVariableList::removeVariableWithName(std::u16string_view name) {
    removeVariable(variableWithName(name));
}

void TCVariableList::addVariable(const std::shared_ptr<TCVariable>& variable) {
    if (!variable) return;
    addVariableWithoutAddingToTBFVariableList(variable);
    if (variable->enabled()) TBFVariableListAddVariable(list.get(), variable->tbfVariable());
}

void TCVariableList::addVariableWithName(std::u16string_view name, std::optional<std::u16string> value) {
    addVariable(TCVariable::variableWithName(std::u16string(name), std::move(value)));
}

void TCVariableList::addVariableWithoutAddingToTBFVariableList(const std::shared_ptr<TCVariable>& variable) {
    if (!variable) return;
    std::shared_ptr<TCVariable>& place = listed[keyOf(*variable)];
    if (place && place != variable) {
        TBFVariableListRemoveVariable(list.get(), place->tbfVariable());
        place->setVariableList(nullptr);
    }
    place = variable;
    variable->setVariableList(this);
    registerStateChange();
}

void TCVariableList::removeVariable(const std::shared_ptr<TCVariable>& variable) {
    if (!variable) return;
    const std::shared_ptr<TCVariable> held = variable; // the argument may stand in `listed`
    const auto place = listed.find(keyOf(*held));
    if (place == listed.end() || place->second != held) return;
    listed.erase(place);
    TBFVariableListRemoveVariable(list.get(), held->tbfVariable());
    held->setVariableList(nullptr);
    registerStateChange();
}

void TCVariableList::removeAllVariables() {
    for (const auto& [name, variable] : listed)
        variable->setVariableList(nullptr);
    listed.clear();
    TBFVariableListRemoveAll(list.get());
}

void TCVariableList::variableDidUpdateName(TCVariable& variable, const std::optional<std::u16string>& oldName,
                                           const std::u16string& newName) {
    if (oldName == newName) return;
    const auto place = listed.find(oldName.value_or(std::u16string()));
    if (place != listed.end() && place->second.get() == &variable) {
        auto entry = listed.extract(place);
        entry.key() = newName;
        listed.erase(newName);
        listed.insert(std::move(entry));
    }
    registerStateChange();
    if (observer) observer->variableDidUpdateInVariableList(variable, *this);
}

void TCVariableList::variableDidUpdateValue(TCVariable& variable) {
    if (observer) observer->variableDidUpdateInVariableList(variable, *this);
}

void TCVariableList::variableDidChangeEnabledState(TCVariable& variable, bool enabled) {
    registerStateChange();
    if (enabled)
        TBFVariableListAddVariable(list.get(), variable.tbfVariable());
    else
        TBFVariableListRemoveVariable(list.get(), variable.tbfVariable());
    if (observer) observer->variableDidUpdateInVariableList(variable, *this);
}
