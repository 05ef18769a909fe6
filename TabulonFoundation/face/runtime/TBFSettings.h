#pragma once

// The plain functions over settings, whose names stand with the class. Settings are set up on one thread;
// once they are current they are only read, from any thread.

#include "runtime/Settings.h"

#include <cstdint>

using TBFSettingsRef = TBF::Settings*;

// New settings with the defaults, owned by the caller.
TBFSettingsRef TBFSettingsCreate();
void TBFSettingsRelease(const TBF::Settings* settings);

// Notes a change of a known setting in the log.
void TBFSettingsSetBool(TBFSettingsRef settings, const char* name, bool value);

void TBFSettingsSetInteger(TBFSettingsRef settings, const char* name, int64_t value);

// Makes the settings current, retaining them. Once only: a second call ends the process.
void TBFSettingsSet(TBFSettingsRef settings);

// The value in the current settings, which have the defaults until some are set. An unknown name is a mistake
// of the program and throws std::out_of_range.
bool TBFSettingsGetBool(const char* name);
int64_t TBFSettingsGetInteger(const char* name);
