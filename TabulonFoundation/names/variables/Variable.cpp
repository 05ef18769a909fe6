#include "names/variables/Variable.h"

#include "names/variables/VariableList.h"
#include "results/TBFEvaluationError.h"
#include "units/UnitContainer.h"

#include <algorithm>
#include <memory>

namespace TBF {
namespace {

void freeValue(void* value) {
    delete static_cast<VariableValue*>(value);
}

} // namespace

Variable::Variable()
    : values(IndexRangeMap::create()) {
    values->setDeallocator(freeValue);
}

Variable::~Variable() = default;

bool Variable::setName(Ref<String> newName) {
    if (newName == ownName) return false;
    if (newName) {
        const auto refuses = [&](const VariableList* list) { return list->refusesName(*newName); };
        if (std::any_of(owningLists.begin(), owningLists.end(), refuses)) return false;
    }
    const Ref<Variable> alive = TBF::retain(this); // a list may have held it alone
    if (!newName)
        for (VariableList* const list : std::vector(owningLists))
            list->remove(*this);
    const Ref<String> oldName = std::exchange(ownName, std::move(newName));
    lowercase.reset();
    for (VariableList* const list : owningLists)
        list->moveEntry(*this, oldName.get());
    return true;
}

String* Variable::lowercaseName() const {
    if (!lowercase && ownName) lowercase = ownName->lowercase();
    return lowercase.get();
}

void Variable::addAlias(Ref<String> alias) {
    if (!alias) return;
    otherNames.push_back(alias);
    for (VariableList* const list : owningLists)
        list->addAlias(*this, *alias);
}

void Variable::removeAlias(const String& alias) {
    const auto found = std::find_if(otherNames.begin(), otherNames.end(),
                                    [&](const Ref<String>& other) { return other->equals(alias); });
    if (found == otherNames.end()) return;
    const Ref<String> removed = std::move(*found);
    otherNames.erase(found);
    const auto isRemoved = [&](const Ref<String>& other) { return other->equals(*removed); };
    if (std::any_of(otherNames.begin(), otherNames.end(), isRemoved)) return; // it was there twice
    for (VariableList* const list : owningLists)
        list->removeAlias(*this, *removed);
}

void Variable::setValue(Ref<String> string, uint32_t flags, Ref<UnitContainer> unitContainer,
                        TBFRange scopes) {
    if (scopes.isEmpty() || scopes.end() <= 0) return; // the map would not take the value
    auto value = std::make_unique<VariableValue>(std::move(string), flags, std::move(unitContainer));
    values->setValue(value.release(), scopes);
}

const VariableValue* Variable::valueAt(int32_t scope) const {
    return static_cast<const VariableValue*>(values->value(scope));
}

Ref<Number> Variable::numberAt(int32_t scope) const {
    const VariableValue* const value = valueAt(scope);
    const M_APM digits = value ? value->mapm() : nullptr;
    if (!digits) return nullptr;
    return Number::create(digits, (value->flags() & TBFResultFlagPercent) ? TBFNumberTypePercent
                                                                          : TBFNumberTypeDecimal);
}

} // namespace TBF
