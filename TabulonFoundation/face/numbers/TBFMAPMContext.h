#pragma once

// The plain functions over handles of precision contexts. A context belongs to one evaluator and so to
// one thread at a time. A null handle is accepted everywhere.

#include "m_apm.h"

#include <cstdint>

namespace TBF {
class MAPMContext;
}
using TBFMAPMContextRef = TBF::MAPMContext*;

// `precision` counts the digits behind the first one. The caller owns the result.
TBFMAPMContextRef TBFMAPMContextCreate(int32_t precision);
TBFMAPMContextRef TBFMAPMContextRetain(TBFMAPMContextRef context);
void TBFMAPMContextRelease(const TBF::MAPMContext* context);

int32_t TBFMAPMContextGetPrecision(const TBF::MAPMContext* context);

// Borrowed; `index` from 0 to 3, null otherwise.
M_APM TBFMAPMContextGetRegister(const TBF::MAPMContext* context, int32_t index);
