#pragma once

// The enumerations which everything about units shares: the types of quantities, the kinds of names a unit
// can have, and the formats in which it is written. The core layer's enumerations have the same numbers where
// they have the same meaning. Plain constants and pure functions, usable on any thread.

#include <cstdint>
#include <span>

// What a unit measures. The gap to the core's enumeration is 21, fuel consumption, which no atomic unit has.
enum TBFUnitType : int32_t {
    TBFUnitTypeNone = 0,     // no fraction, or one without units
    TBFUnitTypeCompound = 1, // units, but none of the single types
    TBFUnitTypeLength = 2,
    TBFUnitTypeMass = 3,
    TBFUnitTypeMoney = 4,
    TBFUnitTypeTime = 5,
    TBFUnitTypeTemperature = 6,
    TBFUnitTypeComputerStorage = 7,
    TBFUnitTypeForce = 8,
    TBFUnitTypeEnergy = 9,
    TBFUnitTypePower = 10,
    TBFUnitTypePressure = 11,
    TBFUnitTypeFrequency = 12,
    TBFUnitTypeVoltage = 13,
    TBFUnitTypeCurrent = 14,
    TBFUnitTypeResistance = 15,
    TBFUnitTypeVelocity = 16,
    TBFUnitTypeAcceleration = 17,
    TBFUnitTypeArea = 18,
    TBFUnitTypeVolume = 19,
    TBFUnitTypeComputerThroughput = 20,
};

// The number of unit types, and of array indexes.
inline constexpr int32_t TBFUnitTypeCount = 21;

// Which of a unit's names a name is.
enum TBFUnitNameType : int32_t {
    TBFUnitNameTypeNone = 0,
    TBFUnitNameTypeSingular = 1,
    TBFUnitNameTypePlural = 2,
    TBFUnitNameTypeVeryShort = 3,
    TBFUnitNameTypeSymbol = 4,
    TBFUnitNameTypeIdentifier = 5, // the identifier stands in for a name; nothing is stored under it
};

// The number of name types that are stored, 0 among them.
inline constexpr int32_t TBFUnitNameTypeSlotCount = 5;

// How a unit is written, apart from its number.
enum TBFUnitFormatType : int32_t {
    TBFUnitFormatTypeNone = 0,
    TBFUnitFormatTypeLongName = 1,
    TBFUnitFormatTypeVeryShortName = 2,
    TBFUnitFormatTypeSymbol = 3,
    TBFUnitFormatTypeIdentifier = 4,
};

// Only long names have two forms. The core's enumeration has these numbers the other way round.
enum TBFUnitStringForm : int32_t {
    TBFUnitStringFormSingular = 1,
    TBFUnitStringFormPlural = 2,
};

// The types that searches over "all unit types" go through, ascending. The electrical types aren't among
// them.
std::span<const TBFUnitType> TBFUnitTypes();

// Array indexes number the slots of a fraction and the bits of a bitmap: 0 to 20. A type of 21 or more is a
// mistake of the program and stops it; an index of 21 or more is logged and gives 0.
int32_t TBFUnitTypeToArrayIndex(TBFUnitType type);
TBFUnitType TBFUnitTypeFromArrayIndex(int32_t index);

// The type's word in the text of a type fraction, as "length". Logged and null outside of 2 to 20.
const char* TBFUnitTypeIdentifier(TBFUnitType type);

// The format that a kind of name belongs to. 5 and more is logged and gives 0.
TBFUnitFormatType TBFUnitFormatTypeFromTBFUnitNameType(TBFUnitNameType nameType);
