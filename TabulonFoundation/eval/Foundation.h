#pragma once

// Starts the foundation: the kernel, the settings and the tables of every subject, each once and in the order
// in which they rely on each other. Called by the core before anything is evaluated, on one thread.

#include "runtime/Ref.h"
#include "runtime/Settings.h"

namespace TBF {

// Makes the settings current and everything else ready. Later calls do nothing.
void startFoundation(Ref<Settings> settings);

} // namespace TBF
