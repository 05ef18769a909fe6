#pragma once

// The two forms of property lists as bytes, for PropertyList's own use.

#include "propertylist/PropertyList.h"

#include <optional>
#include <string>
#include <string_view>

namespace platform {

// All give none and a clause without a full stop, such as "line 3: unknown element <set>".
std::optional<PropertyList> readXMLPropertyList(std::string_view bytes, std::string& error);
std::optional<PropertyList> readBinaryPropertyList(std::string_view bytes, std::string& error);
std::optional<std::string> writeXMLPropertyList(const PropertyList& list, std::string& error);

inline constexpr std::string_view binaryPropertyListMagic = "bplist00";

} // namespace platform
