#pragma once

// The plain functions over handles of running products. An accumulator is used by one thread at a time. A
// null handle is accepted everywhere.

#include "m_apm.h"

#include <cstdint>

namespace TBF {
class MAPMAccumulator;
}
using TBFMAPMAccumulatorRef = TBF::MAPMAccumulator*;

// `precision` counts the digits behind the first one. The caller owns the result.
TBFMAPMAccumulatorRef TBFMAPMAccumulatorCreate(int32_t precision);
TBFMAPMAccumulatorRef TBFMAPMAccumulatorRetain(TBFMAPMAccumulatorRef accumulator);
void TBFMAPMAccumulatorRelease(const TBF::MAPMAccumulator* accumulator);

void TBFMAPMAccumulatorInitialize(TBFMAPMAccumulatorRef accumulator, M_APM_const value);
void TBFMAPMAccumulatorMultiplyBy(TBFMAPMAccumulatorRef accumulator, M_APM_const value);
void TBFMAPMAccumulatorDivideBy(TBFMAPMAccumulatorRef accumulator, M_APM_const value);
void TBFMAPMAccumulatorReciprocal(TBFMAPMAccumulatorRef accumulator);

// Borrowed, valid until the next step.
M_APM TBFMAPMAccumulatorGetResult(const TBF::MAPMAccumulator* accumulator);
