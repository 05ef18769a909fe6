#pragma once

// The plain functions over variables and scoped variables. Null handles give null, 0, false or nothing.
// Used on the thread that runs the document.

#include "m_apm.h"
#include "results/TBFEvaluationError.h"
#include "runtime/Ref.h"
#include "runtime/TBFTypes.h"

#include <cstdint>
#include <vector>

namespace TBF {
class Number;
class ScopedVariable;
class String;
class UnitContainer;
class UnitFraction;
class Value;
class Variable;
} // namespace TBF
using TBFVariableRef = TBF::Variable*;
using TBFScopedVariableRef = TBF::ScopedVariable*;

// Create. The caller owns the result.
TBFVariableRef TBFVariableCreate();
TBFVariableRef TBFVariableRetain(TBFVariableRef variable);
void TBFVariableRelease(const TBF::Variable* variable);

// Names. Setting one is refused, with false, for the very string held and for the name of another
// variable in a list that holds this one. References are borrowed.
bool TBFVariableSetName(TBFVariableRef variable, TBF::String* name);
TBF::String* TBFVariableGetNameReference(const TBF::Variable* variable);
TBF::String* TBFVariableGetLowercaseNameReference(const TBF::Variable* variable);
void TBFVariableAddAlias(TBFVariableRef variable, TBF::String* alias);
void TBFVariableRemoveAlias(TBFVariableRef variable, const TBF::String* alias);
int32_t TBFVariableGetCountOfAliases(const TBF::Variable* variable);
const std::vector<TBF::Ref<TBF::String>>& TBFVariableGetAliasArrayReference(const TBF::Variable* variable);

// Values. `string` is delocalized text or null; of `flags` bit 0 marks a percentage; the unit may be null.
void TBFVariableSetValue(TBFVariableRef variable, TBF::String* string, uint32_t flags,
                         TBF::UnitContainer* unitContainer);
void TBFVariableSetValueForScopeRange(TBFVariableRef variable, TBF::String* string, uint32_t flags,
                                      TBF::UnitContainer* unitContainer, TBFRange range);

// Read. The plain forms read the value behind the last line, the others that at a line index. References
// are borrowed until the next change of the value.
TBF::String* TBFVariableGetValueReference(const TBF::Variable* variable);
TBF::String* TBFVariableGetValueReferenceForScopeIndex(const TBF::Variable* variable, int32_t index);
M_APM TBFVariableGetValueMAPMReference(const TBF::Variable* variable);
M_APM TBFVariableGetValueMAPMReferenceForScopeIndex(const TBF::Variable* variable, int32_t index);
TBF::UnitContainer* TBFVariableGetUnitContainerReference(const TBF::Variable* variable);
TBF::UnitContainer* TBFVariableGetUnitContainerReferenceForScopeIndex(const TBF::Variable* variable,
                                                                      int32_t index);
TBF::UnitFraction* TBFVariableGetUnitFractionReference(const TBF::Variable* variable);
TBF::UnitFraction* TBFVariableGetUnitFractionReferenceForScopeIndex(const TBF::Variable* variable,
                                                                    int32_t index);
uint32_t TBFVariableGetResultFlags(const TBF::Variable* variable);
uint32_t TBFVariableGetResultFlagsForScopeIndex(const TBF::Variable* variable, int32_t index);

// A new number, owned by the caller; null without digits.
TBF::Number* TBFVariableCreateValueNumberForScopeIndex(const TBF::Variable* variable, int32_t index);

// The core layer's object over the variable, borrowed.
void TBFVariableSetWrapperObject(TBFVariableRef variable, void* object);
void* TBFVariableGetWrapperObject(const TBF::Variable* variable);

// Scoped variables. `scope` is the line index at which values are read.
TBFScopedVariableRef TBFScopedVariableCreate(TBFVariableRef variable, int32_t scope);
TBFScopedVariableRef TBFScopedVariableRetain(TBFScopedVariableRef scoped);
void TBFScopedVariableRelease(const TBF::ScopedVariable* scoped);
TBFVariableRef TBFScopedVariableGetVariable(const TBF::ScopedVariable* scoped);

// The value now; borrowed until the next read.
TBF::Value* TBFScopedVariableGetValue(TBFScopedVariableRef scoped);
