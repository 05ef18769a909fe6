#pragma once

// What loading the units data gives. A plain value.

#include "units/TCUnitTypes.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

class TCUnit;

class TCUnitsFile {
public:
    std::vector<std::shared_ptr<TCUnit>> units; // in the order of loading
    std::map<TCUnitType, std::u16string> baseUnitIdentifiersByType;
    std::vector<std::string> failures; // why files could not be used, a sentence each
};
