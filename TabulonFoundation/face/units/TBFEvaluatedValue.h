#pragma once

// The plain functions over handles of evaluated values: a value with the metadata that its evaluation
// gathered. Immutable; may be shared between threads as far as the metadata may.

namespace TBF {
class EvalMetadata;
class EvaluatedValue;
class Value;
} // namespace TBF
using TBFEvaluatedValueRef = TBF::EvaluatedValue*;

// Retains both arguments; the metadata may be null. The caller owns the result.
TBFEvaluatedValueRef TBFEvaluatedValueCreate(TBF::Value* value, TBF::EvalMetadata* metadata);
TBFEvaluatedValueRef TBFEvaluatedValueRetain(TBFEvaluatedValueRef evaluatedValue);
void TBFEvaluatedValueRelease(const TBF::EvaluatedValue* evaluatedValue);
