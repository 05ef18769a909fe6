#include "eval/wordoperators/WordOperatorFunctionImpl.h"

#include "results/EvaluationContext.h"
#include "runtime/TBFLog.h"
#include "units/EvalMetadata.h"
#include "units/Value.h"

namespace TBF {

Ref<Value> WordOperatorFunctionImpl::execute(const FunctionCall& call, Ref<EvalMetadata>&) const {
    if (index != 0 && index != 1) {
        TBFErrorLog("Unexpected operand index %d", index);
        return nullptr;
    }
    return call.context ? retain(call.context->operand(static_cast<std::size_t>(index))) : nullptr;
}

} // namespace TBF
