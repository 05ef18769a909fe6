#pragma once

// A unit as formatting and hosts handle it, around a container of the foundation. The subclasses are what the
// loader of the units data makes (`TCBasicUnit`, `TCCompositeUnit`), currencies (`TCMutableBasicUnit`) and
// the units of results (`TCValueUnit`). Shared by `std::shared_ptr`. After loading a unit is read on any
// thread; its factors belong to the thread that sets up the environment.
//
// Names come from the container when they are asked for: one that it has, or one spelled out from its
// fraction. Names set here stand in front of those.

#include "runtime/Ref.h"
#include "units/TCUnitTypes.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace TBF {
class UnitContainer;
class UnitFraction;
} // namespace TBF

class TCUnit {
public:
    using Aliases = std::map<TCUnitNameType, std::vector<std::u16string>>;

    virtual ~TCUnit();
    TCUnit(const TCUnit&) = delete;
    TCUnit& operator=(const TCUnit&) = delete;

    // None for a unit that only a result has.
    std::optional<std::u16string> identifier() const;
    const std::string& identifierBytes() const noexcept; // UTF-8; empty for none. Borrowed

    TCUnitType type() const noexcept { return unitType; }

    // None where the unit has no such name. Only long names have a form; without one it is the singular.
    std::optional<std::u16string> nameForFormat(TCUnitNameFormat format,
                                                TCUnitNameForm form = TCUnitNameFormSingular) const;
    void setName(std::optional<std::u16string> name, TCUnitNameFormat format,
                 TCUnitNameForm form = TCUnitNameFormSingular);

    // In the wanted format, or else the long, the very short name or the symbol.
    std::optional<std::u16string> namePreferringFormat(TCUnitNameFormat format, TCUnitNameForm form) const;

    // By name type; types without aliases aren't there.
    Aliases aliases() const;

    // The code of a currency; none for any other unit.
    std::optional<std::u16string> currencyCode() const;

    // Both together weigh where a word could name several units: the one from the data, and 1 for the default
    // unit of a clashing name.
    int32_t ambiguousTieBreakFactor() const noexcept { return tieBreakFactor; }
    int32_t internalAmbiguousTieBreakFactor() const noexcept { return internalTieBreakFactor; }
    void setAmbiguousTieBreakFactor(int32_t factor);
    void setInternalAmbiguousTieBreakFactor(int32_t factor);

    // Borrowed; the container is never null.
    TBF::UnitContainer* tbfUnitContainer() const noexcept { return container.get(); }
    TBF::UnitFraction* tbfUnitFraction() const noexcept;

    // By the singular name alone.
    bool isEqual(const TCUnit& other) const;
    std::size_t hash() const;

protected:
    TCUnit(TCUnitType type, TBF::Ref<TBF::UnitContainer> unitContainer);

    virtual void setUnderlyingAmbiguousTieBreakFactor(int32_t factor);

private:
    struct NameKey {
        TCUnitNameFormat format;
        TCUnitNameForm form;
        bool operator==(const NameKey&) const = default;
    };
    static NameKey keyOf(TCUnitNameFormat format, TCUnitNameForm form);

    TBF::Ref<TBF::UnitContainer> container;
    TCUnitType unitType;
    int32_t tieBreakFactor = 0;
    int32_t internalTieBreakFactor = 0;
    std::vector<std::pair<NameKey, std::optional<std::u16string>>> ownNames; // mostly empty
};

// Both null, or both units that are equal.
bool TCUnitsAreEqual(const TCUnit* a, const TCUnit* b);
