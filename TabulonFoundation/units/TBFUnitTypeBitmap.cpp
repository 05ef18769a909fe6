#include "units/TBFUnitTypeBitmap.h"

#include "units/UnitContainer.h"
#include "units/UnitFraction.h"

#include <bit>

TBFUnitTypeBitmap TBFUnitTypeBitmapMake(TBFUnitType type) {
    return TBFUnitTypeBitmap{1} << TBFUnitTypeToArrayIndex(type);
}

TBFUnitTypeBitmap TBFUnitTypeBitmapMakeWithUnitFraction(const TBF::UnitFraction* fraction) {
    if (!fraction) return 0;
    TBFUnitTypeBitmap bitmap = 0;
    for (const TBF::UnitFraction::UnitDegree& component : fraction->unitDegrees()) {
        bitmap |= TBFUnitTypeBitmapMake(component.unit->type());
    }
    return bitmap;
}

TBFUnitTypeBitmap TBFUnitTypeBitmapMakeWithUnitContainer(const TBF::UnitContainer* container) {
    return container ? TBFUnitTypeBitmapMakeWithUnitFraction(container->unitFraction()) : 0;
}

bool TBFUnitTypeBitmapHasUnitType(const TBFUnitTypeBitmap* bitmap, TBFUnitType type) {
    return bitmap && (*bitmap & TBFUnitTypeBitmapMake(type)) != 0;
}

bool TBFUnitTypeBitmapHasSingleUnitOnly(const TBFUnitTypeBitmap* bitmap) {
    return bitmap && std::has_single_bit(*bitmap);
}

TBFUnitTypeBitmap TBFUnitTypeBitmapAdd(TBFUnitTypeBitmap a, TBFUnitTypeBitmap b) {
    return a | b;
}

void TBFUnitTypeBitmapAppend(TBFUnitTypeBitmap* bitmap, TBFUnitTypeBitmap other) {
    if (bitmap) *bitmap |= other;
}
