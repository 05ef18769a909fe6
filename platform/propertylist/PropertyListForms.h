#pragma once

// The two forms of property lists as bytes, for PropertyList's own use.

#include "propertylist/PropertyList.h"

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace platform {

// All give none and a clause without a full stop, such as "line 3: unknown element <set>".
std::optional<PropertyList> readXMLPropertyList(std::string_view bytes, std::string& error);
std::optional<PropertyList> readBinaryPropertyList(std::string_view bytes, std::string& error);
std::optional<std::string> writeXMLPropertyList(const PropertyList& list, std::string& error);

// Years have four digits.
inline constexpr PropertyList::Date earliestDate = std::chrono::sys_days(std::chrono::year(1) / 1 / 1);
inline constexpr PropertyList::Date latestDate =
    std::chrono::sys_days(std::chrono::year(10000) / 1 / 1) - std::chrono::milliseconds(1);

inline constexpr std::string_view binaryPropertyListMagic = "bplist00";

} // namespace platform
