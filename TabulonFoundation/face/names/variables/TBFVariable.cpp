#include "face/names/variables/TBFVariable.h"

#include "names/variables/ScopedVariable.h"
#include "names/variables/Variable.h"
#include "units/UnitContainer.h"
#include "units/UnitFraction.h"

using TBF::ScopedVariable;
using TBF::Variable;
using TBF::VariableValue;

namespace {

const VariableValue* valueAt(const Variable* variable, int32_t scope) {
    return variable ? variable->valueAt(scope) : nullptr;
}

} // namespace

TBFVariableRef TBFVariableCreate() {
    return Variable::create().leak();
}

TBFVariableRef TBFVariableRetain(TBFVariableRef variable) {
    return TBF::retain(variable).leak();
}

void TBFVariableRelease(const Variable* variable) {
    if (variable) variable->release();
}

bool TBFVariableSetName(TBFVariableRef variable, TBF::String* name) {
    return variable && variable->setName(TBF::retain(name));
}

TBF::String* TBFVariableGetNameReference(const Variable* variable) {
    return variable ? variable->name() : nullptr;
}

TBF::String* TBFVariableGetLowercaseNameReference(const Variable* variable) {
    return variable ? variable->lowercaseName() : nullptr;
}

void TBFVariableAddAlias(TBFVariableRef variable, TBF::String* alias) {
    if (variable) variable->addAlias(TBF::retain(alias));
}

void TBFVariableRemoveAlias(TBFVariableRef variable, const TBF::String* alias) {
    if (variable && alias) variable->removeAlias(*alias);
}

int32_t TBFVariableGetCountOfAliases(const Variable* variable) {
    return variable ? static_cast<int32_t>(variable->aliases().size()) : 0;
}

const std::vector<TBF::Ref<TBF::String>>& TBFVariableGetAliasArrayReference(const Variable* variable) {
    static const std::vector<TBF::Ref<TBF::String>> none;
    return variable ? variable->aliases() : none;
}

void TBFVariableSetValue(TBFVariableRef variable, TBF::String* string, uint32_t flags,
                         TBF::UnitContainer* unitContainer) {
    TBFVariableSetValueForScopeRange(variable, string, flags, unitContainer, {0, TBFRangeLengthMax});
}

void TBFVariableSetValueForScopeRange(TBFVariableRef variable, TBF::String* string, uint32_t flags,
                                      TBF::UnitContainer* unitContainer, TBFRange range) {
    if (variable) variable->setValue(TBF::retain(string), flags, TBF::retain(unitContainer), range);
}

TBF::String* TBFVariableGetValueReference(const Variable* variable) {
    return TBFVariableGetValueReferenceForScopeIndex(variable, Variable::endScope);
}

TBF::String* TBFVariableGetValueReferenceForScopeIndex(const Variable* variable, int32_t index) {
    const VariableValue* const value = valueAt(variable, index);
    return value ? value->string() : nullptr;
}

M_APM TBFVariableGetValueMAPMReference(const Variable* variable) {
    return TBFVariableGetValueMAPMReferenceForScopeIndex(variable, Variable::endScope);
}

M_APM TBFVariableGetValueMAPMReferenceForScopeIndex(const Variable* variable, int32_t index) {
    const VariableValue* const value = valueAt(variable, index);
    return value ? value->mapm() : nullptr;
}

TBF::UnitContainer* TBFVariableGetUnitContainerReference(const Variable* variable) {
    return TBFVariableGetUnitContainerReferenceForScopeIndex(variable, Variable::endScope);
}

TBF::UnitContainer* TBFVariableGetUnitContainerReferenceForScopeIndex(const Variable* variable,
                                                                      int32_t index) {
    const VariableValue* const value = valueAt(variable, index);
    return value ? value->unitContainer() : nullptr;
}

TBF::UnitFraction* TBFVariableGetUnitFractionReference(const Variable* variable) {
    return TBFVariableGetUnitFractionReferenceForScopeIndex(variable, Variable::endScope);
}

TBF::UnitFraction* TBFVariableGetUnitFractionReferenceForScopeIndex(const Variable* variable, int32_t index) {
    const VariableValue* const value = valueAt(variable, index);
    return value ? value->unitFraction() : nullptr;
}

uint32_t TBFVariableGetResultFlags(const Variable* variable) {
    return TBFVariableGetResultFlagsForScopeIndex(variable, Variable::endScope);
}

uint32_t TBFVariableGetResultFlagsForScopeIndex(const Variable* variable, int32_t index) {
    const VariableValue* const value = valueAt(variable, index);
    return value ? value->flags() : 0;
}

TBF::Number* TBFVariableCreateValueNumberForScopeIndex(const Variable* variable, int32_t index) {
    return variable ? variable->numberAt(index).leak() : nullptr;
}

void TBFVariableSetWrapperObject(TBFVariableRef variable, void* object) {
    if (variable) variable->setWrapperObject(object);
}

void* TBFVariableGetWrapperObject(const Variable* variable) {
    return variable ? variable->wrapperObject() : nullptr;
}

TBFScopedVariableRef TBFScopedVariableCreate(TBFVariableRef variable, int32_t scope) {
    return variable ? ScopedVariable::create(TBF::retain(variable), scope).leak() : nullptr;
}

TBFScopedVariableRef TBFScopedVariableRetain(TBFScopedVariableRef scoped) {
    return TBF::retain(scoped).leak();
}

void TBFScopedVariableRelease(const ScopedVariable* scoped) {
    if (scoped) scoped->release();
}

TBFVariableRef TBFScopedVariableGetVariable(const ScopedVariable* scoped) {
    return scoped ? &scoped->variable() : nullptr;
}

TBF::Value* TBFScopedVariableGetValue(TBFScopedVariableRef scoped) {
    return scoped ? scoped->value() : nullptr;
}
