#pragma once

// What a result shows of its unit: of an amount of money only money, and what it is per. No state.

#include <memory>

class TCUnit;

class TCUnitFilter {
public:
    // The unit itself where there is nothing to leave out. Null for null.
    static std::shared_ptr<TCUnit> filteredUnit(const std::shared_ptr<TCUnit>& unit);
};
