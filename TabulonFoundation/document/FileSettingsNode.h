#pragma once

// The settings section of a document file. A plain record, owned by the reader that made it or by the
// caller of the writer.

#include "document/FileDictionary.h"
#include "runtime/TBFTypes.h"

#include <cstdint>
#include <optional>

namespace TBF {

struct FileSettingsNode {
    static constexpr uint32_t decimalPlacesNotSet = 65535;

    uint32_t decimalPlaces = decimalPlacesNotSet;
    uint32_t trigonometryMode = 0;               // 1 degrees, 2 radians, 0 not set
    TBFChar decimalPoint = 0;                    // 0: not set
    TBFChar thousandsSeparator = 0;              // 0: not set
    std::optional<FileDictionary> miscellaneous; // whatever the application keeps with a document
};

} // namespace TBF
