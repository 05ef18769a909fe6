#pragma once

// The plain functions over units as users write them. Containers are filled by their loader and then shared
// read-only between threads. A null handle is accepted everywhere: getters give 0, null, false or an empty
// text.

#include "units/TBFUnitTypes.h"

#include "m_apm.h"

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace TBF {
class String;
class UnitContainer;
class UnitFraction;
} // namespace TBF
using TBFUnitContainerRef = TBF::UnitContainer*;

// Create. The caller owns the result. Texts in bytes are UTF-8. A case-sensitive name matches only as
// written.
TBFUnitContainerRef TBFUnitContainerCreate();
TBFUnitContainerRef TBFUnitContainerCreate(const std::string& identifier,
                                           const std::map<TBFUnitNameType, std::string>& names,
                                           const std::multimap<TBFUnitNameType, std::string>& aliases,
                                           const std::set<std::string>& caseSensitiveNames = {});

// For the core layer: names that may be missing, and aliases by the type of name they stand for.
TBFUnitContainerRef TBFUnitContainerCreateWithNames(
    const std::u16string& identifier, const std::optional<std::u16string>& singular,
    const std::optional<std::u16string>& plural, const std::optional<std::u16string>& veryShort,
    const std::optional<std::u16string>& symbol,
    const std::map<TBFUnitNameType, std::vector<std::u16string>>& aliases,
    const std::set<std::u16string>& caseSensitiveNames);

TBFUnitContainerRef TBFUnitContainerRetain(TBFUnitContainerRef container);
void TBFUnitContainerRelease(const TBF::UnitContainer* container);

// The fraction and what it tells; borrowed. Setting retains.
TBF::UnitFraction* TBFUnitContainerGetUnitFraction(const TBF::UnitContainer* container);
void TBFUnitContainerSetUnitFraction(TBFUnitContainerRef container, TBF::UnitFraction* fraction);
M_APM TBFUnitContainerGetScalarMAPM(const TBF::UnitContainer* container);
bool TBFUnitContainerIsBaseUnit(const TBF::UnitContainer* container); // the scalar is 1
TBFUnitType TBFUnitContainerGetUnitType(const TBF::UnitContainer* container);

// Names. Texts are compared exactly. The identifier is borrowed; names by type are null where there is none.
const char* TBFUnitContainerGetIdentifier(const TBF::UnitContainer* container);
const std::string& TBFUnitContainerGetIdentifier_cpp(const TBF::UnitContainer* container);
std::string TBFUnitContainerGetNameForType(const TBF::UnitContainer* container, TBFUnitNameType nameType);
bool TBFUnitContainerHasNameForType(const TBF::UnitContainer* container, TBFUnitNameType nameType);
TBFUnitNameType TBFUnitContainerGetNameTypeForName(const TBF::UnitContainer* container,
                                                   std::u16string_view name);
bool TBFUnitContainerIsNameCaseSensitive(const TBF::UnitContainer* container, std::u16string_view name);
std::map<TBFUnitNameType, TBF::String*> TBFUnitContainerGetNames(const TBF::UnitContainer* container);
std::multimap<TBFUnitNameType, TBF::String*> TBFUnitContainerGetAliases(const TBF::UnitContainer* container);

int32_t TBFUnitContainerGetAmbiguousTieBreakFactor(const TBF::UnitContainer* container);
void TBFUnitContainerSetAmbiguousTieBreakFactor(TBFUnitContainerRef container, int32_t factor);
bool TBFUnitContainerCanBePrefixUnit(const TBF::UnitContainer* container);
void TBFUnitContainerSetCanBePrefixUnit(TBFUnitContainerRef container, bool canBePrefixUnit);
