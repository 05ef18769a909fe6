#include "names/functions/Function.h"

#include "numbers/KernelLock.h"
#include "numbers/Number.h"
#include "runtime/TBFLog.h"
#include "units/EvalMetadata.h"
#include "units/Value.h"

#include <algorithm>

namespace TBF {

Ref<Function> Function::create(Ref<String> name, std::vector<Ref<String>> aliases, uint8_t argumentCount) {
    return make<Function>(std::move(name), std::move(aliases), argumentCount);
}

Function::Function(Ref<String> name, std::vector<Ref<String>> aliasNames, uint8_t argumentCount)
    : functionName(name ? std::move(name) : String::empty())
    , lowercase(functionName->lowercase())
    , otherNames(std::move(aliasNames))
    , leastArguments(argumentCount) {}

void Function::setImplementation(std::unique_ptr<FunctionImplementation> newImplementation) {
    implementation = std::move(newImplementation);
}

TBFFunctionImplementationType Function::implementationType() const {
    return implementation ? implementation->type() : TBFFunctionImplementationTypeNone;
}

TBFEvaluationError Function::errorOfDomain(std::span<Value* const> arguments) const {
    if (!domain || arguments.empty() || arguments.size() < leastArguments) return TBFEvaluationErrorNone;
    std::vector<M_APM> digits;
    for (const Value* const argument : arguments) {
        if (!argument || argument->number()->isSpecial()) return TBFEvaluationErrorNone;
        digits.push_back(argument->number()->mapmRef());
    }
    const KernelLock lock;
    return domain->contains(digits) ? TBFEvaluationErrorNone : domain->error;
}

Ref<Value> Function::execute(const FunctionCall& call, Ref<EvalMetadata>* metadata) const {
    Ref<EvalMetadata> unused;
    Ref<EvalMetadata>& gathered = metadata ? *metadata : unused;
    gathered.reset();

    const auto isMissing = [](const Value* value) {
        return !value || value->number()->specialType() == TBFNumberSpecialTypeNaN;
    };
    if (call.arguments.size() < leastArguments ||
        std::any_of(call.arguments.begin(), call.arguments.end(), isMissing))
        return Value::create(Number::notANumber());

    if (!implementation) {
        TBFErrorLog("Unexpected function implementation type");
        return nullptr;
    }
    return implementation->execute(call, gathered);
}

} // namespace TBF
