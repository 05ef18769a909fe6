#pragma once

// Starts the foundation: the kernel, the settings and the tables of every subject, each once and in the order
// in which they rely on each other. Called by the core before anything is evaluated, on one thread.

#include "face/runtime/TBFSettings.h"

// Makes the settings current and everything else ready. Later calls do nothing.
void TBFoundationInit(TBFSettingsRef settings);
