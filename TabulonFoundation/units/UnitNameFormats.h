#pragma once

// How a line wrote each unit, by the unit's identifier. Gathered by EvalMetadata, carried by Result.

#include "runtime/StringId.h"

#include <cstdint>
#include <map>

enum TBFUnitFormatType : int32_t;

namespace TBF {

class Unit;

using UnitNameFormats = std::map<tbf::StringId<Unit>, TBFUnitFormatType>;

} // namespace TBF
