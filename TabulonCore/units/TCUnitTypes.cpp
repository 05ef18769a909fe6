#include "units/TCUnitTypes.h"

#include "runtime/TBFLog.h"

namespace {

struct Category {
    std::string_view key;
    TCUnitType type;
};

constexpr Category categories[] = {
    {"Length", TCUnitTypeLength},
    {"Mass", TCUnitTypeMass},
    {"Time", TCUnitTypeTime},
    {"Temperature", TCUnitTypeTemperature},
    {"Computer Storage", TCUnitTypeComputerStorage},
    {"Force", TCUnitTypeForce},
    {"Energy", TCUnitTypeEnergy},
    {"Power", TCUnitTypePower},
    {"Pressure", TCUnitTypePressure},
    {"Frequency", TCUnitTypeFrequency},
    {"Electric Potential", TCUnitTypeVoltage},
    {"Electric Current", TCUnitTypeCurrent},
    {"Electric Resistance", TCUnitTypeResistance},
    {"Speed", TCUnitTypeVelocity},
    {"Acceleration", TCUnitTypeAcceleration},
    {"Area", TCUnitTypeArea},
    {"Volume", TCUnitTypeVolume},
    {"Computer Throughput", TCUnitTypeComputerThroughput},
    {"Fuel Consumption", TCUnitTypeFuelConsumption},
};

// The type of throughput has no counterpart in either direction.
constexpr bool isConverted(int32_t type, int32_t first) {
    return (type >= first && type <= TCUnitTypeVolume) || type == TCUnitTypeFuelConsumption;
}

constexpr bool isNameType(int32_t type) {
    return type >= TCUnitNameTypeSingular && type <= TCUnitNameTypeSymbol;
}

} // namespace

TBFUnitType TCUnitTypeToTBFUnitType(TCUnitType type) {
    if (isConverted(type, TCUnitTypeLength)) return static_cast<TBFUnitType>(type);
    TBFErrorLog("Unexpected unit type %d", static_cast<int>(type));
    return TBFUnitTypeNone;
}

TCUnitType TCUnitTypeFromTBFUnitType(TBFUnitType type) {
    if (isConverted(type, TCUnitTypeCompound)) return static_cast<TCUnitType>(type);
    TBFErrorLog("Unexpected unit type %d", static_cast<int>(type));
    return TCUnitTypeNone;
}

TBFUnitNameType TCUnitNameTypeToTBFUnitNameType(TCUnitNameType type) {
    if (isNameType(type)) return static_cast<TBFUnitNameType>(type);
    TBFErrorLog("Unexpected name type %d", static_cast<int>(type));
    return TBFUnitNameTypeNone;
}

TCUnitNameType TBFUnitNameTypeToTCUnitNameType(TBFUnitNameType type) {
    if (isNameType(type)) return static_cast<TCUnitNameType>(type);
    TBFErrorLog("Unexpected name type %d", static_cast<int>(type));
    return TCUnitNameTypeNone;
}

TBFUnitFormatType TCUnitNameFormatToTBFUnitFormatType(TCUnitNameFormat format) {
    if (format >= TCUnitNameFormatNone && format <= TCUnitNameFormatIdentifier) {
        return static_cast<TBFUnitFormatType>(format);
    }
    TBFErrorLog("Unexpected type '%d'", static_cast<int>(format));
    return TBFUnitFormatTypeNone;
}

TCUnitNameFormat TCUnitNameFormatFromTBFUnitFormatType(TBFUnitFormatType format) {
    if (format >= TBFUnitFormatTypeNone && format <= TBFUnitFormatTypeSymbol) {
        return static_cast<TCUnitNameFormat>(format);
    }
    TBFErrorLog("Unexpected type '%d'", static_cast<int>(format));
    return TCUnitNameFormatLong;
}

TBFUnitStringForm TBFUnitStringFormFromTCUnitNameForm(TCUnitNameForm form) {
    if (form == TCUnitNameFormSingular) return TBFUnitStringFormSingular;
    if (form == TCUnitNameFormPlural) return TBFUnitStringFormPlural;
    TBFErrorLog("Unexpected type %d", static_cast<int>(form));
    return static_cast<TBFUnitStringForm>(0);
}

TCUnitType TCUnitTypeFromCategory(std::string_view category) {
    for (const Category& row : categories) {
        if (row.key == category) return row.type;
    }
    return TCUnitTypeNone;
}
