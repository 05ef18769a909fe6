#include "names/variables/VariableList.h"

#include "names/variables/ScopedVariable.h"
#include "names/variables/StandardVariables.h"
#include "runtime/TBFLog.h"
#include "units/UnitContainer.h"

#include <algorithm>

namespace TBF {
namespace {

// The standard list, null before the start-up has run.
VariableList* s_builtInVariables = nullptr;

// Puts `variable` under the key, with a reference for the dictionary, and gives what stood there.
Ref<Variable> put(CaseInsensitiveDictionary& dictionary, String& key, Variable& variable) {
    void* replaced = nullptr;
    dictionary.setItem(TBF::retain(&variable).leak(), key, false, &replaced);
    return adopt(static_cast<Variable*>(replaced));
}

// Takes the variable out from under the key, with the dictionary's reference. Another variable that stands
// there, or under another casing of the key, stays.
void take(CaseInsensitiveDictionary& dictionary, String& key, const Variable& variable) {
    bool exactCase = false;
    const Ref<String> lowercaseKey = key.lowercase();
    if (dictionary.find(HashedText(key), HashedText(*lowercaseKey), &exactCase) != &variable || !exactCase)
        return;
    const Ref<const Variable> held = adopt(&variable);
    dictionary.setItem(nullptr, key, *lowercaseKey, false, nullptr);
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
    removeAll();
}

void VariableList::add(const Ref<Variable>& variable) {
    if (!variable || !variable->name()) return;
    enter(*variable);
    auto& lists = variable->owningLists;
    if (std::find(lists.begin(), lists.end(), this) == lists.end()) lists.push_back(this);
    for (const Ref<String>& alias : variable->otherNames)
        addAlias(*variable, *alias);
}

// A variable that had the name leaves the list whole: nothing of it may be left that doesn't know the list.
void VariableList::enter(Variable& variable) {
    const Ref<Variable> previous = put(*variables, *variable.name(), variable);
    if (previous && previous != &variable) forget(*previous);
}

void VariableList::forget(Variable& variable) {
    for (const Ref<String>& alias : variable.otherNames)
        take(*aliases, *alias, variable);
    std::erase(variable.owningLists, this);
}

void VariableList::remove(Variable& variable) {
    if (!variable.name() || variables->find(*variable.name()) != &variable) return;
    const Ref<Variable> alive = TBF::retain(&variable);
    take(*variables, *variable.name(), variable);
    forget(variable);
}

void VariableList::removeAll() {
    for (Variable* const variable : topLevelVariables())
        std::erase(variable->owningLists, this);
    releaseAll(*variables);
    releaseAll(*aliases);
}

// A list that already stands somewhere below isn't taken: lookups would go round for ever.
void VariableList::setParentList(Ref<VariableList> list) {
    for (const VariableList* each = list.get(); each; each = each->parentList.get())
        if (each == this) return;
    parentList = std::move(list);
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

void VariableList::moveEntry(Variable& variable, String* oldName) {
    const Ref<Variable> alive = TBF::retain(&variable);
    if (oldName) take(*variables, *oldName, variable);
    enter(variable);
}

void VariableList::addAlias(Variable& variable, String& alias) {
    const Ref<Variable> previous = put(*aliases, alias, variable);
}

void VariableList::removeAlias(Variable& variable, String& alias) {
    take(*aliases, alias, variable);
}

VariableList& VariableList::standard() {
    static VariableList* const list = makeStandardVariables().leak(); // lives as long as the process
    return *list;
}

void VariableList::startStandard() {
    s_builtInVariables = &standard();
}

VariableList& VariableList::startedStandard() {
    VerifyTrue(s_builtInVariables, "");
    return *s_builtInVariables;
}

} // namespace TBF
