#include "analysis/HighPriorityOperators.h"

#include "runtime/TBFLog.h"

namespace TBF {

namespace {

struct Promotion {
    TBFTokenSubType from;
    TBFTokenSubType to;
};

constexpr Promotion promotions[] = {
    {.from = TBFTokenSubTypeMultiply, .to = TBFTokenSubTypeHighPriorityMultiply},
    {.from = TBFTokenSubTypeUnitConversion, .to = TBFTokenSubTypeHighPriorityUnitConversion},
    {.from = TBFTokenSubTypeDivide, .to = TBFTokenSubTypeHighPriorityDivide},
};

} // namespace

std::optional<TBFTokenSubType> highPriorityOperatorTokenSubType(TBFTokenSubType subType) {
    for (const Promotion& promotion : promotions) {
        if (promotion.from == subType) return promotion.to;
    }
    return std::nullopt;
}

TBFTokenSubType promotedOperatorTokenSubType(TBFTokenSubType subType) {
    const std::optional<TBFTokenSubType> promoted = highPriorityOperatorTokenSubType(subType);
    if (!promoted) TBFErrorLog("Unexpected type %d", subType);
    return promoted.value_or(subType);
}

} // namespace TBF
