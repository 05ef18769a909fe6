#include "parser/UnitDisambiguationMap.h"

#include <utility>

namespace TBF {

UnitDisambiguationMap::UnitDisambiguationMap(std::vector<Entry> newEntries) noexcept
    : entries(std::move(newEntries)) {}

Ref<UnitDisambiguationMap> UnitDisambiguationMap::create(std::vector<Entry> entries) {
    return make<UnitDisambiguationMap>(std::move(entries));
}

const UnitDisambiguationMap& UnitDisambiguationMap::shared() {
    static const TBFUnitTypeBitmap length = TBFUnitTypeBitmapMake(TBFUnitTypeLength);
    static const TBFUnitTypeBitmap time = TBFUnitTypeBitmapMake(TBFUnitTypeTime);
    static const Ref<UnitDisambiguationMap> map = create({
        // In m/s, what may be a length or a time is a length.
        {{length | time, TBFOperatorTypeDivide, time}, {TBFUnitTypeLength, 0}},
    });
    return *map;
}

TBFUnitType UnitDisambiguationMap::findDisambiguation(TBFUnitTypeBitmap leftBitmap,
                                                      TBFOperatorType operatorType,
                                                      TBFUnitTypeBitmap rightBitmap,
                                                      int8_t* operandIndex) const {
    const Key wanted{leftBitmap, operatorType, rightBitmap};
    for (const Entry& entry : entries) {
        if (!(entry.key == wanted)) continue;
        if (operandIndex) *operandIndex = entry.value.operandIndex;
        return entry.value.unitType;
    }
    return TBFUnitTypeNone;
}

} // namespace TBF
