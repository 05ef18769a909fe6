#pragma once

// The locale record of the core layer: which character is the decimal point and which one separates
// groups of thousands. It has the foundation's layout, so it passes to the foundation as it is. By value,
// on any thread.

#include "runtime/TBFTypes.h"

#include <cstdint>

using TCSimpleLocale = TBFLocale;

inline constexpr TCSimpleLocale kTCSimpleLocalDefault = TCSimpleLocale::standardLocale();

constexpr TBFLocale TCTBFLocaleFromTCSimpleLocale(TCSimpleLocale locale) {
    return locale;
}

// Both characters in 32 bits, the decimal point in the low 16: the standard locale is 2883630.
constexpr uint32_t TCSimpleLocalePacked(TCSimpleLocale locale) {
    return static_cast<uint32_t>(locale.decimalPoint) | static_cast<uint32_t>(locale.thousandsSeparator)
                                                            << 16;
}

static_assert(TCSimpleLocalePacked(TCSimpleLocale::standardLocale()) == 2883630);
