#include "lines/TCLineReferenceFunctions.h"

#include "environment/TCEvaluationContext.h"
#include "lines/TCLine.h"
#include "lines/TCLineCollection.h"
#include "numbers/Number.h"
#include "results/EvaluationContext.h"
#include "results/Result.h"
#include "results/TCResult.h"
#include "units/EvalMetadata.h"
#include "units/EvaluatedValue.h"
#include "units/UnitFraction.h"
#include "units/Value.h"

#include <utility>

using TBF::EvaluatedValue;
using TBF::FunctionCall;
using TBF::Ref;

namespace {

constexpr int64_t selfReferenceError = 0x1000001;

Ref<EvaluatedValue> notANumber() {
    return EvaluatedValue::create(TBF::Value::create(TBF::Number::notANumber()), nullptr);
}

// The unit of a result and how its line wrote it, as if this line had named the unit itself.
Ref<TBF::EvalMetadata> metadataOf(const TBF::Result& result, const TBF::UnitFraction& fraction) {
    auto metadata = TBF::EvalMetadata::create();
    metadata->appendUnitFraction(&fraction);
    for (const auto& entry : fraction.unitDegrees()) {
        metadata->appendUnitNameFormatMapping(entry.unit.get(), result.nameFormat(*entry.unit));
    }
    return metadata;
}

// The value of a number's result, in full precision.
Ref<EvaluatedValue> valueOf(const TCResult& result) {
    TBF::Result* const source = result.tbfResult();
    const M_APM digits = source ? source->mapm() : nullptr;
    if (!digits) return nullptr;
    auto number =
        TBF::Number::create(digits, result.isPercent() ? TBFNumberTypePercent : TBFNumberTypeDecimal);
    const TBF::UnitFraction* const fraction = source->unitFraction();
    if (!fraction) return EvaluatedValue::create(TBF::Value::create(std::move(number)), nullptr);
    auto metadata = metadataOf(*source, *fraction);
    return EvaluatedValue::create(
        TBF::Value::create(std::move(number), fraction->copyWithRecomputedMultiplier()), std::move(metadata));
}

// The answer at a zero-based line index.
Ref<EvaluatedValue> answerOfLine(int64_t target, TCEvaluationContext& context) {
    if (target == static_cast<int64_t>(context.lineIndex())) {
        context.setEvaluatorError(selfReferenceError);
        return notANumber();
    }
    TCLineCollection* const lines = context.lineCollection();
    if (!lines || !lines->lineIndexIsValid(target)) return notANumber();
    const auto line = lines->lineAtIndex(static_cast<std::size_t>(target));
    int64_t error = 0;
    const auto result = line ? line->_resultAlongPath(context.indexPath(), &error) : nullptr;
    if (!result || result->resultType() != TCResultTypeNumber) return notANumber();
    return valueOf(*result);
}

TCEvaluationContext* documentOf(const FunctionCall& call) {
    return call.context ? static_cast<TCEvaluationContext*>(call.context->contextInfo()) : nullptr;
}

int64_t argumentOf(const FunctionCall& call) {
    const TBF::Number& number = *call.arguments.front()->number();
    return number.isSpecial() ? -1 : number.int32Value();
}

} // namespace

Ref<EvaluatedValue> TCLineReferenceFunction_relative(const FunctionCall& call) {
    TCEvaluationContext* const context = documentOf(call);
    if (!context) return nullptr;
    return answerOfLine(argumentOf(call) + static_cast<int64_t>(context->lineIndex()), *context);
}

Ref<EvaluatedValue> TCLineReferenceFunction_absolute(const FunctionCall& call) {
    TCEvaluationContext* const context = documentOf(call);
    return context ? answerOfLine(argumentOf(call), *context) : nullptr;
}

Ref<EvaluatedValue> TCLineReferenceFunction_absolute_line_number(const FunctionCall& call) {
    TCEvaluationContext* const context = documentOf(call);
    return context ? answerOfLine(argumentOf(call) - 1, *context) : nullptr;
}

Ref<EvaluatedValue> TCLineReferenceFunction_null(const FunctionCall&) {
    return notANumber();
}
