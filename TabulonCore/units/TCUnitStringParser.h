#pragma once

// Reads a unit from a text such as "metre/second", with the units of a collection: written in identifiers, as
// stored variables have it, or else whatever the expression language takes for a unit.

#include <memory>
#include <string_view>

class TCUnit;
class TCUnitCollection;

class TCUnitStringParser {
public:
    explicit TCUnitStringParser(std::shared_ptr<TCUnitCollection> unitManager);

    // Null if the text isn't a unit.
    std::shared_ptr<TCUnit> unitFromString(std::u16string_view text) const;

private:
    std::shared_ptr<TCUnit> unitFromIdentifiers(std::u16string_view text) const;

    std::shared_ptr<TCUnitCollection> units;
};
