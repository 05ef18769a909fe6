#pragma once

// The enumerations of units as this layer has them, with their ways to the foundation's and back. A number
// that isn't one of an enumeration is logged and converted to what each function says. Pure functions.

#include "units/TBFUnitTypes.h"

#include <cstdint>
#include <string_view>

// The foundation's numbers, and fuel consumption, which only composite units have.
enum TCUnitType : int32_t {
    TCUnitTypeNone = 0,
    TCUnitTypeCompound = 1,
    TCUnitTypeLength = 2,
    TCUnitTypeMass = 3,
    TCUnitTypeMoney = 4,
    TCUnitTypeTime = 5,
    TCUnitTypeTemperature = 6,
    TCUnitTypeComputerStorage = 7,
    TCUnitTypeForce = 8,
    TCUnitTypeEnergy = 9,
    TCUnitTypePower = 10,
    TCUnitTypePressure = 11,
    TCUnitTypeFrequency = 12,
    TCUnitTypeVoltage = 13,
    TCUnitTypeCurrent = 14,
    TCUnitTypeResistance = 15,
    TCUnitTypeVelocity = 16,
    TCUnitTypeAcceleration = 17,
    TCUnitTypeArea = 18,
    TCUnitTypeVolume = 19,
    TCUnitTypeComputerThroughput = 20,
    TCUnitTypeFuelConsumption = 21,
};

// Which of a unit's names a name is.
enum TCUnitNameType : int32_t {
    TCUnitNameTypeNone = 0,
    TCUnitNameTypeSingular = 1,
    TCUnitNameTypePlural = 2,
    TCUnitNameTypeVeryShort = 3,
    TCUnitNameTypeSymbol = 4,
};

// How a unit is written, apart from its number.
enum TCUnitNameFormat : int32_t {
    TCUnitNameFormatNone = 0,
    TCUnitNameFormatLong = 1,
    TCUnitNameFormatVeryShort = 2,
    TCUnitNameFormatSymbol = 3,
    TCUnitNameFormatIdentifier = 4,
};

// Only long names have two forms. The foundation has these numbers the other way round.
enum TCUnitNameForm : int32_t {
    TCUnitNameFormPlural = 1,
    TCUnitNameFormSingular = 2,
};

TBFUnitType TCUnitTypeToTBFUnitType(TCUnitType type);                             // else 0; no way for 20
TCUnitType TCUnitTypeFromTBFUnitType(TBFUnitType type);                           // else 0; no way for 20
TBFUnitNameType TCUnitNameTypeToTBFUnitNameType(TCUnitNameType type);             // else 0
TCUnitNameType TBFUnitNameTypeToTCUnitNameType(TBFUnitNameType type);             // else 0
TBFUnitFormatType TCUnitNameFormatToTBFUnitFormatType(TCUnitNameFormat format);   // else 0
TCUnitNameFormat TCUnitNameFormatFromTBFUnitFormatType(TBFUnitFormatType format); // else 1
TBFUnitStringForm TBFUnitStringFormFromTCUnitNameForm(TCUnitNameForm form);       // else 0

// The type of a category of the units data, as "Length"; 0 for an unknown one.
TCUnitType TCUnitTypeFromCategory(std::string_view category);
