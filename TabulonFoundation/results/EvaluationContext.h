#pragma once

// What one evaluation carries from node to node: the angle mode, the caller's information for functions,
// the first error, and the metadata of the result. While a word operator's template runs, a copy of the
// context holds the operands. Functions get it as an argument; it belongs to the evaluating thread.

#include "results/TBFEvaluationError.h"
#include "runtime/Object.h"
#include "runtime/Ref.h"
#include "units/Value.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace TBF {

class EvalMetadata;

class EvaluationContext final : public Object<EvaluationContext> {
public:
    static Ref<EvaluationContext> create(int32_t trigonometryMode);

    // The same mode, information and error, and a copy of the metadata. The operand slots are empty.
    Ref<EvaluationContext> createCopy() const;

    // 1 degrees, 2 radians, 0 not set.
    int32_t trigonometryMode() const noexcept { return mode; }

    // Whatever the evaluator's owner set; for the lines of a document, a TCEvaluationContext. Borrowed:
    // the owner keeps it until the evaluation is over.
    void* contextInfo() const noexcept { return info; }
    void setContextInfo(void* contextInfo) noexcept { info = contextInfo; }

    // TBFEvaluationErrorNone until something fails; any other value stops the walk.
    TBFEvaluationError error() const noexcept { return firstError; }
    void setError(TBFEvaluationError error) noexcept { firstError = error; }

    // Borrowed; null before the end of an evaluation, and for results that named no units.
    EvalMetadata* unitAccumulator() const noexcept { return accumulator.get(); }
    void setUnitAccumulator(Ref<EvalMetadata> metadata) noexcept;

    // The operands of the running word operator: 0 left, 1 right. Borrowed; null for an empty slot.
    Value* operand(std::size_t index) const noexcept;
    void setOperands(Ref<Value> left, Ref<Value> right) noexcept;

private:
    friend class Object<EvaluationContext>;
    explicit EvaluationContext(int32_t trigonometryMode) noexcept;
    ~EvaluationContext() override;

    int32_t mode;
    void* info = nullptr;
    TBFEvaluationError firstError = TBFEvaluationErrorNone;
    Ref<EvalMetadata> accumulator;
    std::array<Ref<Value>, 2> operands;
};

} // namespace TBF
