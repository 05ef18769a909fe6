#pragma once

// Writes a unit as text. A container with a name of the wanted kind gives that name; any other is spelled out
// from its fraction, in long words with "per " or in short names with "/". Result formatting and composite
// units of the core layer use it. Used by one thread at a time.

#include "runtime/Object.h"
#include "runtime/Ref.h"
#include "runtime/String.h"
#include "units/TBFUnitTypes.h"

#include <array>
#include <cstdint>
#include <string>

// What stands between numerator and denominator.
enum TBFUnitStringConnectiveType : int32_t {
    TBFUnitStringConnectiveTypeSlash = 0,
    TBFUnitStringConnectiveTypePer = 1,
    TBFUnitStringConnectiveTypeAutomatic = 2, // "per ", but "/" if a numerator unit is written short
};

// The kind of name that a format and form ask for. An unknown format is logged and gives 0.
TBFUnitNameType nameTypeForFormatTypeAndForm(TBFUnitFormatType formatType, TBFUnitStringForm form);

namespace TBF {

class UnitContainer;
class UnitFraction;

class UnitStringFormatter final : public Object<UnitStringFormatter> {
public:
    static Ref<UnitStringFormatter> create();
    static Ref<UnitStringFormatter> create(TBFUnitStringConnectiveType connectiveType);

    void setConnectiveType(TBFUnitStringConnectiveType type) noexcept { connective = type; }

    // The format for units of a type where the fraction is spelled out, instead of the one asked for. 0 takes
    // it back.
    void setNameFormatForUnitType(TBFUnitFormatType format, TBFUnitType type);

    // Null for a container with neither the name nor a fraction. Denominators are always singular, of the
    // numerator only the last unit takes the form.
    Ref<String> formattedString(const UnitContainer* container, TBFUnitFormatType formatType,
                                TBFUnitStringForm form) const;

    // The same for a fraction alone. Null for null.
    Ref<String> formattedString(const UnitFraction* fraction, TBFUnitFormatType formatType,
                                TBFUnitStringForm form) const;

private:
    friend class Object<UnitStringFormatter>;
    explicit UnitStringFormatter(TBFUnitStringConnectiveType connectiveType) noexcept;
    ~UnitStringFormatter() override = default;

    TBFUnitNameType nameTypeFor(TBFUnitType type, TBFUnitFormatType formatType, TBFUnitStringForm form) const;
    bool appendNumerator(std::u16string& text, const UnitFraction& fraction, TBFUnitFormatType formatType,
                         TBFUnitStringForm form) const;
    void appendDenominator(std::u16string& text, const UnitFraction& fraction,
                           TBFUnitFormatType formatType) const;

    TBFUnitStringConnectiveType connective;
    std::array<TBFUnitFormatType, TBFUnitTypeCount> nameFormats{}; // by type; 0 for none
};

} // namespace TBF
