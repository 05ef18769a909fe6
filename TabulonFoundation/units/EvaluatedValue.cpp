#include "units/EvaluatedValue.h"

#include "units/EvalMetadata.h"
#include "units/Value.h"

#include <utility>

namespace TBF {

EvaluatedValue::EvaluatedValue(Ref<Value> value, Ref<EvalMetadata> metadata) noexcept
    : ownValue(std::move(value))
    , ownMetadata(std::move(metadata)) {}

EvaluatedValue::~EvaluatedValue() = default;

Ref<EvaluatedValue> EvaluatedValue::create(Value* value, EvalMetadata* metadata) {
    return make<EvaluatedValue>(TBF::retain(value), TBF::retain(metadata));
}

Ref<EvaluatedValue> EvaluatedValue::create(Ref<Value> value, Ref<EvalMetadata> metadata) {
    return make<EvaluatedValue>(std::move(value), std::move(metadata));
}

} // namespace TBF
