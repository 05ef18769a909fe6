#include "eval/variables/VariableList.h"

#include "eval/variables/ScopedVariable.h"
#include "eval/variables/StandardVariables.h"
#include "units/UnitContainer.h"

#include <algorithm>

namespace TBF {
namespace {

// Puts `variable` under the key, with a reference for the dictionary, and drops what stood there.
void put(CaseInsensitiveDictionary& dictionary, String& key, Variable& variable) {
    void* replaced = nullptr;
    dictionary.setItem(TBF::retain(&variable).leak(), key, false, &replaced);
    const Ref<Variable> previous = adopt(static_cast<Variable*>(replaced));
}

// Takes the entry of the key out, with its reference.
void take(CaseInsensitiveDictionary& dictionary, String& key) {
    const Ref<Variable> held = adopt(static_cast<Variable*>(dictionary.find(key)));
    dictionary.setItem(nullptr, key, false, nullptr);
}

void releaseAll(CaseInsensitiveDictionary& dictionary) {
    std::vector<Ref<Variable>> held;
    for (void* const item : dictionary.items())
        held.push_back(adopt(static_cast<Variable*>(item)));
    dictionary.removeAll();
}

} // namespace

VariableList::VariableList()
    : variables(CaseInsensitiveDictionary::create())
    , aliases(CaseInsensitiveDictionary::create()) {}

VariableList::~VariableList() {
    for (Variable* const variable : topLevelVariables())
        forget(*variable);
    releaseAll(*variables);
    releaseAll(*aliases);
}

void VariableList::forget(Variable& variable) {
    std::erase(variable.owningLists, this);
}

void VariableList::add(const Ref<Variable>& variable) {
    if (!variable || !variable->name()) return;
    variable->owningLists.push_back(this);
    put(*variables, *variable->name(), *variable);
    for (const Ref<String>& alias : variable->otherNames)
        put(*aliases, *alias, *variable);
}

void VariableList::remove(Variable& variable) {
    if (!variable.name() || variables->find(*variable.name()) != &variable) return;
    const Ref<Variable> alive = TBF::retain(&variable);
    take(*variables, *variable.name());
    for (const Ref<String>& alias : variable.otherNames)
        take(*aliases, *alias);
    const auto entry = std::find(variable.owningLists.begin(), variable.owningLists.end(), this);
    if (entry != variable.owningLists.end()) variable.owningLists.erase(entry);
}

void VariableList::removeAll() {
    for (Variable* const variable : topLevelVariables())
        forget(*variable);
    releaseAll(*variables);
    releaseAll(*aliases);
}

void VariableList::setParentList(Ref<VariableList> list) {
    if (list != this) parentList = std::move(list);
}

VariableList::Match VariableList::find(const HashedText& name, const HashedText& lowercaseName,
                                       bool searchParents) const {
    bool isParent = false;
    for (const VariableList* list = this; list; list = searchParents ? list->parentList.get() : nullptr) {
        for (const CaseInsensitiveDictionary* dictionary : {list->variables.get(), list->aliases.get()}) {
            Match match;
            match.variable = static_cast<Variable*>(dictionary->find(name, lowercaseName, &match.exactCase));
            match.fromParent = isParent;
            if (match.variable) return match;
        }
        isParent = true;
    }
    return {};
}

VariableList::Match VariableList::find(const String& name, const String& lowercaseName,
                                       bool searchParents) const {
    return find(HashedText(name), HashedText(lowercaseName), searchParents);
}

VariableList::Match VariableList::find(const String& name) const {
    return find(name, *name.lowercase());
}

Ref<ScopedVariable> VariableList::resolve(Variable& variable, int32_t scope) const {
    return ScopedVariable::create(TBF::retain(&variable), scope);
}

int32_t VariableList::countOfTopLevelVariables() const {
    return variables->count();
}

int32_t VariableList::countOfVariables() const {
    int32_t count = 0;
    for (const VariableList* list = this; list; list = list->parentList.get())
        count += list->countOfTopLevelVariables();
    return count;
}

std::vector<Variable*> VariableList::topLevelVariables() const {
    std::vector<Variable*> result;
    for (void* const item : variables->items())
        result.push_back(static_cast<Variable*>(item));
    return result;
}

bool VariableList::refusesName(const String& name) const {
    const Match match = find(name);
    return match.variable && match.variable->name() && match.variable->name()->equals(name);
}

void VariableList::moveEntry(Variable& variable, String* oldName, String& newName) {
    const Ref<Variable> alive = TBF::retain(&variable);
    if (oldName) take(*variables, *oldName);
    put(*variables, newName, variable);
}

void VariableList::addAlias(Variable& variable, String& alias) {
    put(*aliases, alias, variable);
}

void VariableList::removeAlias(String& alias) {
    take(*aliases, alias);
}

VariableList& VariableList::standard() {
    static VariableList* const list = makeStandardVariables().leak(); // lives as long as the process
    return *list;
}

} // namespace TBF
