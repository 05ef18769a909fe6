#include "face/units/TBFUnitStringFormatter.h"

#include "runtime/TBFLog.h"
#include "units/UnitContainer.h"
#include "units/UnitStringFormatter.h"

using TBF::UnitStringFormatter;

TBFUnitStringFormatterRef TBFUnitStringFormatterCreate() {
    return UnitStringFormatter::create().leak();
}

TBFUnitStringFormatterRef TBFUnitStringFormatterCreate(TBFUnitStringConnectiveType connectiveType) {
    return UnitStringFormatter::create(connectiveType).leak();
}

TBFUnitStringFormatterRef TBFUnitStringFormatterRetain(TBFUnitStringFormatterRef formatter) {
    return TBF::retain(formatter).leak();
}

void TBFUnitStringFormatterRelease(const TBF::UnitStringFormatter* formatter) {
    if (formatter) formatter->release();
}

void TBFUnitStringFormatterSetConnectiveType(TBFUnitStringFormatterRef formatter,
                                             TBFUnitStringConnectiveType connectiveType) {
    if (formatter) formatter->setConnectiveType(connectiveType);
}

void TBFUnitStringFormatterSetNameFormatForUnitType(TBFUnitStringFormatterRef formatter,
                                                    TBFUnitFormatType format, TBFUnitType type) {
    if (formatter) formatter->setNameFormatForUnitType(format, type);
}

TBF::String* TBFUnitStringFormatterCreateFormattedString(const TBF::UnitStringFormatter* formatter,
                                                         const TBF::UnitContainer* container,
                                                         TBFUnitFormatType formatType,
                                                         TBFUnitStringForm form) {
    if (formatter) return formatter->formattedString(container, formatType, form).leak();
    const TBFUnitNameType nameType = nameTypeForFormatTypeAndForm(formatType, form);
    if (!container || !container->hasNameForType(nameType)) return nullptr;
    return TBF::String::createWithUTF8(container->nameForType(nameType)).leak();
}
