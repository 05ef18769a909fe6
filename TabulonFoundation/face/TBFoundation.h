#pragma once

// The plain function that starts the foundation (eval/Foundation.h).

#include "face/runtime/TBFSettings.h"

// Makes the settings current and everything else ready. Later calls do nothing.
void TBFoundationInit(TBFSettingsRef settings);
