#include "results/EvaluationContext.h"

#include "units/EvalMetadata.h"

#include <utility>

namespace TBF {

EvaluationContext::EvaluationContext(int32_t trigonometryMode) noexcept
    : mode(trigonometryMode) {}
EvaluationContext::~EvaluationContext() = default;

Ref<EvaluationContext> EvaluationContext::create(int32_t trigonometryMode) {
    return make<EvaluationContext>(trigonometryMode);
}

Ref<EvaluationContext> EvaluationContext::createCopy() const {
    Ref<EvaluationContext> copy = create(mode);
    copy->info = info;
    copy->firstError = firstError;
    if (accumulator) {
        copy->accumulator = EvalMetadata::create();
        copy->accumulator->append(*accumulator);
    }
    return copy;
}

void EvaluationContext::setUnitAccumulator(Ref<EvalMetadata> metadata) noexcept {
    accumulator = std::move(metadata);
}

Value* EvaluationContext::operand(std::size_t index) const noexcept {
    return index < operands.size() ? operands[index].get() : nullptr;
}

void EvaluationContext::setOperands(Ref<Value> left, Ref<Value> right) noexcept {
    operands = {std::move(left), std::move(right)};
}

} // namespace TBF
