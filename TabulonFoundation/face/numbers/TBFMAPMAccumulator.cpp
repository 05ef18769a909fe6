#include "face/numbers/TBFMAPMAccumulator.h"

#include "numbers/MAPMAccumulator.h"

using TBF::MAPMAccumulator;

TBFMAPMAccumulatorRef TBFMAPMAccumulatorCreate(int32_t precision) {
    return MAPMAccumulator::create(precision).leak();
}

TBFMAPMAccumulatorRef TBFMAPMAccumulatorRetain(TBFMAPMAccumulatorRef accumulator) {
    return TBF::retain(accumulator).leak();
}

void TBFMAPMAccumulatorRelease(const MAPMAccumulator* accumulator) {
    if (accumulator) accumulator->release();
}

void TBFMAPMAccumulatorInitialize(TBFMAPMAccumulatorRef accumulator, M_APM_const value) {
    if (accumulator) accumulator->initialize(value);
}

void TBFMAPMAccumulatorMultiplyBy(TBFMAPMAccumulatorRef accumulator, M_APM_const value) {
    if (accumulator) accumulator->multiplyBy(value);
}

void TBFMAPMAccumulatorDivideBy(TBFMAPMAccumulatorRef accumulator, M_APM_const value) {
    if (accumulator) accumulator->divideBy(value);
}

void TBFMAPMAccumulatorReciprocal(TBFMAPMAccumulatorRef accumulator) {
    if (accumulator) accumulator->reciprocal();
}

M_APM TBFMAPMAccumulatorGetResult(const MAPMAccumulator* accumulator) {
    return accumulator ? accumulator->result() : nullptr;
}
