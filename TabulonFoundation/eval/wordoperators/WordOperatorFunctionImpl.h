#pragma once

// The implementation of "_op1" and "_op2", by which a word operator's template reads its operands.

#include "names/functions/FunctionImplementation.h"

#include <cstdint>

namespace TBF {

class WordOperatorFunctionImpl final : public FunctionImplementation {
public:
    // 0 for the left operand, 1 for the right one.
    explicit WordOperatorFunctionImpl(int32_t operandIndex)
        : index(operandIndex) {}

    // The operand of the word operator that runs in the call's context; null if there is none.
    Ref<Value> execute(const FunctionCall& call, Ref<EvalMetadata>& metadata) const override;
    TBFFunctionImplementationType type() const override { return TBFFunctionImplementationTypeWordOperator; }

private:
    int32_t index;
};

} // namespace TBF
