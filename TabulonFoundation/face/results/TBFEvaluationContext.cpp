#include "face/results/TBFEvaluationContext.h"

#include "results/EvaluationContext.h"
#include "units/EvalMetadata.h"

using TBF::EvaluationContext;

TBFEvaluationContextRef TBFEvaluationContextCreate(int32_t trigonometryMode) {
    return EvaluationContext::create(trigonometryMode).leak();
}

TBFEvaluationContextRef TBFEvaluationContextCreateCopy(const EvaluationContext* context) {
    return context ? context->createCopy().leak() : nullptr;
}

TBFEvaluationContextRef TBFEvaluationContextRetain(TBFEvaluationContextRef context) {
    return TBF::retain(context).leak();
}

void TBFEvaluationContextRelease(const EvaluationContext* context) {
    if (context) context->release();
}

void TBFEvaluationContextSetUnitAccumulator(TBFEvaluationContextRef context, TBFEvalMetadataRef metadata) {
    if (context) context->setUnitAccumulator(TBF::retain(metadata));
}

int32_t TBFEvaluationContextGetTrigonometryMode(const EvaluationContext* context) {
    return context ? context->trigonometryMode() : 0;
}

void* TBFEvaluationContextGetContextInfo(const EvaluationContext* context) {
    return context ? context->contextInfo() : nullptr;
}

TBFEvaluationError TBFEvaluationContextGetError(const EvaluationContext* context) {
    return context ? context->error() : TBFEvaluationErrorNone;
}

void TBFEvaluationContextSetError(TBFEvaluationContextRef context, TBFEvaluationError error) {
    if (context) context->setError(error);
}
