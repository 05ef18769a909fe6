#include "units/TBFUnitTypes.h"

#include "runtime/TBFLog.h"

#include <array>
#include <cstddef>

namespace {

constexpr std::array listedTypes = {
    TBFUnitTypeLength,       TBFUnitTypeMass,
    TBFUnitTypeMoney,        TBFUnitTypeTime,
    TBFUnitTypeTemperature,  TBFUnitTypeComputerStorage,
    TBFUnitTypeForce,        TBFUnitTypeEnergy,
    TBFUnitTypePower,        TBFUnitTypePressure,
    TBFUnitTypeFrequency,    TBFUnitTypeVelocity,
    TBFUnitTypeAcceleration, TBFUnitTypeArea,
    TBFUnitTypeVolume,       TBFUnitTypeComputerThroughput,
};
static_assert(listedTypes.size() == 16);

// By type value.
constexpr std::array<const char*, TBFUnitTypeCount> identifiers = {
    nullptr,        nullptr,      "length",   "mass",  "money",    "time",   "temp",
    "comp storage", "force",      "energy",   "power", "pressure", "freq",   "voltage",
    "current",      "resistance", "velocity", "acc",   "area",     "volume", "comp throughput",
};
static_assert(identifiers[TBFUnitTypeComputerThroughput] != nullptr);

constexpr std::array<TBFUnitFormatType, TBFUnitNameTypeSlotCount> formatsByNameType = {
    TBFUnitFormatTypeNone,          // no name
    TBFUnitFormatTypeLongName,      // singular
    TBFUnitFormatTypeLongName,      // plural
    TBFUnitFormatTypeVeryShortName, // very short
    TBFUnitFormatTypeSymbol,        // symbol
};

bool isType(int32_t type) {
    return type >= 0 && type < TBFUnitTypeCount;
}

} // namespace

std::span<const TBFUnitType> TBFUnitTypes() {
    return listedTypes;
}

// The atomic types come first, in their order; compound and none are behind them.
int32_t TBFUnitTypeToArrayIndex(TBFUnitType type) {
    if (!isType(type)) {
        TBFErrorLog("Unexpected unit type %d", static_cast<int>(type));
        VerifyTrue(isType(type), "Unexpected unit type");
    }
    return type >= TBFUnitTypeLength ? type - TBFUnitTypeLength : TBFUnitTypeCount - 1 - type;
}

TBFUnitType TBFUnitTypeFromArrayIndex(int32_t index) {
    if (!isType(index)) {
        TBFErrorLog("Unexpected unit index %d", static_cast<int>(index));
        TBFErrorLog("Unexpected unit type index");
        return TBFUnitTypeNone;
    }
    constexpr int32_t atomicCount = TBFUnitTypeCount - TBFUnitTypeLength;
    const int32_t type = index < atomicCount ? index + TBFUnitTypeLength : TBFUnitTypeCount - 1 - index;
    return static_cast<TBFUnitType>(type);
}

const char* TBFUnitTypeIdentifier(TBFUnitType type) {
    const char* const identifier = isType(type) ? identifiers[static_cast<std::size_t>(type)] : nullptr;
    if (!identifier) TBFErrorLog("Unexpected type %d", static_cast<int>(type));
    return identifier;
}

TBFUnitFormatType TBFUnitFormatTypeFromTBFUnitNameType(TBFUnitNameType nameType) {
    if (nameType < 0 || nameType >= TBFUnitNameTypeSlotCount) {
        TBFErrorLog("Unexpected name type %d", static_cast<int>(nameType));
        return TBFUnitFormatTypeNone;
    }
    return formatsByNameType[static_cast<std::size_t>(nameType)];
}
