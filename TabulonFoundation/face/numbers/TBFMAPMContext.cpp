#include "face/numbers/TBFMAPMContext.h"

#include "numbers/MAPMContext.h"

using TBF::MAPMContext;

TBFMAPMContextRef TBFMAPMContextCreate(int32_t precision) {
    return MAPMContext::create(precision).leak();
}

TBFMAPMContextRef TBFMAPMContextRetain(TBFMAPMContextRef context) {
    return TBF::retain(context).leak();
}

void TBFMAPMContextRelease(const MAPMContext* context) {
    if (context) context->release();
}

int32_t TBFMAPMContextGetPrecision(const MAPMContext* context) {
    return context ? context->precision() : 0;
}

M_APM TBFMAPMContextGetRegister(const MAPMContext* context, int32_t index) {
    return context ? context->registerAt(index) : nullptr;
}
