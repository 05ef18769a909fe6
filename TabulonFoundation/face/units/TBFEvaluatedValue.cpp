#include "face/units/TBFEvaluatedValue.h"

#include "units/EvaluatedValue.h"

using TBF::EvaluatedValue;

TBFEvaluatedValueRef TBFEvaluatedValueCreate(TBF::Value* value, TBF::EvalMetadata* metadata) {
    return EvaluatedValue::create(value, metadata).leak();
}

TBFEvaluatedValueRef TBFEvaluatedValueRetain(TBFEvaluatedValueRef evaluatedValue) {
    return TBF::retain(evaluatedValue).leak();
}

void TBFEvaluatedValueRelease(const EvaluatedValue* evaluatedValue) {
    if (evaluatedValue) evaluatedValue->release();
}
