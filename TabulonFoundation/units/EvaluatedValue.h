#pragma once

// A value and the metadata which its evaluation gathered, for functions whose result depends on the metadata
// of their arguments. Immutable; may be shared between threads as far as the metadata may.

#include "runtime/Object.h"
#include "runtime/Ref.h"

namespace TBF {

class EvalMetadata;
class Value;

class EvaluatedValue final : public Object<EvaluatedValue> {
public:
    // Retains both. `metadata` may be null.
    static Ref<EvaluatedValue> create(Value* value, EvalMetadata* metadata);

    // Shares or takes over what the Refs hold.
    static Ref<EvaluatedValue> create(Ref<Value> value, Ref<EvalMetadata> metadata);

    // Borrowed.
    Value* value() const noexcept { return ownValue.get(); }
    EvalMetadata* metadata() const noexcept { return ownMetadata.get(); }

private:
    friend class Object<EvaluatedValue>;

    EvaluatedValue(Ref<Value> value, Ref<EvalMetadata> metadata) noexcept;
    ~EvaluatedValue() override;

    Ref<Value> ownValue;
    Ref<EvalMetadata> ownMetadata;
};

} // namespace TBF
