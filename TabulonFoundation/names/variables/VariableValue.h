#pragma once

// One value of a variable, for one or more ranges of line indexes: the text it was given, and the digits,
// which are parsed on the first read. Made afresh for each setting, held by the variable's range map, and
// used on the thread that runs the document.

#include "numbers/Decimal.h"
#include "runtime/Ref.h"
#include "runtime/String.h"

#include <cstdint>
#include <optional>

namespace TBF {

class UnitContainer;
class UnitFraction;

class VariableValue {
public:
    // `string` is delocalized text, or null for no value; of `flags` bit 0 marks a percentage.
    VariableValue(Ref<String> string, uint32_t flags, Ref<UnitContainer> unitContainer);
    ~VariableValue();

    String* string() const { return text.get(); }
    uint32_t flags() const { return resultFlags; }
    UnitContainer* unitContainer() const { return unit.get(); }
    UnitFraction* unitFraction() const;

    // Borrowed; null when there is no text.
    M_APM mapm() const;

private:
    Ref<String> text;
    uint32_t resultFlags;
    Ref<UnitContainer> unit;
    mutable std::optional<Decimal> digits; // parsed from the text on first reading
};

} // namespace TBF
