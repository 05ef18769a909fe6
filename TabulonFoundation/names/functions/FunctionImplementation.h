#pragma once

// What stands behind a function's name: an object made around one plain function. The kinds differ in
// what that function takes and gives: digits alone, values, or values with what the evaluation gathered.
// Implementations hold no state that a call changes, so that one may run on several threads.

#include "m_apm.h"
#include "names/functions/TBFFunctionImplementationType.h"
#include "runtime/Ref.h"

#include <span>

namespace TBF {

class EvalMetadata;
class EvaluatedValue;
class EvaluationContext;
class MAPMContext;
class Value;

// One call: the argument values in the order of writing, none of them null; the precision and the
// scratch registers; and the evaluation that it belongs to, which is null outside of one: the mode is
// radians then, and errors have nowhere to go.
struct FunctionCall {
    std::span<Value* const> arguments;
    MAPMContext& registers;
    EvaluationContext* context = nullptr;
};

class FunctionImplementation {
public:
    FunctionImplementation() = default;
    FunctionImplementation(const FunctionImplementation&) = delete;
    FunctionImplementation& operator=(const FunctionImplementation&) = delete;
    virtual ~FunctionImplementation() = default;

    // Null when there is no value, as after an error. `metadata` is never null; it stays as it is for
    // the kinds that gather nothing.
    virtual Ref<Value> execute(const FunctionCall& call, Ref<EvalMetadata>& metadata) const = 0;
    virtual TBFFunctionImplementationType type() const = 0;
};

// Digits to digits. The arguments come in reverse order, the last one first, and all have digits. False
// when there is no answer, which makes the function's value not-a-number. Runs under the kernel's lock.
class FunctionImplementationLegacyMAPM final : public FunctionImplementation {
public:
    using Body = bool (*)(M_APM result, std::span<const M_APM> reversedArguments);

    explicit FunctionImplementationLegacyMAPM(Body plainFunction)
        : body(plainFunction) {}
    Ref<Value> execute(const FunctionCall& call, Ref<EvalMetadata>& metadata) const override;
    TBFFunctionImplementationType type() const override { return TBFFunctionImplementationTypeLegacyMAPM; }

private:
    Body body;
};

// Values to digits, which the body leaves in the first register. Arguments without digits (infinities)
// don't reach the body: they give not-a-number. Units and percent signs of arguments have no effect.
class FunctionImplementationMAPM final : public FunctionImplementation {
public:
    using Body = void (*)(const FunctionCall& call);

    explicit FunctionImplementationMAPM(Body plainFunction)
        : body(plainFunction) {}
    Ref<Value> execute(const FunctionCall& call, Ref<EvalMetadata>& metadata) const override;
    TBFFunctionImplementationType type() const override { return TBFFunctionImplementationTypeMAPM; }

private:
    Body body;
};

// Values to a value, or to null after an error.
class FunctionImplementationTBFValue final : public FunctionImplementation {
public:
    using Body = Ref<Value> (*)(const FunctionCall& call);

    explicit FunctionImplementationTBFValue(Body plainFunction)
        : body(plainFunction) {}
    Ref<Value> execute(const FunctionCall& call, Ref<EvalMetadata>& metadata) const override;
    TBFFunctionImplementationType type() const override { return TBFFunctionImplementationTypeTBFValue; }

private:
    Body body;
};

// Values to a value with the metadata that stands behind it, as references to other lines have it.
class FunctionImplementationTBFEvaluatedValue final : public FunctionImplementation {
public:
    using Body = Ref<EvaluatedValue> (*)(const FunctionCall& call);

    explicit FunctionImplementationTBFEvaluatedValue(Body plainFunction)
        : body(plainFunction) {}
    Ref<Value> execute(const FunctionCall& call, Ref<EvalMetadata>& metadata) const override;
    TBFFunctionImplementationType type() const override {
        return TBFFunctionImplementationTypeTBFEvaluatedValue;
    }

private:
    Body body;
};

} // namespace TBF
