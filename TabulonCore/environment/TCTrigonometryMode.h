#pragma once

// How a document reads angles, with the numbers of the foundation's enumeration, and the ways between the
// two. Pure functions.

#include "results/TBFEvaluationError.h"

#include <cstdint>

enum TCTrigonometryMode : int32_t {
    TCTrigonometryModeNone = 0,
    TCTrigonometryModeDegrees = 1,
    TCTrigonometryModeRadians = 2,
};

// 0 for anything but degrees and radians.
constexpr TBFTrigonometryMode TCTrigonometryModeToTBFTrigonometryMode(int32_t mode) {
    return mode == TCTrigonometryModeDegrees || mode == TCTrigonometryModeRadians
               ? static_cast<TBFTrigonometryMode>(mode)
               : TBFTrigonometryModeNone;
}

// Degrees for anything but degrees and radians.
constexpr TCTrigonometryMode TCTrigonometryModeFromTBFTrigonometryMode(int32_t mode) {
    return mode == TBFTrigonometryModeRadians ? TCTrigonometryModeRadians : TCTrigonometryModeDegrees;
}
