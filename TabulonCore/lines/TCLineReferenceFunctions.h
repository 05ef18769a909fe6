#pragma once

// The functions behind references to other lines: each takes one number and gives the answer that the line it
// names holds, with its unit and the way that was written. They run inside of evaluations and find the
// document in the evaluation's context information, a TCEvaluationContext. Nothing is evaluated here: the
// order of evaluation sees to it that the answers are current.

#include "names/functions/FunctionImplementation.h"
#include "runtime/Ref.h"

namespace TBF {
class EvaluatedValue;
}

// The number counts lines from the line under evaluation, zero-based lines of the document, or lines from
// 1 on. Null outside of a document; not-a-number for the line itself, and for a line without a number.
TBF::Ref<TBF::EvaluatedValue> TCLineReferenceFunction_relative(const TBF::FunctionCall& call);
TBF::Ref<TBF::EvaluatedValue> TCLineReferenceFunction_absolute(const TBF::FunctionCall& call);
TBF::Ref<TBF::EvaluatedValue> TCLineReferenceFunction_absolute_line_number(const TBF::FunctionCall& call);

// A reference whose target is gone: not-a-number.
TBF::Ref<TBF::EvaluatedValue> TCLineReferenceFunction_null(const TBF::FunctionCall& call);
