#pragma once

// Reads names and decimal texts from the property lists of the units data. Pure functions, but for their
// logs.

#include "propertylist/PropertyList.h"
#include "units/TCUnitNames.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

// The names of a unit in a name dictionary: "singular", "plural", "symbol", or else the first of "singulars",
// "plurals", "symbols", whose others are aliases. What isn't text is logged, and used as text where it can
// be.
TCUnitNames TCUnitNamesFromDictionary(const platform::PropertyList& dictionary);

// The names of a currency: its code is the very short name.
TCUnitNames TCCurrencyNamesFromDictionary(std::u16string_view code, const platform::PropertyList& dictionary);

// A text, or a number as text; none for anything else.
std::optional<std::u16string> TCTextOfValue(const platform::PropertyList& value);

// A decimal that a factor or offset can be: plain or with an exponent, of sensible size. In UTF-8. None, with
// no log, for any other value.
std::optional<std::string> TCDecimalTextOfValue(const platform::PropertyList& value);

// The integers of a text, separated by commas and white space; a piece that is no integer gives 0.
std::vector<int64_t> TCIntegersOfText(std::string_view text);
