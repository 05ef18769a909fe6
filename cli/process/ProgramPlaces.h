#pragma once

// Where the running program stands. Main thread, before the working folder changes.

#include <filesystem>
#include <vector>

// The paths that the program may have, without links in them, the surest first: what the kernel says, what it
// was started as, and what it was called by. A sandbox without /proc has the last two alone. Empty if nobody
// knows.
std::vector<std::filesystem::path> placesOfProgram();
