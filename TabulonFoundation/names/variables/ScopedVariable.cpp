#include "names/variables/ScopedVariable.h"

#include "results/TBFEvaluationError.h"
#include "units/UnitContainer.h"
#include "units/UnitFraction.h"

namespace TBF {

Ref<ScopedVariable> ScopedVariable::create(Ref<Variable> variable, int32_t scope) {
    return make<ScopedVariable>(std::move(variable), scope);
}

ScopedVariable::ScopedVariable(Ref<Variable> variable, int32_t scope)
    : scopedVariable(std::move(variable))
    , lineIndex(scope) {}

Value* ScopedVariable::value() {
    const VariableValue* const held = scopedVariable->valueAt(lineIndex);
    const M_APM digits = held ? held->mapm() : nullptr;
    if (!digits) {
        lastValue = Value::create(Number::notANumber());
        return lastValue.get();
    }
    // The percent sign is that of the last declaration, whichever value is read.
    const VariableValue* const last = scopedVariable->valueAt(Variable::endScope);
    const bool isPercent = last && last->flags() == TBFResultFlagPercent;
    Ref<UnitFraction> fraction;
    if (const UnitFraction* unit = held->unitFraction()) fraction = unit->copyWithRecomputedMultiplier();
    lastValue = Value::create(Number::create(digits, isPercent ? TBFNumberTypePercent : TBFNumberTypeDecimal),
                              std::move(fraction));
    return lastValue.get();
}

} // namespace TBF
