#pragma once

// Which kind of plain function stands behind a function's name. The gaps are kinds that no longer exist.

#include <cstdint>

enum TBFFunctionImplementationType : int32_t {
    TBFFunctionImplementationTypeNone = 0,
    TBFFunctionImplementationTypeLegacyMAPM = 2,        // digits in reverse order to digits
    TBFFunctionImplementationTypeMAPM = 4,              // values to digits in the first register
    TBFFunctionImplementationTypeWordOperator = 5,      // the operands of the running word operator
    TBFFunctionImplementationTypeTBFValue = 6,          // values to a value
    TBFFunctionImplementationTypeTBFEvaluatedValue = 7, // values to a value with its metadata
};
