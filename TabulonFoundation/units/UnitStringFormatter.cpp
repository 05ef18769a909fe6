#include "units/UnitStringFormatter.h"

#include "runtime/TBFLog.h"
#include "runtime/Unicode.h"
#include "units/UnitContainer.h"
#include "units/UnitFraction.h"

#include <cstddef>

TBFUnitNameType nameTypeForFormatTypeAndForm(TBFUnitFormatType formatType, TBFUnitStringForm form) {
    switch (formatType) {
    case TBFUnitFormatTypeLongName:
        return form == TBFUnitStringFormSingular ? TBFUnitNameTypeSingular : TBFUnitNameTypePlural;
    case TBFUnitFormatTypeVeryShortName:
        return TBFUnitNameTypeVeryShort;
    case TBFUnitFormatTypeSymbol:
        return TBFUnitNameTypeSymbol;
    case TBFUnitFormatTypeIdentifier:
        return TBFUnitNameTypeIdentifier;
    default:
        TBFErrorLog("Unexpected type %d", static_cast<int>(formatType));
        return TBFUnitNameTypeNone;
    }
}

namespace TBF {

namespace {

bool isShort(TBFUnitNameType nameType) {
    return nameType == TBFUnitNameTypeVeryShort || nameType == TBFUnitNameTypeSymbol ||
           nameType == TBFUnitNameTypeIdentifier;
}

void appendName(std::u16string& text, const Unit& unit, TBFUnitNameType nameType, int32_t degree) {
    if (const Ref<String>& name = unit.namePreferringType(nameType)) text += name->view();
    if (degree != 1) text += u'^' + utf16(std::to_string(degree));
}

} // namespace

UnitStringFormatter::UnitStringFormatter(TBFUnitStringConnectiveType connectiveType) noexcept
    : connective(connectiveType) {}

Ref<UnitStringFormatter> UnitStringFormatter::create() {
    return create(TBFUnitStringConnectiveTypeAutomatic);
}

Ref<UnitStringFormatter> UnitStringFormatter::create(TBFUnitStringConnectiveType connectiveType) {
    return make<UnitStringFormatter>(connectiveType);
}

void UnitStringFormatter::setNameFormatForUnitType(TBFUnitFormatType format, TBFUnitType type) {
    if (type >= 0 && type < TBFUnitTypeCount) nameFormats[static_cast<std::size_t>(type)] = format;
}

Ref<String> UnitStringFormatter::formattedString(const UnitContainer* container, TBFUnitFormatType formatType,
                                                 TBFUnitStringForm form) const {
    if (!container) return {};
    const TBFUnitNameType nameType = nameTypeForFormatTypeAndForm(formatType, form);
    if (container->hasNameForType(nameType)) {
        if (nameType == TBFUnitNameTypeIdentifier) return String::createWithUTF8(container->identifier());
        return container->nameString(nameType);
    }
    return formattedString(container->unitFraction(), formatType, form);
}

Ref<String> UnitStringFormatter::formattedString(const UnitFraction* fraction, TBFUnitFormatType formatType,
                                                 TBFUnitStringForm form) const {
    if (!fraction) return {};
    std::u16string text;
    const bool hasShortNumerator = appendNumerator(text, *fraction, formatType, form);
    if (fraction->countOfDenominatorTypes() > 0) {
        if (connective == TBFUnitStringConnectiveTypeSlash || hasShortNumerator) {
            text += u'/';
        } else {
            text += text.empty() ? u"per " : u" per ";
        }
        appendDenominator(text, *fraction, formatType);
    }
    return String::create(text);
}

TBFUnitNameType UnitStringFormatter::nameTypeFor(TBFUnitType type, TBFUnitFormatType formatType,
                                                 TBFUnitStringForm form) const {
    const TBFUnitFormatType own = nameFormats[static_cast<std::size_t>(type)];
    return nameTypeForFormatTypeAndForm(own != TBFUnitFormatTypeNone ? own : formatType, form);
}

// Returns whether a short name among the units calls for "/" to follow.
bool UnitStringFormatter::appendNumerator(std::u16string& text, const UnitFraction& fraction,
                                          TBFUnitFormatType formatType, TBFUnitStringForm form) const {
    bool hasShortName = false;
    int32_t position = 0;
    for (const UnitFraction::TypeDegree& component : fraction.typeDegrees()) {
        if (component.degree <= 0) continue;
        const bool isLast = ++position == fraction.countOfNumeratorTypes();
        TBFUnitNameType nameType = nameTypeFor(component.type, formatType, form);
        if (!isLast && nameType == TBFUnitNameTypePlural) nameType = TBFUnitNameTypeSingular;
        if (connective == TBFUnitStringConnectiveTypeAutomatic && isShort(nameType)) hasShortName = true;
        appendName(text, *component.unit, nameType, component.degree);
        if (!isLast) text += u' ';
    }
    return hasShortName;
}

void UnitStringFormatter::appendDenominator(std::u16string& text, const UnitFraction& fraction,
                                            TBFUnitFormatType formatType) const {
    int32_t position = 0;
    for (const UnitFraction::TypeDegree& component : fraction.typeDegrees()) {
        if (component.degree >= 0) continue;
        const TBFUnitNameType nameType = nameTypeFor(component.type, formatType, TBFUnitStringFormSingular);
        appendName(text, *component.unit, nameType, -component.degree);
        if (++position != fraction.countOfDenominatorTypes()) text += u' ';
    }
}

} // namespace TBF
