#pragma once

// The plain functions over lists of variables. Null handles give null, 0, false or nothing. A list is
// changed on the document's thread alone.

#include "face/names/variables/TBFVariable.h"

#include <vector>

namespace TBF {
class VariableList;
}
using TBFVariableListRef = TBF::VariableList*;

// Makes the list of the standard variables, once; a later call does nothing.
void TBFStandardVariablesInit();

// Borrowed, for ever. Only after TBFStandardVariablesInit.
TBFVariableListRef TBFStandardVariablesGetSharedListReference();
TBFVariableListRef TBFVariableListGetStandardList();

// Create. The caller owns the result.
TBFVariableListRef TBFVariableListCreate();
TBFVariableListRef TBFVariableListRetain(TBFVariableListRef list);
void TBFVariableListRelease(const TBF::VariableList* list);

// Change. The list takes references of its own.
void TBFVariableListAddVariable(TBFVariableListRef list, TBFVariableRef variable);
void TBFVariableListRemoveVariable(TBFVariableListRef list, TBFVariableRef variable);
void TBFVariableListRemoveAll(TBFVariableListRef list);
void TBFVariableListSetParentList(TBFVariableListRef list, TBFVariableListRef parent);

// Read. Names are matched in any case, through aliases and parents. Variables are borrowed from the list,
// the out arguments may be null.
TBFVariableRef TBFVariableListGetVariableByName(const TBF::VariableList* list, const TBF::String* name);
TBFVariableRef TBFVariableListFindVariableByName(const TBF::VariableList* list, const TBF::String* name,
                                                 bool* exactCase, bool* fromParent);
TBFVariableRef TBFVariableListFindVariableByNameAndLowercaseName(const TBF::VariableList* list,
                                                                 const TBF::String* name,
                                                                 const TBF::String* lowercaseName,
                                                                 bool searchParents, bool* exactCase,
                                                                 bool* fromParent);
bool TBFVariableListContains(const TBF::VariableList* list, const TBF::String* name);
bool TBFVariableListContainsVariable(const TBF::VariableList* list, const TBF::Variable* variable);

// A new scoped variable, owned by the caller.
TBFScopedVariableRef TBFVariableListResolveScope(const TBF::VariableList* list, TBFVariableRef variable,
                                                 int32_t scope);

// The names in this list alone (the first two), and with those of all its parents.
int32_t TBFVariableListGetCount(const TBF::VariableList* list);
int32_t TBFVariableListGetCountOfTopLevelVariables(const TBF::VariableList* list);
int32_t TBFVariableListGetCountOfVariables(const TBF::VariableList* list);
std::vector<TBFVariableRef> TBFVariableListCopyTopLevelVariables(const TBF::VariableList* list);
