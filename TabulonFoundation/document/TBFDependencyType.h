#pragma once

// Why one line depends on another, as a bit mask. Queries select edges by "mask AND type is not zero".

#include <cstdint>

enum TBFDependencyType : uint32_t {
    TBFDependencyTypeAbsoluteLineReference = 1,
    TBFDependencyTypeRelativeLineReference = 6, // queries ask for its bit 2
    TBFDependencyTypeAnyLineReference = 7,      // the source holds both kinds
    TBFDependencyTypeVariable = 8,              // the destination declares a variable which the source uses
};

inline constexpr uint32_t TBFDependencyMaskAbsolute = 1;
inline constexpr uint32_t TBFDependencyMaskRelative = 2;
inline constexpr uint32_t TBFDependencyMaskAll = 15;
