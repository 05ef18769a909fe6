#pragma once

// The plain functions over evaluation contexts. Null handles are accepted everywhere. One thread uses a
// context.

#include "results/TBFEvaluationError.h"

#include <cstdint>

namespace TBF {
class EvalMetadata;
class EvaluationContext;
} // namespace TBF
using TBFEvaluationContextRef = TBF::EvaluationContext*;
using TBFEvalMetadataRef = TBF::EvalMetadata*;

// Create. The caller owns the result. The copy's operand slots are empty.
TBFEvaluationContextRef TBFEvaluationContextCreate(int32_t trigonometryMode);
TBFEvaluationContextRef TBFEvaluationContextCreateCopy(const TBF::EvaluationContext* context);
TBFEvaluationContextRef TBFEvaluationContextRetain(TBFEvaluationContextRef context);
void TBFEvaluationContextRelease(const TBF::EvaluationContext* context);

// Retains the metadata.
void TBFEvaluationContextSetUnitAccumulator(TBFEvaluationContextRef context, TBFEvalMetadataRef metadata);

int32_t TBFEvaluationContextGetTrigonometryMode(const TBF::EvaluationContext* context); // 0 for null
void* TBFEvaluationContextGetContextInfo(const TBF::EvaluationContext* context);        // borrowed
TBFEvaluationError TBFEvaluationContextGetError(const TBF::EvaluationContext* context);
void TBFEvaluationContextSetError(TBFEvaluationContextRef context, TBFEvaluationError error);
