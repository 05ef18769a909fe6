#pragma once

// The units that an environment's evaluator knows, as this layer sees them. Filled while an environment is
// made; currencies come and go later, when nothing is evaluated. Reading it is safe on any thread.

#include "units/TCUnitTypes.h"

#include <cstddef>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

namespace TBF {
class UnitCollection;
}

class TCUnit;
class TCUnitsFile;

class TCUnitCollection {
public:
    // That of the current environment; null without one.
    static std::shared_ptr<TCUnitCollection> sharedManager();

    // A new, empty one.
    static std::shared_ptr<TCUnitCollection> create();

    virtual ~TCUnitCollection() = default;

    virtual std::size_t countOfUnits() const = 0;
    virtual std::size_t countUnitsOfType(TCUnitType type) const = 0;
    virtual std::vector<std::shared_ptr<TCUnit>> allUnits() const = 0; // in no particular order

    virtual void addUnits(std::span<const std::shared_ptr<TCUnit>> units) = 0;
    virtual void addUnit(const std::shared_ptr<TCUnit>& unit) = 0; // null does nothing
    virtual void removeUnit(const std::shared_ptr<TCUnit>& unit) = 0;

    // Null for none. A name that several units have gives its default unit, or the first one.
    virtual std::shared_ptr<TCUnit> unitWithName(std::u16string_view name) const = 0;
    virtual std::shared_ptr<TCUnit> unitWithIdentifier(std::u16string_view identifier) const = 0;

    // A default wins where nothing else decides.
    virtual void setDefaultUnitForClashingName(const std::shared_ptr<TCUnit>& unit,
                                               std::u16string_view name) = 0;
    virtual void setDefaultUnitForType(const std::shared_ptr<TCUnit>& unit, TCUnitType type) = 0;

    // Borrowed; never null.
    virtual TBF::UnitCollection* tbfUnitCollection() const = 0;

    // All units of the file, and its base units.
    void addContentsOfLoadedUnitsFile(const TCUnitsFile& file);
    void removeUnitWithIdentifier(std::u16string_view identifier);
};
