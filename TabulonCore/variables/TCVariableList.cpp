#include "variables/TCVariableList.h"

#include "environment/TCEnvironment.h"
#include "environment/TCWarnLog.h"
#include "names/variables/VariableList.h"
#include "runtime/String.h"
#include "runtime/Unicode.h"
#include "units/UnitContainer.h"
#include "variables/TCVariable.h"

#include <algorithm>
#include <utility>

namespace {

TBF::Ref<TBF::String> keyOf(const TCVariable& variable) {
    TBF::String* const name = variable.tbfVariable()->name();
    return name ? TBF::retain(name) : TBF::String::empty();
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
    TBF::VariableList& standard = TBF::VariableList::startedStandard();
    variables->list->setParentList(TBF::retain(&standard));
    for (TBF::Variable* const variable : standard.topLevelVariables())
        variables->addVariableWithoutAddingToTBFVariableList(
            TCVariable::variableWithTBFVariable(TBF::retain(variable)));
    return variables;
}

std::shared_ptr<TCVariableList> TCVariableList::sharedList() {
    const std::shared_ptr<TCEnvironment> environment = TCEnvironment::current();
    return environment ? environment->variables() : nullptr;
}

void TCVariableList::setParentList(std::shared_ptr<TCVariableList> newParent) {
    for (const TCVariableList* each = newParent.get(); each; each = each->parent.get())
        if (each == this) return;
    parent = std::move(newParent);
    list->setParentList(parent ? parent->list : nullptr);
    registerStateChange();
}

int32_t TCVariableList::countOfTopLevelVariables() const {
    return list->countOfTopLevelVariables();
}

int32_t TCVariableList::countOfAllVariables() const {
    return list->countOfVariables();
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
        names.push_back(name->utf16());
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
    for (const TCVariableList* each = this; each; each = each->parent.get())
        if (auto variable = each->listedVariable(*match.variable)) return variable;
    auto* const variable = static_cast<TCVariable*>(match.variable->wrapperObject());
    return variable ? variable->weak_from_this().lock() : nullptr;
}

// Lists that share a foundation variable, as a standard one, each have an object of their own over it.
std::shared_ptr<TCVariable> TCVariableList::listedVariable(const TBF::Variable& variable) const {
    if (!variable.name()) return nullptr;
    const auto [first, last] = listed.equal_range(variable.name());
    const auto place = std::find_if(
        first, last, [&](const auto& entry) { return entry.second->tbfVariable() == &variable; });
    return place == last ? nullptr : place->second;
}

// The name may be out of date for a variable that was renamed while another list was the one it tells.
TCVariableList::Listed::const_iterator TCVariableList::placeOf(const TCVariable& variable,
                                                               std::u16string_view name) const {
    const auto isIt = [&](const auto& entry) { return entry.second.get() == &variable; };
    const auto [first, last] = listed.equal_range(name);
    const auto place = std::find_if(first, last, isIt);
    return place != last ? place : std::find_if(listed.begin(), listed.end(), isIt);
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
    if (variable->enabled()) list->add(TBF::retain(variable->tbfVariable()));
}

void TCVariableList::addVariableWithName(std::u16string_view name, std::optional<std::u16string> value) {
    addVariable(TCVariable::variableWithName(std::u16string(name), std::move(value)));
}

void TCVariableList::addVariableWithoutAddingToTBFVariableList(const std::shared_ptr<TCVariable>& variable) {
    if (!variable) return;
    const std::shared_ptr<TCVariable> held = variable; // the argument may stand in `listed`
    TBF::Ref<TBF::String> name = keyOf(*held);
    for (auto place = listed.find(name); place != listed.end(); place = listed.find(name)) {
        if (place->second != held) list->remove(*place->second->tbfVariable());
        letGo(place);
    }
    if (held->variableList()) // it may be listed here under the name it had
        if (const auto place = placeOf(*held, name->view()); place != listed.end()) listed.erase(place);
    listed.emplace(std::move(name), held);
    held->setVariableList(this);
    registerStateChange();
}

void TCVariableList::removeVariable(const std::shared_ptr<TCVariable>& variable) {
    if (!variable) return;
    const std::shared_ptr<TCVariable> held = variable; // the argument may stand in `listed`
    const auto place = placeOf(*held, keyOf(*held)->view());
    if (place == listed.end()) return;
    letGo(place);
    removeFromTBFVariableList(*held);
    registerStateChange();
}

// Takes the entry out; the variable no longer tells this list of its changes.
void TCVariableList::letGo(Listed::const_iterator place) {
    if (place->second->variableList() == this) place->second->setVariableList(nullptr);
    listed.erase(place);
}

// Another enabled variable of the name that stood behind it is found again.
void TCVariableList::removeFromTBFVariableList(const TCVariable& variable) {
    list->remove(*variable.tbfVariable());
    const auto [first, last] = listed.equal_range(keyOf(variable));
    const auto next = std::find_if(first, last, [&](const auto& entry) {
        return entry.second.get() != &variable && entry.second->enabled();
    });
    if (next != last) list->add(TBF::retain(next->second->tbfVariable()));
}

void TCVariableList::removeAllVariables() {
    while (!listed.empty())
        letGo(listed.begin());
    list->removeAll();
}

void TCVariableList::variableDidUpdateName(TCVariable& variable, const std::optional<std::u16string>& oldName,
                                           const std::u16string& newName) {
    if (oldName == newName) return;
    const auto place = placeOf(variable, oldName.value_or(std::u16string()));
    if (place != listed.end()) {
        auto entry = listed.extract(place);
        entry.key() = TBF::String::create(newName);
        listed.insert(std::move(entry));
    }
    registerStateChange();
    tellDelegate(variable);
}

void TCVariableList::variableDidUpdateValue(TCVariable& variable) {
    tellDelegate(variable);
}

void TCVariableList::variableDidChangeEnabledState(TCVariable& variable, bool enabled) {
    registerStateChange();
    if (enabled)
        list->add(TBF::retain(variable.tbfVariable()));
    else
        removeFromTBFVariableList(variable);
    tellDelegate(variable);
}

bool TCVariableList::variableCanChangeNameTo(const TCVariable&, std::u16string_view) const {
    return true;
}

// Names are found in any case, whatever a variable says.
void TCVariableList::variableDidChangeCaseSensitiveState(TCVariable&, bool) {}

void TCVariableList::_setVariableIsCaseSensitive(TCVariable&, bool) {}

// Last in every operation: the delegate may take the variable out, or let go of the list.
void TCVariableList::tellDelegate(TCVariable& variable) {
    const std::shared_ptr<TCVariable> held = variable.weak_from_this().lock();
    if (observer) observer->variableDidUpdateInVariableList(variable, *this);
}
