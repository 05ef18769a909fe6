#pragma once

// A colour by its name. Used on the thread of its manager.

#include "graphics/Color.h"
#include "propertylist/PropertyList.h"

#include <optional>
#include <string>

class TBColor {
public:
    // Both make a persistent colour. In a dictionary, what isn't there or is no number counts as 0, and a
    // colour without an identifier is "Undefined".
    explicit TBColor(const platform::PropertyList& dictionaryRep);
    TBColor(platform::Color color, std::string identifier);

    // As a file of colours has it. To ask a colour for it that is not persistent is told in the log.
    platform::PropertyList dictionaryRepresentation() const;

    const std::string& identifier() const { return name; }
    void setIdentifier(std::string identifier) { name = std::move(identifier); }
    const platform::Color& color() const { return value; }
    void setColor(platform::Color color) { value = color; }

    // Whether the colour is saved.
    bool isPersistant() const { return persistent; }
    void setIsPersistant(bool isPersistant) { persistent = isPersistant; }

private:
    std::string name;
    platform::Color value;
    bool persistent = true;
};
