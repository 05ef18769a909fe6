#pragma once

// The environment of the kit's tests: the standard functions, variables and word operators, without units.
// Made once, since settings can be set only once in a process.

#include "environment/TCBuiltins.h"
#include "environment/TCEnvironment.h"
#include "environment/TCSettings.h"

namespace TestEnvironment {

inline void set() {
    if (TCSettings::isSet()) return;
    TCSettings::make()->set();
    TCBuiltins::environment()->set();
}

} // namespace TestEnvironment
