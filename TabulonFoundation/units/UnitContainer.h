#pragma once

// A unit as a user can write it: names around a unit fraction, which may hold one atomic unit or several, as
// a mile per hour does. The search index finds containers; expression tokens and nodes carry them. Filled by
// its loader on one thread and then shared read-only; only the fraction of a currency is replaced later, at a
// time when nothing is evaluated.

#include "runtime/Object.h"
#include "runtime/Ref.h"
#include "runtime/String.h"
#include "units/TBFUnitTypes.h"

#include "m_apm.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace TBF {

class UnitFraction;

class UnitContainer final : public Object<UnitContainer> {
public:
    struct Alias {
        TBFUnitNameType nameType;
        Ref<String> text;
    };

    struct Names {
        std::array<Ref<String>, TBFUnitNameTypeSlotCount> byType; // null where there is no name
        std::vector<Alias> aliases;                               // in any order
        std::vector<Ref<String>> caseSensitive; // names and aliases that match only as written
    };

    // Anonymous, without names.
    static Ref<UnitContainer> create();
    static Ref<UnitContainer> create(std::string identifier, Names names);

    // Empty for an anonymous container.
    const std::string& identifier() const noexcept { return ownIdentifier; }

    // Null until set. Borrowed.
    UnitFraction* unitFraction() const noexcept { return fraction.get(); }
    void setUnitFraction(Ref<UnitFraction> unitFraction) noexcept;

    // The fraction's multiplier, borrowed; null without a fraction.
    M_APM scalar() const;
    bool isBaseUnit() const; // the scalar is 1
    TBFUnitType unitType() const;

    // The name of types 1 to 4, null for none. The identifier counts as the name of type 5 where it is asked
    // for as a text.
    const Ref<String>& nameString(TBFUnitNameType nameType) const noexcept;
    std::string nameForType(TBFUnitNameType nameType) const;
    bool hasNameForType(TBFUnitNameType nameType) const noexcept;

    // The type under which the exact text is a name or alias, 0 if it is neither. Aliases win over names.
    TBFUnitNameType nameTypeForName(std::u16string_view name) const noexcept;

    // Whether the exact text is a name that matches only as written.
    bool isNameCaseSensitive(std::u16string_view name) const noexcept;

    const std::vector<Ref<String>>& caseSensitiveNames() const noexcept { return names.caseSensitive; }

    // Whether the exact text is a name or an alias.
    bool isNamed(std::u16string_view name) const noexcept;

    // By name type, and in order of addition within one.
    const std::vector<Alias>& aliases() const noexcept { return names.aliases; }

    // Added to the weight of this unit where a word could name several.
    int32_t ambiguousTieBreakFactor() const noexcept { return tieBreakFactor; }
    void setAmbiguousTieBreakFactor(int32_t factor) noexcept { tieBreakFactor = factor; }

    // Whether the unit may stand before its number, as a currency symbol does.
    bool canBePrefixUnit() const noexcept { return isPrefixUnit; }
    void setCanBePrefixUnit(bool canBePrefix) noexcept { isPrefixUnit = canBePrefix; }

private:
    friend class Object<UnitContainer>;
    UnitContainer() noexcept;
    UnitContainer(std::string identifier, Names names);
    ~UnitContainer() override;

    Ref<UnitFraction> fraction;
    int32_t tieBreakFactor = 0;
    bool isPrefixUnit = false;
    std::string ownIdentifier;
    Names names;
};

} // namespace TBF
