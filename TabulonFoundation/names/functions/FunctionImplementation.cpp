#include "names/functions/FunctionImplementation.h"

#include "numbers/Decimal.h"
#include "numbers/KernelLock.h"
#include "numbers/MAPMContext.h"
#include "numbers/Number.h"
#include "results/EvaluationContext.h"
#include "units/EvalMetadata.h"
#include "units/EvaluatedValue.h"
#include "units/Value.h"

#include <algorithm>
#include <vector>

namespace TBF {
namespace {

bool allHaveDigits(std::span<Value* const> values) {
    return std::none_of(values.begin(), values.end(),
                        [](const Value* value) { return value->number()->isSpecial(); });
}

Ref<Value> notANumber() {
    return Value::create(Number::notANumber());
}

} // namespace

Ref<Value> FunctionImplementationLegacyMAPM::execute(const FunctionCall& call, Ref<EvalMetadata>&) const {
    if (!allHaveDigits(call.arguments)) return notANumber();
    std::vector<M_APM> reversed;
    reversed.reserve(call.arguments.size());
    for (auto value = call.arguments.rbegin(); value != call.arguments.rend(); ++value)
        reversed.push_back((*value)->number()->mapmRef());

    const KernelLock lock;
    Decimal result;
    if (!body(result, reversed)) return notANumber();
    return Value::create(Number::create(std::move(result), TBFNumberTypeDecimal));
}

Ref<Value> FunctionImplementationMAPM::execute(const FunctionCall& call, Ref<EvalMetadata>&) const {
    if (!allHaveDigits(call.arguments)) return notANumber();
    const KernelLock lock;
    body(call);
    return Value::create(Number::create(call.registers.r0(), TBFNumberTypeDecimal));
}

Ref<Value> FunctionImplementationTBFValue::execute(const FunctionCall& call, Ref<EvalMetadata>&) const {
    return body(call);
}

Ref<Value> FunctionImplementationTBFEvaluatedValue::execute(const FunctionCall& call,
                                                            Ref<EvalMetadata>& metadata) const {
    const Ref<EvaluatedValue> evaluated = body(call);
    if (!evaluated) return nullptr;
    metadata = retain(evaluated->metadata());
    return retain(evaluated->value());
}

} // namespace TBF
