#include "face/names/variables/TBFVariableList.h"

#include "names/variables/ScopedVariable.h"
#include "names/variables/VariableList.h"

using TBF::Variable;
using TBF::VariableList;

namespace {

TBFVariableRef report(const VariableList::Match& match, bool* exactCase, bool* fromParent) {
    if (exactCase) *exactCase = match.exactCase;
    if (fromParent) *fromParent = match.fromParent;
    return match.variable;
}

} // namespace

void TBFStandardVariablesInit() {
    VariableList::startStandard();
}

TBFVariableListRef TBFStandardVariablesGetSharedListReference() {
    return &VariableList::startedStandard();
}

TBFVariableListRef TBFVariableListGetStandardList() {
    return TBFStandardVariablesGetSharedListReference();
}

TBFVariableListRef TBFVariableListCreate() {
    return VariableList::create().leak();
}

TBFVariableListRef TBFVariableListRetain(TBFVariableListRef list) {
    return TBF::retain(list).leak();
}

void TBFVariableListRelease(const VariableList* list) {
    if (list) list->release();
}

void TBFVariableListAddVariable(TBFVariableListRef list, TBFVariableRef variable) {
    if (list) list->add(TBF::retain(variable));
}

void TBFVariableListRemoveVariable(TBFVariableListRef list, TBFVariableRef variable) {
    if (list && variable) list->remove(*variable);
}

void TBFVariableListRemoveAll(TBFVariableListRef list) {
    if (list) list->removeAll();
}

void TBFVariableListSetParentList(TBFVariableListRef list, TBFVariableListRef parent) {
    if (list) list->setParentList(TBF::retain(parent));
}

TBFVariableRef TBFVariableListGetVariableByName(const VariableList* list, const TBF::String* name) {
    return TBFVariableListFindVariableByName(list, name, nullptr, nullptr);
}

TBFVariableRef TBFVariableListFindVariableByName(const VariableList* list, const TBF::String* name,
                                                 bool* exactCase, bool* fromParent) {
    return report(list && name ? list->find(*name) : VariableList::Match{}, exactCase, fromParent);
}

TBFVariableRef TBFVariableListFindVariableByNameAndLowercaseName(const VariableList* list,
                                                                 const TBF::String* name,
                                                                 const TBF::String* lowercaseName,
                                                                 bool searchParents, bool* exactCase,
                                                                 bool* fromParent) {
    const bool canSearch = list && name && lowercaseName;
    return report(canSearch ? list->find(*name, *lowercaseName, searchParents) : VariableList::Match{},
                  exactCase, fromParent);
}

bool TBFVariableListContains(const VariableList* list, const TBF::String* name) {
    return TBFVariableListGetVariableByName(list, name) != nullptr;
}

bool TBFVariableListContainsVariable(const VariableList* list, const Variable* variable) {
    return variable && TBFVariableListContains(list, variable->name());
}

TBFScopedVariableRef TBFVariableListResolveScope(const VariableList* list, TBFVariableRef variable,
                                                 int32_t scope) {
    return list && variable ? list->resolve(*variable, scope).leak() : nullptr;
}

int32_t TBFVariableListGetCount(const VariableList* list) {
    return list ? list->countOfTopLevelVariables() : 0;
}

int32_t TBFVariableListGetCountOfTopLevelVariables(const VariableList* list) {
    return TBFVariableListGetCount(list);
}

int32_t TBFVariableListGetCountOfVariables(const VariableList* list) {
    return list ? list->countOfVariables() : 0;
}

std::vector<TBFVariableRef> TBFVariableListCopyTopLevelVariables(const VariableList* list) {
    return list ? list->topLevelVariables() : std::vector<TBFVariableRef>{};
}
