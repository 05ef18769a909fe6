#pragma once

// The plain functions over formatters of units: how a unit becomes text. A formatter is used by one thread at
// a time. A null handle is accepted everywhere.

#include "units/TBFUnitTypes.h"
#include "units/UnitStringFormatter.h"

namespace TBF {
class String;
class UnitContainer;
class UnitStringFormatter;
} // namespace TBF
using TBFUnitStringFormatterRef = TBF::UnitStringFormatter*;

// Create. The caller owns the result. The connective is automatic where none is given.
TBFUnitStringFormatterRef TBFUnitStringFormatterCreate();
TBFUnitStringFormatterRef TBFUnitStringFormatterCreate(TBFUnitStringConnectiveType connectiveType);
TBFUnitStringFormatterRef TBFUnitStringFormatterRetain(TBFUnitStringFormatterRef formatter);
void TBFUnitStringFormatterRelease(const TBF::UnitStringFormatter* formatter);

void TBFUnitStringFormatterSetConnectiveType(TBFUnitStringFormatterRef formatter,
                                             TBFUnitStringConnectiveType connectiveType);
void TBFUnitStringFormatterSetNameFormatForUnitType(TBFUnitStringFormatterRef formatter,
                                                    TBFUnitFormatType format, TBFUnitType type);

// The unit as text, owned by the caller. Null if the unit has neither the name nor a fraction. Without a
// formatter only a name of the container itself is given.
TBF::String* TBFUnitStringFormatterCreateFormattedString(const TBF::UnitStringFormatter* formatter,
                                                         const TBF::UnitContainer* container,
                                                         TBFUnitFormatType formatType,
                                                         TBFUnitStringForm form);
